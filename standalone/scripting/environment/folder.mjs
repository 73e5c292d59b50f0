// Folder: a path that stands for a folder, there or not, and what lies in it.

import { inner, hostFunction, nameClass } from "./strict.mjs"
import { files, ui } from "./host.mjs"
import { PathEntry, requireWriting, succeeded } from "./path_entry.mjs"
import { fileAt, meetFolder } from "./file.mjs"
import { matchesMask } from "./file_filters.mjs"

const isFile = 1
const isFolder = 2

class FolderObject extends PathEntry {
  get exists() { return files.kind(this[inner].path) === isFolder }
  get parent() { return parentOf(this[inner].path) }

  // One level only: hosts are said to differ, and this is the stricter way.
  create() {
    requireWriting(files.writingDenied)
    return succeeded(this, files.create(this[inner].path))
  }

  getFiles(mask) {
    const { path } = this[inner]
    if (files.kind(path) !== isFolder) return null
    const entries = []
    const names = files.entries(path)
    for (let i = 0; i < names.length; ++i) {
      const name = names[i]
      const place = path === "/" ? `/${name}` : `${path}/${name}`
      const entry = files.kind(place) === isFolder ? folderAt(place) : fileAt(place)
      const wanted = typeof mask === "function"
        ? mask(entry) === true
        : matchesMask(name, mask === undefined ? "*" : String(mask))
      if (wanted) entries.push(entry)
    }
    return entries
  }

  selectDlg(prompt) { return askForFolder(prompt, this.exists ? files.onDisk(this[inner].path) : "") }
}

nameClass("Folder", FolderObject)

export function folderAt(path) { return new FolderObject(files.encode(path)) }

function parentOf(path) {
  const parent = files.parent(path)
  return parent === "" ? null : folderAt(parent)
}

meetFolder(parentOf, (text) => new FolderObject(text))

function askForFolder(prompt, start) {
  const chosen = ui.chooseFolder(prompt === undefined ? "" : String(prompt), start)
  return chosen === "" ? null : folderAt(files.fromDisk(chosen))
}

const statics = {
  get fs() { return files.system },
  get trash() { return null },
  get current() { return folderAt(files.current) },
  set current(folder) { files.current = files.absolute(String(folder)) },
  decode(text) { return files.decode(String(text)) },
  encode(text) { return files.encode(String(text)) },
  isEncodingAvailable(name) { return files.knowsEncoding(String(name)) },
  selectDialog(prompt) { return askForFolder(prompt, "") },
}

for (const name of ["appData", "userData", "commonFiles", "myDocuments", "desktop", "temp", "system", "startup", "appPackage"]) {
  Object.defineProperty(statics, name, { get() { return folderAt(files.special(name)) }, enumerable: true, configurable: true })
}

export const Folder = hostFunction("Folder", FolderObject, statics,
  (values) => new FolderObject(values[0]),
  (values) => {
    const folder = new FolderObject(values[0])
    return files.kind(folder[inner].path) === isFile ? fileAt(folder[inner].path) : folder
  })
