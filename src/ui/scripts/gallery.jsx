// The gallery: shows the libraries page by page and gives the picked pattern, as text, to the effect. The effect fills
// the words behind number signs, each in a string of its own, before it has the host run this.

var btns = [];
var res = [];
var _refresh = false;
var _rows = 5;
var _cols = 7;
var _thumbSize = [50, 50];
var _ofs = 0;
var _nof_pages = 1;

// The parts of the window that change, and the data folder that the list was read from.
var gallery = {window: null, list: null, importFile: null, previous: null, label: null, next: null, listBase: "",
  filling: false};

function newLibrary(tag, name, folder) {
  return {tag: tag, name: name, folder: folder};
}

function libraryFields(library) {
  return [library.tag, library.name, library.folder];
}

// --- libraries and their images ---

function selectedLibrary() {
  var item = gallery.list.selection;
  return item === null ? null : libs[item.index];
}

function isCloud(library) {
  return library.tag === "CLOUD";
}

// Where a library's images lie; those of the cloud are beside the manifest.
function imageFolder(library) {
  var folder = library.folder;
  return isCloud(library) ? folder.substring(0, lastSeparator(folder) + 1) + "components" : folder;
}

// The manifest may come from anyone: nothing outside its own folder is taken.
function isInnerPath(path) {
  return !isSeparator(path.charAt(0)) && path.indexOf("..") < 0 && path.indexOf(":") < 0;
}

function isPrimary(component) {
  return typeof component === "object" && component !== null && component.rel === "primary" &&
    typeof component.path === "string" && component.state !== "deleted" && component.state !== "pendingDelete";
}

// Adds the images among the primary files of a pattern that are there.
function pushPatternImages(components, folder, images) {
  var i, path;
  for (i = 0; i < components.length; i++) {
    path = isPrimary(components[i]) ? components[i].path : "";
    if (isImageName(path) && isInnerPath(path) && fileAt(joinPath(folder, path)).exists) {
      images.push(joinPath(folder, path));
    }
  }
}

// Adds what an object or array holds, last first.
function pushBackwards(node, pending) {
  var values = [], i, key;
  if (node instanceof Array) {
    values = node;
  } else {
    for (key in node) {
      if (node.hasOwnProperty(key)) values.push(node[key]);
    }
  }
  for (i = values.length - 1; i >= 0; i--) pending.push(values[i]);
}

// The primary files of a cloud library's patterns, which may stand at any depth, in the manifest's order.
function cloudImages(library) {
  var images = [], pending = [JSONify(readJsonFile(library.folder))], folder = imageFolder(library), node;
  while (pending.length > 0) {
    node = pending.pop();
    if (typeof node === "object" && node !== null && node.name !== "removed_elements") {
      if (typeof node.type === "string" && endsWithText(node.type, "pattern+dcx") && node.components instanceof Array) {
        pushPatternImages(node.components, folder, images);
      }
      pushBackwards(node, pending);
    }
  }
  return images;
}

function folderImages(library) {
  var images = [];
  walkFolders(library.folder, function (path, files) {
    var names = imageNames(files), i;
    for (i = 0; i < names.length; i++) images.push(joinPath(path, names[i]));
    return !config.flattenSubfolders;
  });
  return images;
}

// --- the page ---

// What names a thumbnail in the cache. Only what is printable in ASCII counts, and separators do not, so that the
// effect, which counts bytes, comes to the same.
function pathHash(path) {
  var hash = 0, i, code;
  for (i = 0; i < path.length; i++) {
    code = path.charCodeAt(i);
    if (code >= 32 && code <= 126 && code !== 47 && code !== 92) hash = (hash * 31 + code) | 0;
  }
  return hash;
}

function thumbnailPath(path) {
  return dataFolder(true) + "/Quiltor/.cache/" + pathHash(path) + ".png";
}

// The picture in a file, which becomes the button's own; null when it is none. Assigning one that cannot be read throws.
function loadPicture(button, path) {
  var file = fileAt(path), isLoaded;
  isLoaded = file.exists && succeeds(function () {
    button.image = file;
    return true;
  });
  return isLoaded ? button.image : null;
}

// What is drawn is kept apart, since a host may refuse to take a button's own picture away. A button is drawn again
// when it is shown again, and not for another picture.
function showImage(button, path) {
  button.visible = false;
  button.path = path;
  button.picture = null;
  if (path === "") return;
  button.helpTip = lastComponent(path);
  button.picture = loadPicture(button, thumbnailPath(path));
  if (button.picture === null) button.picture = loadPicture(button, path);
  if (button.picture === null) {
    succeeds(function () {
      button.image = undefined;
      return true;
    });
  }
  button.visible = true;
}

function showPage() {
  var first = _ofs * btns.length, i;
  for (i = 0; i < btns.length; i++) showImage(btns[i], first + i < res.length ? res[first + i] : "");
  gallery.label.text = (_ofs + 1) + "/" + _nof_pages;
  gallery.previous.enabled = _ofs > 0;
  gallery.next.enabled = _ofs < _nof_pages - 1;
}

function turnPage(step) {
  _ofs = Math.min(Math.max(_ofs + step, 0), _nof_pages - 1);
  showPage();
}

function showLibrary() {
  var library = selectedLibrary();
  res = [];
  if (library !== null && library.folder !== "") res = isCloud(library) ? cloudImages(library) : folderImages(library);
  _ofs = 0;
  // Deliberate: only full pages are counted, so that of 36 images the last is not shown.
  _nof_pages = Math.max(1, Math.floor(res.length / (_rows * _cols)));
  gallery.importFile.enabled = library !== null && !isCloud(library) && library.folder !== "";
  showPage();
}

// --- the list ---

function hasList(base) {
  return fileAt(base + "/Quiltor/libpaths.txt").exists;
}

// The lines of the list, the user's before that of all users. Without either there is one library.
function listLines() {
  var own = dataFolder(false), shared = dataFolder(true);
  if (hasList(own) || hasList(shared)) {
    gallery.listBase = hasList(own) ? own : shared;
    return readLines(gallery.listBase + "/Quiltor/libpaths.txt");
  }
  gallery.listBase = allUsers ? shared : own;
  return ["Quiltor**" + shared + "/Quiltor"];
}

function readLibs() {
  var lines = listLines(), i, fields;
  libs = [];
  for (i = 0; i < lines.length; i++) {
    // With stars behind it, a line that lacks fields has empty ones.
    fields = (lines[i] + "**").split("*");
    if (fields[1].indexOf(".cache") < 0) {
      libs.push(newLibrary(trimText(fields[0]), trimText(fields[1]), trimText(fields[2])));
    }
  }
}

// The list's own event would come. Its items mean the libraries by their numbers, so that none may be left when those
// change.
function clearList() {
  gallery.filling = true;
  gallery.list.removeAll();
  gallery.filling = false;
}

function selectFirst(isWanted) {
  var i = 0;
  while (i < libs.length && !isWanted(libs[i])) i++;
  gallery.filling = true;
  gallery.list.selection = i < libs.length ? i : 0;
  gallery.filling = false;
}

// Reads the list and shows the first library that is wanted, or else the first of all.
function readList(isWanted) {
  var i;
  clearList();
  readLibs();
  for (i = 0; i < libs.length; i++) gallery.list.add("item", "[" + libs[i].tag + "] " + libs[i].name);
  if (libs.length === 0) {
    alert("No paths found, please open the config dialog and set them!");
    gallery.window.close();
  } else {
    selectFirst(isWanted);
    showLibrary();
  }
}

// Reads the list again and selects the library in the old folder, or in that of the selected one when it is empty.
function refreshPaths(oldPath) {
  var library = selectedLibrary();
  _refresh = true;
  if (oldPath === "" && library !== null) oldPath = library.folder;
  readList(function (found) {
    return found.folder === oldPath;
  });
}

function rewritePaths() {
  var library = selectedLibrary(), oldPath = library === null ? "" : library.folder;
  clearList();
  findLibraries();
  if (!createFolders(joinPath(gallery.listBase, "Quiltor")) || !saveLibraries(gallery.listBase)) {
    alert("Error saving the library list, please check permissions.");
  }
  refreshPaths(oldPath);
}

// Selects the library that was picked from last.
function openPaths(tag, name) {
  readList(function (found) {
    return found.tag === tag && found.name === name;
  });
}

// --- import ---

function copyFile(from, to) {
  return createFolders(to.substring(0, lastSeparator(to))) && succeeds(function () {
    return fileAt(from).copy(fileAt(to));
  });
}

// Copies files; `pairs` has their paths and the new ones. What is there already is replaced only if the user wants.
function copyFiles(pairs) {
  var taken = 0, failed = 0, replace = true, i;
  for (i = 0; i < pairs.length; i++) {
    if (fileAt(pairs[i].to).exists) taken++;
  }
  if (taken > 0) replace = confirm("Files of the same name are there already: " + taken + ". Replace them?");
  for (i = 0; i < pairs.length; i++) {
    if (replace || !fileAt(pairs[i].to).exists) {
      if (!copyFile(pairs[i].from, pairs[i].to)) failed++;
      dropThumbnail(pairs[i].to);
    }
  }
  if (failed > 0) alert("Error copying, please check permissions. Files that were not copied: " + failed);
}

// The thumbnail of what a new file has replaced would stay for good.
function dropThumbnail(path) {
  removeFile(thumbnailPath(path));
}

function importFile() {
  var file = File.openDialog("Select a file to import", "images:*.png;*.jp*"), library = selectedLibrary(), to;
  if (file === null || library === null) return;
  to = joinPath(library.folder, lastComponent(file.fsName));
  if (to !== file.fsName) copyFiles([{from: file.fsName, to: to}]);
  refreshPaths("");
}

function importFolder() {
  var folder = Folder.selectDialog("Select a folder to import"), pairs = [], top, target;
  if (folder === null) return;
  top = folder.fsName;
  target = joinPath(joinPath(fixedBaseFolder(), "Import"), replaceText(lastComponent(top), ":", ""));
  walkFolders(top, function (path, files) {
    var names = imageNames(files), below = joinPath(target, pathBelow(top, path)), i;
    for (i = 0; i < names.length; i++) pairs.push({from: joinPath(path, names[i]), to: joinPath(below, names[i])});
    return false;
  });
  if (target !== top) copyFiles(pairs);
  rewritePaths();
}

// --- the window ---

function pick() {
  var library = selectedLibrary();
  if (library !== null) {
    result = [this.path, library.tag, library.name, library.folder, _refresh ? "UPD" : ""].join("*");
  }
  gallery.window.close();
}

function refresh() {
  result = "*UPD";
  rewritePaths();
}

function showInSystem() {
  var library = selectedLibrary(), folder;
  if (library === null || library.folder === "") return;
  folder = folderAt(imageFolder(library));
  if (folder.exists) {
    succeeds(function () {
      return folder.execute();
    });
  }
}

// Draws the picture in the button's size, whatever its own.
function drawThumbnail() {
  this.graphics.drawOSControl();
  if (this.picture) this.graphics.drawImage(this.picture, 0, 0, this.size[0], this.size[1]);
}

function addButton(parent, text, onClick) {
  var button = parent.add("button", undefined, text);
  button.onClick = onClick;
  return button;
}

function addThumbnail(row) {
  var button = row.add("iconbutton", undefined, undefined, {style: "button"});
  button.preferredSize = _thumbSize;
  button.path = "";
  button.picture = null;
  button.onDraw = drawThumbnail;
  button.onClick = pick;
  btns.push(button);
}

function addPage(parent) {
  var page = parent.add("panel"), row, y, x;
  page.margins = page.spacing = 5;
  for (y = 0; y < _rows; y++) {
    row = page.add("group", undefined, {name: "row_" + y});
    row.margins = row.spacing = 5;
    for (x = 0; x < _cols; x++) addThumbnail(row);
  }
}

function addPager(parent) {
  var row = parent.add("group");
  gallery.previous = addButton(row, "<", function () {
    turnPage(-1);
  });
  gallery.label = row.add("statictext", undefined, "1/1");
  gallery.label.preferredSize = [70, -1];
  gallery.label.justify = "center";
  gallery.next = addButton(row, ">", function () {
    turnPage(1);
  });
}

function addList(parent) {
  gallery.list = parent.add("dropdownlist");
  gallery.list.preferredSize = [450, -1];
  gallery.list.active = true;
  gallery.list.onChange = function () {
    if (!gallery.filling && this.selection !== null) showLibrary();
  };
}

function addCommands(parent) {
  var row = parent.add("group");
  addButton(row, "Refresh", refresh);
  addButton(row, "Show folder in OS", showInSystem);
  gallery.importFile = addButton(row, "Import file", importFile);
  addButton(row, "Import folder", importFolder);
}

function holdsPoint(screen, x, y) {
  return x >= screen.left && x < screen.right && y >= screen.top && y < screen.bottom;
}

// Moves the window into the screen that it begins on, or into the first: on scaled displays the mouse may be told in
// other units. The frame around the window is not counted in its size.
function keepOnScreen(window) {
  var frame = 40, left = window.location[0], top = window.location[1], screen = $.screens[0], i;
  for (i = 0; i < $.screens.length; i++) {
    if (holdsPoint($.screens[i], left, top)) screen = $.screens[i];
  }
  if (!screen) return;
  window.location = [Math.max(screen.left, Math.min(left, screen.right - window.size[0] - frame)),
    Math.max(screen.top + frame, Math.min(top, screen.bottom - window.size[1] - frame))];
}

function buildGallery() {
  var window = new Window("dialog", "Select Texture", undefined, {resizeable: false, borderless: false}), panel;
  gallery.window = window;
  window.margins = 5;
  window.alignChildren = "left";
  window.location = [parseInt("#X_POS", 10), parseInt("#Y_POS", 10)];
  panel = window.add("panel");
  panel.alignChildren = "left";
  addList(panel);
  addCommands(panel);
  addPage(panel);
  addPager(panel);
  window.onShow = function () {
    keepOnScreen(this);
  };
}

// Gives image path, "*", the library's three fields with "*" between them, "*" and "UPD" when the list was refreshed;
// "*UPD" when it was refreshed and nothing picked, and an empty text otherwise.
function galleryDlg() {
  try {
    buildGallery();
    loadSettings();
    openPaths("#v1", "#v2");
    if (libs.length > 0) gallery.window.show();
  } catch (problem) {
    alert("Quiltor: " + problem.message);
  }
  return result;
}

galleryDlg();
