// What the two dialogs share.
