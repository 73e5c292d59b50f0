// As much of the host's File and Folder as the functions of the dialogs' scripts touch, on the real disk and with
// this system's paths. The dialogs as a whole run in the stand-alone host, which has all of it.
import fs from "node:fs";
import { dirname, join } from "node:path";
import vm from "node:vm";
import { template } from "./dialog_scripts.mjs";

const lineEnds = { Windows: "\r\n", Unix: "\n" };

class Entry {
  constructor(path) {
    this.fsName = decodeURIComponent(String(path)).replace(/(.)\/+$/, "$1");
  }
  get stat() { return fs.statSync(this.fsName, { throwIfNoEntry: false }); }
  get parent() { return this.fsName === "/" ? null : new Folder(encodeURI(dirname(this.fsName))); }
  // As in Windows, where a file that is open stays.
  remove() {
    if (!this.exists || this.isOpen) return false;
    fs.rmSync(this.fsName);
    return true;
  }
  rename(name) {
    fs.renameSync(this.fsName, join(dirname(this.fsName), name));
    return true;
  }
}

export class File extends Entry {
  lineFeed = "Unix";
  isOpen = false;
  get exists() { return this.stat?.isFile() ?? false; }
  get length() { return this.stat?.size ?? -1; }
  open(mode) {
    if (mode === "r" ? !this.exists : !fs.existsSync(dirname(this.fsName))) return false;
    if (mode === "w") fs.writeFileSync(this.fsName, "");
    this.isOpen = true;
    return true;
  }
  read() { return fs.readFileSync(this.fsName, "utf8"); }
  write(text) {
    fs.appendFileSync(this.fsName, text.replaceAll("\n", lineEnds[this.lineFeed]));
    return true;
  }
  close() {
    this.isOpen = false;
    return true;
  }
  copy(target) {
    fs.copyFileSync(this.fsName, target.fsName);
    return true;
  }
}

export class Folder extends Entry {
  static fs = "Macintosh";
  get exists() { return this.stat?.isDirectory() ?? false; }
  create() {
    fs.mkdirSync(this.fsName);
    return true;
  }
  // The order of a disk is any.
  getFiles() {
    if (!this.exists) return null;
    return fs.readdirSync(this.fsName).sort().reverse().map((name) => {
      const path = encodeURIComponent(join(this.fsName, name));
      return fs.statSync(join(this.fsName, name)).isDirectory() ? new Folder(path) : new File(path);
    });
  }
}

// The functions and globals of a dialog's script, which is not run. `data` is a folder that gets both data folders.
export function loadDialog(name, data) {
  for (const folder of ["all", "user"]) fs.mkdirSync(join(data, folder), { recursive: true });
  Folder.appData = new Folder(encodeURIComponent(join(data, "all")));
  Folder.userData = new Folder(encodeURIComponent(join(data, "user")));
  const call = /\b(gallery|config)Dlg\(\);\n$/;
  const text = template(name);
  if (!call.test(text)) throw new Error("the script does not end with its call");
  // As other scripts may leave it behind.
  const context = vm.createContext({ File, Folder, JSON: undefined });
  vm.runInContext(text.replace(call, ""), context);
  return context;
}
