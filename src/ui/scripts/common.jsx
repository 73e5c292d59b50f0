// What the two dialogs share: the settings and the list of libraries, how both are read and written, and the search for
// libraries. The build puts this text in front of each dialog's own.
//
// The language is ECMAScript 3 with a host's objects. Paths are fsName texts everywhere: only those mean the same to
// the effect. All scripts of a host share one engine that lives on, so each run begins with setting the globals anew.

var allUsers = true;
var result = "";
var config = {
  baseFolder: "",
  addFolder1: "",
  addFolder2: "",
  addFolder3: "",
  addFolder4: "",
  loadFromCloud: true,
  copyOnImport: true,
  convertPatterns: true,
  flattenSubfolders: false
};
var libs = [];

// In the order of the settings file.
var settingKeys = ["baseFolder", "addFolder1", "addFolder2", "addFolder3", "addFolder4", "loadFromCloud",
  "copyOnImport", "convertPatterns", "flattenSubfolders"];
var folderKeys = settingKeys.slice(0, 5);
var notSet = "[not set]";
var plainObject = {};

// --- texts ---

function isBlank(code) {
  return code <= 32 || code === 0xFEFF;
}

function trimText(text) {
  var from = 0, to = text.length;
  while (from < to && isBlank(text.charCodeAt(from))) from++;
  while (to > from && isBlank(text.charCodeAt(to - 1))) to--;
  return text.substring(from, to);
}

function replaceText(text, from, to) {
  return text.split(from).join(to);
}

function endsWithText(text, ending) {
  return text.length >= ending.length && text.substring(text.length - ending.length) === ending;
}

function hasLineEnd(text) {
  return text.indexOf("\n") >= 0 || text.indexOf("\r") >= 0;
}

// --- paths ---

function separator() {
  return Folder.fs === "Windows" ? "\\" : "/";
}

function isSeparator(character) {
  return character === "/" || character === "\\";
}

function lastSeparator(path) {
  return Math.max(path.lastIndexOf("/"), path.lastIndexOf("\\"));
}

function lastComponent(path) {
  var end = path.length;
  while (end > 0 && isSeparator(path.charAt(end - 1))) end--;
  return path.substring(lastSeparator(path.substring(0, end)) + 1, end);
}

function joinPath(folder, name) {
  return isSeparator(folder.charAt(folder.length - 1)) ? folder + name : folder + separator() + name;
}

// What leads from a folder to a path below it. The path of a drive ends in a separator, and no other.
function pathBelow(folder, path) {
  var below = path.substring(folder.length);
  while (isSeparator(below.charAt(0))) below = below.substring(1);
  return below;
}

// Constructors take what follows a percent sign for an encoded character.
function literalPath(path) {
  return replaceText(path, "%", "%25");
}

function fileAt(path) {
  return new File(literalPath(path));
}

function folderAt(path) {
  return new Folder(literalPath(path));
}

// The data folder of all users or of this one.
function dataFolder(forAll) {
  return forAll ? Folder.appData.fsName : Folder.userData.fsName;
}

// The one folder of the library that cannot be chosen.
function fixedBaseFolder() {
  return dataFolder(true) + separator() + "Quiltor";
}

function isSet(folder) {
  return folder !== "" && folder !== notSet;
}

// --- files ---

// Whether the deed gives true. Hosts that do not let scripts write throw where others give false.
function succeeds(deed) {
  try {
    return deed() === true;
  } catch (refused) {
    return false;
  }
}

// The whole text of a file; nothing when it cannot be read.
function readText(path) {
  var file = fileAt(path), text = "";
  try {
    file.encoding = "UTF-8";
    if (!file.open("r")) return "";
    text = file.read();
    file.close();
  } catch (refused) {
    return "";
  }
  return text.charCodeAt(0) === 0xFEFF ? text.substring(1) : text;
}

// The lines of a file that are not blank, trimmed.
function readLines(path) {
  var all = replaceText(readText(path), "\r", "\n").split("\n"), lines = [], i, line;
  for (i = 0; i < all.length; i++) {
    line = trimText(all[i]);
    if (line !== "") lines.push(line);
  }
  return lines;
}

// Makes the folder and those above it, one by one. False when it is not there afterwards.
function createFolders(path) {
  var folder = folderAt(path);
  if (folder.exists) return true;
  if (folder.parent === null || !createFolders(folder.parent.fsName)) return false;
  succeeds(function () {
    return folder.create();
  });
  return folder.exists;
}

function removeFile(path) {
  return succeeds(function () {
    return fileAt(path).remove();
  });
}

function writeText(path, text) {
  var file = fileAt(path), written, closed;
  written = succeeds(function () {
    file.encoding = "UTF-8";
    file.lineFeed = "Windows";
    return file.open("w") && file.write(text);
  });
  // Also when the writing was refused: a file that is open cannot be removed.
  closed = succeeds(function () {
    return file.close();
  });
  return written && closed;
}

// Gives a file the place of another. Where it cannot have the name, a copy will do.
function replaceFile(from, to) {
  var isMoved;
  if (fileAt(to).exists && !removeFile(to)) return false;
  isMoved = succeeds(function () {
    return fileAt(from).rename(lastComponent(to));
  }) || succeeds(function () {
    return fileAt(from).copy(fileAt(to));
  });
  // A copy that failed may have left a part.
  if (!isMoved) removeFile(to);
  return isMoved;
}

// Writes the text under another name first, so that a failure leaves the file as it was. Opening a file for writing
// empties it, and a host may refuse the writing only after that.
function saveText(path, text) {
  var part = path + ".part", isNew = !fileAt(path).exists, saved;
  saved = writeText(part, text) && replaceFile(part, path);
  // With the old text gone, the new one stays under its other name.
  if (isNew || fileAt(path).exists) removeFile(part);
  return saved;
}

// --- settings ---

// A key is known by its last five characters, wherever they stand in the line.
function readSetting(line, key) {
  var mark = (key + ":").slice(-5), at = line.indexOf(mark), value;
  if (at < 0) return;
  value = trimText(line.substring(at + mark.length));
  config[key] = typeof config[key] === "boolean" ? value === "true" : value;
}

// Reads the settings in a data folder; gives the number of lines found.
function loadConfig(base) {
  var lines = readLines(base + "/Quiltor/config.txt"), i, k;
  for (i = 0; i < lines.length; i++) {
    for (k = 0; k < settingKeys.length; k++) readSetting(lines[i], settingKeys[k]);
  }
  return lines.length;
}

// The user's settings come before those of all users.
function loadSettings() {
  if (loadConfig(dataFolder(false)) > 0) {
    allUsers = false;
  } else if (loadConfig(dataFolder(true)) === 0) {
    config.baseFolder = fixedBaseFolder();
  }
}

// --- folders ---

function isImageName(name) {
  var lower = name.toLowerCase();
  // A star would end the path in the text that names a pick.
  if (lower.indexOf("*") >= 0 || hasLineEnd(lower)) return false;
  return endsWithText(lower, ".png") || endsWithText(lower, ".jpg") || endsWithText(lower, ".jpeg");
}

function compareEntries(a, b) {
  if (a.order !== b.order) return a.order < b.order ? -1 : 1;
  if (a.name !== b.name) return a.name < b.name ? -1 : 1;
  return 0;
}

// What a folder holds, in the order of the names: files as names, folders as names with their objects.
function folderContents(folder) {
  var found = null, entries = [], contents = {files: [], folders: []}, i, name;
  try {
    found = folder.getFiles();
  } catch (refused) {
    found = null;
  }
  if (found === null) return contents;
  for (i = 0; i < found.length; i++) {
    name = lastComponent(found[i].fsName);
    entries.push({order: name.toLowerCase(), name: name, object: found[i]});
  }
  entries.sort(compareEntries);
  for (i = 0; i < entries.length; i++) {
    if (entries[i].object instanceof Folder) {
      contents.folders.push(entries[i]);
    } else {
      contents.files.push(entries[i].name);
    }
  }
  return contents;
}

// Calls visit(path, names of the files) for the folder and all below it, each before those in it, until it gives true.
// Folders with the name ".cache" are left out. Links that lead back are followed only so deep and so often, since
// nothing tells them from folders.
function walkFolders(path, visit) {
  var pending = [{path: path, folder: folderAt(path), depth: 0}], visits = 0, place, contents, i, sub;
  while (pending.length > 0 && visits < 20000) {
    place = pending.pop();
    visits++;
    contents = folderContents(place.folder);
    if (visit(place.path, contents.files)) return;
    for (i = place.depth < 30 ? contents.folders.length - 1 : -1; i >= 0; i--) {
      sub = contents.folders[i];
      if (sub.name !== ".cache") {
        pending.push({path: joinPath(place.path, sub.name), folder: sub.object, depth: place.depth + 1});
      }
    }
  }
}

function imageNames(files) {
  var names = [], i;
  for (i = 0; i < files.length; i++) {
    if (isImageName(files[i])) names.push(files[i]);
  }
  return names;
}

function holdsImages(files) {
  var i;
  for (i = 0; i < files.length; i++) {
    if (isImageName(files[i])) return true;
  }
  return false;
}

// --- cloud libraries ---

// A place in a JSON text, and where the next backslash is, so that long texts are searched for it once and not once
// per string.
function jsonReader(text, at) {
  return {text: text, at: at, escape: -1};
}

function skipBlanks(reader) {
  var code = reader.text.charCodeAt(reader.at);
  while (code === 32 || code === 9 || code === 10 || code === 13) code = reader.text.charCodeAt(++reader.at);
}

function skipCharacter(reader, wanted) {
  var found = reader.at < reader.text.length && wanted.indexOf(reader.text.charAt(reader.at)) >= 0;
  if (found) reader.at++;
  return found;
}

// The character that four hexadecimal digits stand for.
function escapedUnit(text, at) {
  var unit = 0, i, digit;
  if (at + 4 > text.length) throw new Error("too few digits");
  for (i = 0; i < 4; i++) {
    digit = "0123456789abcdef".indexOf(text.charAt(at + i).toLowerCase());
    if (digit < 0) throw new Error("no digit");
    unit = unit * 16 + digit;
  }
  return String.fromCharCode(unit);
}

function readJsonString(reader) {
  var text = reader.text, pieces = [], end = -1, from, letter, meaning;
  if (!skipCharacter(reader, "\"")) throw new Error("no string");
  from = reader.at;
  for (;;) {
    if (end < from) end = text.indexOf("\"", from);
    if (end < 0) throw new Error("no end");
    if (reader.escape < from) reader.escape = text.indexOf("\\", from);
    if (reader.escape < 0) reader.escape = text.length;
    if (reader.escape > end) break;
    pieces.push(text.substring(from, reader.escape));
    letter = text.charAt(reader.escape + 1);
    if (letter === "u") {
      pieces.push(escapedUnit(text, reader.escape + 2));
      from = reader.escape + 6;
    } else {
      meaning = "\"\\/bfnrt".indexOf(letter);
      if (meaning < 0) throw new Error("no such escape");
      pieces.push("\"\\/\b\f\n\r\t".charAt(meaning));
      from = reader.escape + 2;
    }
  }
  pieces.push(text.substring(from, end));
  reader.at = end + 1;
  return pieces.join("");
}

function skipDigits(reader) {
  var from = reader.at, code = reader.text.charCodeAt(from);
  while (code >= 48 && code <= 57) code = reader.text.charCodeAt(++reader.at);
  if (reader.at === from) throw new Error("no digits");
}

function readJsonNumber(reader) {
  var from = reader.at;
  skipCharacter(reader, "-");
  if (!skipCharacter(reader, "0")) skipDigits(reader);
  if (skipCharacter(reader, ".")) skipDigits(reader);
  if (skipCharacter(reader, "eE")) {
    skipCharacter(reader, "+-");
    skipDigits(reader);
  }
  return parseFloat(reader.text.substring(from, reader.at));
}

function readJsonWord(reader, word, value) {
  if (reader.text.substr(reader.at, word.length) !== word) throw new Error("no value");
  reader.at += word.length;
  return value;
}

// A value that holds no others.
function readJsonScalar(reader) {
  switch (reader.text.charAt(reader.at)) {
    case "\"":
      return readJsonString(reader);
    case "t":
      return readJsonWord(reader, "true", true);
    case "f":
      return readJsonWord(reader, "false", false);
    case "n":
      return readJsonWord(reader, "null", null);
    default:
      return readJsonNumber(reader);
  }
}

function readJsonKey(reader) {
  var key = readJsonString(reader);
  skipBlanks(reader);
  if (!skipCharacter(reader, ":")) throw new Error("no colon");
  return key;
}

// An object or array that is being read; `key` is that of the value that comes next.
function jsonFrame(holder, closing) {
  return {holder: holder, closing: closing, key: "", isEmpty: true};
}

// Names that every object has are not stored: some of them do things when they are set.
function storeJson(frame, value) {
  if (frame.closing === "]") {
    frame.holder.push(value);
  } else if (typeof plainObject[frame.key] === "undefined") {
    frame.holder[frame.key] = value;
  }
}

function readJsonValue(reader, open) {
  var top = open[open.length - 1], frame = null;
  skipBlanks(reader);
  if (skipCharacter(reader, "{")) {
    frame = jsonFrame({}, "}");
  } else if (skipCharacter(reader, "[")) {
    frame = jsonFrame([], "]");
  }
  storeJson(top, frame === null ? readJsonScalar(reader) : frame.holder);
  if (frame !== null) open.push(frame);
}

// Closes what ends here; whether a further value follows.
function findJsonValue(reader, open) {
  var top;
  for (;;) {
    skipBlanks(reader);
    if (open.length === 1) break;
    top = open[open.length - 1];
    if (!skipCharacter(reader, top.closing)) {
      if (!top.isEmpty && !skipCharacter(reader, ",")) throw new Error("no comma");
      top.isEmpty = false;
      skipBlanks(reader);
      if (top.closing === "}") top.key = readJsonKey(reader);
      return true;
    }
    open.pop();
  }
  if (reader.at < reader.text.length) throw new Error("no end");
  return false;
}

// The value that a JSON text stands for; undefined for any other text. The text is read and never evaluated, since it
// may come from anyone, and it is read without recursion, since it may be nested deeper than the engine can call. Raw
// control characters in strings pass.
function JSONify(text) {
  var reader = jsonReader(text, 0), root = [], open = [jsonFrame(root, "]")];
  try {
    do {
      readJsonValue(reader, open);
    } while (findJsonValue(reader, open));
  } catch (notJson) {
    return undefined;
  }
  return root[0];
}

// The text of a manifest. One that no library can need so much for would only hold up the host.
function readJsonFile(path) {
  return fileAt(path).length > 33554432 ? "" : readText(path);
}

// Whether a manifest is that of a library that holds patterns.
function checkCloud(text) {
  return text.indexOf("pattern+dcx") > 0 && text.indexOf("library+dcx") > 0;
}

// The name of the library in a manifest: the nearest behind its mark, or in front of it when another entry begins
// before that or none is behind it. Undefined when there is none that can be read.
function checkCloudName(text) {
  var mark = text.indexOf("library+dcx"), at = text.indexOf("\"name\"", mark), brace = text.indexOf("{", mark), reader;
  if (at < 0 || (brace >= 0 && brace < at)) at = text.lastIndexOf("\"name\"", mark);
  if (mark < 0 || at < 0) return undefined;
  reader = jsonReader(text, at);
  try {
    readJsonKey(reader);
    skipBlanks(reader);
    return readJsonString(reader);
  } catch (damaged) {
    return undefined;
  }
}

// A name as it can stand in a line of the list.
function oneField(name) {
  var field = "", i, code;
  for (i = 0; i < name.length; i++) {
    code = name.charCodeAt(i);
    field += code < 32 || code === 42 ? " " : name.charAt(i);
  }
  return trimText(field);
}

function hasManifest(files) {
  var i;
  for (i = 0; i < files.length; i++) {
    if (files[i] === "manifest") return true;
  }
  return false;
}

function findCloudLibraries() {
  walkFolders(joinPath(joinPath(joinPath(dataFolder(false), "Adobe"), "Creative Cloud Libraries"), "LIBS"),
    function (path, files) {
      var manifest = joinPath(path, "manifest"), text, name;
      if (!hasManifest(files)) return false;
      text = readJsonFile(manifest);
      name = checkCloud(text) ? checkCloudName(text) : undefined;
      if (typeof name === "string" && name.length <= 255) addLibrary("CLOUD", oneField(name), manifest);
      return false;
    });
}

// --- libraries ---

// Each dialog has its own kind of entries: newLibrary(label, name, path) makes one, libraryFields(library) gives the
// three texts back.

// A library whose fields would not be read back as they are is left out.
function addLibrary(label, name, path) {
  var fields = label + name + path;
  if (fields.indexOf("*") < 0 && !hasLineEnd(fields)) libs.push(newLibrary(label, name, path));
}

// A path below a folder as the list shows it.
function shownPath(folder, path) {
  return replaceText(replaceText(pathBelow(folder, path), "/", " | "), "\\", " | ");
}

// Adds the libraries of a configured folder.
function parseDir(configured) {
  var folder = folderAt(configured), path = folder.fsName, tag = lastComponent(path), contents, i, sub;
  if (!folder.exists) return;
  contents = folderContents(folder);
  if (holdsImages(contents.files)) addLibrary(tag, "", path);
  for (i = 0; i < contents.folders.length; i++) {
    sub = contents.folders[i].name;
    if (sub !== ".cache") parseSubfolder(tag, path, joinPath(path, sub));
  }
}

// Adds each folder at or below the subfolder that holds images, or the subfolder for all of them when flattened.
function parseSubfolder(tag, top, subfolder) {
  walkFolders(subfolder, function (path, files) {
    if (!holdsImages(files)) return false;
    addLibrary(tag, shownPath(top, config.flattenSubfolders ? subfolder : path),
      config.flattenSubfolders ? subfolder : path);
    return config.flattenSubfolders;
  });
}

// Fills libs from the settings.
function findLibraries() {
  var i;
  libs = [];
  for (i = 0; i < folderKeys.length; i++) {
    if (isSet(config[folderKeys[i]])) parseDir(config[folderKeys[i]]);
  }
  if (config.loadFromCloud) findCloudLibraries();
}

// Writes libs into a data folder.
function saveLibraries(base) {
  var lines = [], i;
  for (i = 0; i < libs.length; i++) lines.push(libraryFields(libs[i]).join("*") + "\n");
  return saveText(joinPath(joinPath(base, "Quiltor"), "libpaths.txt"), lines.join(""));
}
