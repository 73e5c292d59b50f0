// The gallery, in which the user picks a pattern.
function galleryDlg() {
    return "";
}

galleryDlg();
