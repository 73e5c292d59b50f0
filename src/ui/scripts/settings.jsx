// The settings of the pattern library.
function configDlg() {
    return "";
}

configDlg();
