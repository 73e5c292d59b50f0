// The settings of the library: four folders beside the fixed one and where patterns come from. Writes the settings and
// the list of libraries and gives the settings, as text, to the effect.

var settings = {window: null, baseLabel: null, pathLabels: [], loadFromCloud: null, convertPatterns: null,
  copyOnImport: null, flattenSubfolders: null, allUsers: null};

function newLibrary(parent, name, dir) {
  return {parent: parent, name: name, dir: dir};
}

function libraryFields(library) {
  return [library.parent, library.name, library.dir];
}

// --- saving ---

function takeInput() {
  var i;
  config.baseFolder = settings.baseLabel.text;
  for (i = 0; i < settings.pathLabels.length; i++) config["addFolder" + (i + 1)] = settings.pathLabels[i].text;
  config.loadFromCloud = settings.loadFromCloud.value;
  config.copyOnImport = settings.copyOnImport.value;
  config.convertPatterns = settings.convertPatterns.value;
  config.flattenSubfolders = settings.flattenSubfolders.value;
  allUsers = settings.allUsers.value;
}

function settingsText() {
  var lines = [], i;
  for (i = 0; i < settingKeys.length; i++) lines.push(settingKeys[i] + ": " + config[settingKeys[i]] + "\n");
  return lines.join("");
}

// The file ends with an empty line.
function saveSettings(base) {
  var folder = joinPath(base, "Quiltor");
  return createFolders(folder) && saveText(joinPath(folder, "config.txt"), settingsText() + "\n");
}

// The user's own files would hide those of all users.
function removeUsersFiles() {
  var folder = joinPath(dataFolder(false), "Quiltor");
  if (dataFolder(false) === dataFolder(true)) return;
  succeeds(function () {
    return fileAt(joinPath(folder, "config.txt")).remove();
  });
  succeeds(function () {
    return fileAt(joinPath(folder, "libpaths.txt")).remove();
  });
}

// The data folder that took the settings; empty when none did.
function saveWherePossible() {
  if (allUsers) {
    if (saveSettings(dataFolder(true))) {
      removeUsersFiles();
      return dataFolder(true);
    }
    alert("Error saving to all users folder, please check permissions. Now writing to this user's folder instead.");
  }
  if (saveSettings(dataFolder(false))) return dataFolder(false);
  alert("Error saving to user's folder, please check permissions.");
  return "";
}

function save() {
  var base;
  takeInput();
  result = settingsText();
  base = saveWherePossible();
  if (base !== "") {
    findLibraries();
    if (!saveLibraries(base)) alert("Error saving the library list, please check permissions.");
  }
  settings.window.close(1);
}

function cancel() {
  result = "";
  settings.window.close(2);
}

// --- the window ---

function chooseFolder(label) {
  var current = isSet(label.text) ? folderAt(label.text) : null, chosen;
  if (current !== null && current.exists) {
    chosen = current.selectDlg("Select a folder");
  } else {
    chosen = Folder.selectDialog("Select a folder");
  }
  if (chosen !== null) showPath(label, chosen.fsName);
}

// A path that is too long for its label can be read in its tip.
function showPath(label, path) {
  label.text = path;
  label.helpTip = path;
}

function addRow(parent) {
  var row = parent.add("group");
  row.preferredSize = [800, -1];
  row.alignChildren = ["left", "center"];
  row.spacing = 10;
  return row;
}

function addPathLabel(row, text) {
  var label = row.add("statictext", undefined, text, {truncate: "middle"});
  label.preferredSize = [400, -1];
  return label;
}

function addSmallButton(row, text, onClick) {
  var button = row.add("button", undefined, text);
  button.preferredSize = [40, 25];
  button.onClick = onClick;
}

function addBaseRow(parent) {
  var row = addRow(parent), caption = row.add("statictext", undefined, "Base folder:");
  // As wide as the two buttons and the caption of the rows below, so that the paths stand in one column.
  caption.preferredSize = [40 + 10 + 40 + 10 + 140, -1];
  settings.baseLabel = addPathLabel(row, "");
}

function addFolderRow(parent, number) {
  var row = addRow(parent), caption, label;
  function choose() {
    chooseFolder(label);
  }
  addSmallButton(row, "Set", choose);
  addSmallButton(row, "Clear", function () {
    showPath(label, notSet);
  });
  caption = row.add("statictext", undefined, "Additional folder " + number + ":");
  caption.preferredSize = [140, -1];
  label = addPathLabel(row, notSet);
  caption.addEventListener("click", choose);
  label.addEventListener("click", choose);
  settings.pathLabels.push(label);
}

function addBox(parent, text, value) {
  var box = parent.add("checkbox", undefined, text);
  box.value = value;
  return box;
}

function addBoxes(parent) {
  var shared;
  settings.loadFromCloud = addBox(parent, "Show patterns from Adobe Cloud Libraries", true);
  settings.convertPatterns = addBox(parent, "Automatically import Photoshop patterns in any folder", true);
  // Hidden boxes keep their place: one behind the other they leave no gap.
  shared = parent.add("group");
  shared.orientation = "stack";
  shared.alignChildren = ["left", "center"];
  settings.copyOnImport = addBox(shared, "Copy files on import", true);
  settings.copyOnImport.visible = false;
  settings.flattenSubfolders = addBox(shared, "Flatten subfolders in library list", false);
  settings.flattenSubfolders.visible = false;
  settings.allUsers = addBox(shared, "Save folder settings for all users", true);
}

function addAnswers(window) {
  var row = window.add("group"), ok, no;
  row.alignment = "right";
  ok = row.add("button", undefined, "OK");
  ok.onClick = save;
  ok.active = true;
  no = row.add("button", undefined, "Cancel");
  no.onClick = cancel;
  window.defaultElement = ok;
  window.cancelElement = no;
}

function buildSettings() {
  var window = new Window("dialog", "Quiltor Settings", undefined, {resizeable: false}), number;
  settings.window = window;
  window.alignChildren = "left";
  addBaseRow(window);
  for (number = 1; number <= 4; number++) addFolderRow(window, number);
  addBoxes(window);
  addAnswers(window);
  window.onShow = function () {
    this.center();
  };
}

function showSettings() {
  var i, path;
  showPath(settings.baseLabel, fixedBaseFolder());
  for (i = 0; i < settings.pathLabels.length; i++) {
    path = config["addFolder" + (i + 1)];
    showPath(settings.pathLabels[i], path === "" ? notSet : path);
  }
  settings.loadFromCloud.value = config.loadFromCloud;
  settings.convertPatterns.value = config.convertPatterns;
  settings.copyOnImport.value = config.copyOnImport;
  settings.flattenSubfolders.value = config.flattenSubfolders;
  settings.allUsers.value = allUsers;
}

// Gives the settings as they were saved; an empty text when they were not to be.
function configDlg() {
  try {
    loadSettings();
    buildSettings();
    showSettings();
    settings.window.show();
  } catch (problem) {
    alert("Quiltor: " + problem.message);
  }
  return result;
}

configDlg();
