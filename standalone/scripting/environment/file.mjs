// File: a path that stands for a file, there or not, and the text in it.

import { inner, hostFunction, nameClass } from "./strict.mjs"
import { files, ui } from "./host.mjs"
import { PathEntry, requireWriting, succeeded } from "./path_entry.mjs"
import { dialogFilters } from "./file_filters.mjs"

const isFile = 1
const isFolder = 2
const lineEnds = { w: "\r\n", m: "\r", u: "\n" }

// folder.mjs imports this file, so it gives its functions here.
let folderOf = null
let makeFolder = null
export function meetFolder(parentOf, make) {
  folderOf = parentOf
  makeFolder = make
}

class FileObject extends PathEntry {
  constructor(text) {
    super(text)
    const state = this[inner]
    state.encoding = "CP1252"
    state.lineFeed = files.system === "Windows" ? "Windows" : "Unix"
    state.open = null
  }

  get exists() { return files.kind(this[inner].path) === isFile }
  get parent() { return folderOf(this[inner].path) }
  get length() { return files.length(this[inner].path) }
  get readonly() { return false }
  get hidden() { return this.displayName.charAt(0) === "." }
  get type() { return "" }
  get creator() { return "" }

  get encoding() { return this[inner].encoding }
  set encoding(name) { this[inner].encoding = String(name) }
  get lineFeed() { return this[inner].lineFeed }
  set lineFeed(name) {
    if (lineEnds[String(name).charAt(0).toLowerCase()] !== undefined) this[inner].lineFeed = String(name)
  }
  get eof() { return this[inner].open === null ? true : this[inner].open.eof }

  open(mode) {
    const state = this[inner]
    const way = String(mode).charAt(0)
    if (state.open !== null) return succeeded(this, "I/O error")
    if (mode === undefined || "rwea".indexOf(way) < 0) return succeeded(this, "Bad argument")
    if (way !== "r") requireWriting(files.openingDenied)
    state.open = files.open(state.path, way, state.encoding)
    if (state.open === null) return succeeded(this, files.openError())
    state.encoding = state.open.encoding
    return succeeded(this, "")
  }

  close() {
    const { open } = this[inner]
    if (open === null) return false
    this[inner].open = null
    return succeeded(this, open.close() ? "" : "I/O error")
  }

  read(count) {
    const { open } = this[inner]
    return open === null ? "" : open.read(count === undefined ? -1 : Number(count))
  }

  readln() {
    const { open } = this[inner]
    return open === null ? "" : open.readLine()
  }

  readch() { return this.read(1) }

  write(...texts) {
    const state = this[inner]
    if (state.open === null) return succeeded(this, "File is not open")
    requireWriting(files.writingDenied)
    const written = state.open.write(texts.join(""), lineEnds[state.lineFeed.charAt(0).toLowerCase()])
    return succeeded(this, written ? "" : "I/O error")
  }

  writeln(...texts) { return this.write(texts.join(""), "\n") }

  seek(position, mode) {
    const { open } = this[inner]
    if (open === null) return false
    const from = [0, open.tell(), this.length][mode === undefined ? 0 : mode]
    return open.seek(from + Number(position))
  }

  tell() {
    const { open } = this[inner]
    return open === null ? -1 : open.tell()
  }

  copy(target) {
    requireWriting(files.writingDenied)
    return succeeded(this, files.copy(this[inner].path, files.absolute(String(target))))
  }

  openDlg(prompt, filter, several) { return askToOpen(prompt, filter, several, this[inner].path) }
  saveDlg(prompt, filter) { return askToSave(prompt, filter, this[inner].path) }
}

nameClass("File", FileObject)

// A File for a path of the host, which is no text of a script: a "%" in it is a "%".
export function fileAt(path) { return new FileObject(files.encode(path)) }

function textOf(value) { return value === undefined || value === null ? "" : String(value) }

function startingAt(path) {
  if (files.kind(path) === isFolder) return files.onDisk(path)
  return files.kind(files.parent(path)) === isFolder ? files.onDisk(files.parent(path)) : ""
}

function askToOpen(prompt, filter, several, start) {
  const chosen = ui.chooseFiles(textOf(prompt), start === null ? "" : startingAt(start), dialogFilters(filter), several === true)
  if (chosen.length === 0) return null
  const all = []
  for (let i = 0; i < chosen.length; ++i) all.push(fileAt(files.fromDisk(chosen[i])))
  return several === true ? all : all[0]
}

function askToSave(prompt, filter, start) {
  const chosen = ui.chooseNewFile(textOf(prompt), start === null ? "" : startingAt(start), dialogFilters(filter))
  return chosen === "" ? null : fileAt(files.fromDisk(chosen))
}

const statics = {
  get fs() { return files.system },
  decode(text) { return files.decode(String(text)) },
  encode(text) { return files.encode(String(text)) },
  isEncodingAvailable(name) { return files.knowsEncoding(String(name)) },
  openDialog(prompt, filter, several) { return askToOpen(prompt, filter, several, null) },
  saveDialog(prompt, filter) { return askToSave(prompt, filter, null) },
}

export const File = hostFunction("File", FileObject, statics,
  (values) => new FileObject(values[0]),
  (values) => {
    const file = new FileObject(values[0])
    return files.kind(file[inner].path) === isFolder ? makeFolder(values[0]) : file
  })
