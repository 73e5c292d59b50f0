// What File and Folder share: the names of one path, and what can be done with it on disk.

import { inner, ErrorType, nameClass, seal } from "./strict.mjs"
import { files, ui } from "./host.mjs"

const nothing = 0

// Thrown, not returned: the host's preference against writing is no ordinary failure.
export function requireWriting(isDenied) {
  if (!isDenied) return
  throw new ErrorType(
    "Permission denied (is Preferences > Scripting & Expressions > Allow Scripts to Write Files and Access Network enabled?)")
}

export class PathEntry {
  constructor(text) {
    const given = text === undefined || text === null ? "" : String(text)
    this[inner] = { path: given === "" ? files.temporary() : files.absolute(given), error: "" }
  }

  get fsName() { return files.fsName(this[inner].path) }
  get fullName() { return files.fullName(this[inner].path) }
  get absoluteURI() { return files.absoluteUri(this[inner].path) }
  get relativeURI() { return files.relativeUri(this[inner].path) }
  get name() { return files.encode(files.lastName(this[inner].path)) }
  get displayName() { return files.lastName(this[inner].path) }
  get localizedName() { return this.displayName }
  get path() { return files.absoluteUri(files.parent(this[inner].path)) }
  get alias() { return false }
  get created() { return new Date(files.created(this[inner].path)) }
  get modified() { return new Date(files.modified(this[inner].path)) }
  get error() { return this[inner].error }
  set error(text) { this[inner].error = String(text) }

  getRelativeURI(base) {
    if (base === undefined) return this.relativeURI
    const before = files.current
    files.current = files.absolute(String(base))
    const uri = this.relativeURI
    files.current = before
    return uri
  }

  changePath(text) {
    this[inner].path = files.absolute(String(text))
    return true
  }

  remove() {
    requireWriting(files.writingDenied)
    return succeeded(this, files.remove(this[inner].path))
  }

  rename(name) {
    requireWriting(files.writingDenied)
    const path = this[inner].path
    const done = succeeded(this, files.rename(path, files.decode(String(name))))
    if (done) this[inner].path = files.absolute(files.encode(`${files.parent(path)}/${files.decode(String(name))}`))
    return done
  }

  execute() {
    if (files.kind(this[inner].path) === nothing) return succeeded(this, "File or folder does not exist")
    return ui.execute(files.onDisk(this[inner].path))
  }

  resolve() { return null }

  toString() { return this.absoluteURI }
}

seal(PathEntry, false)
nameClass("File", PathEntry)

// Notes what went wrong, empty for nothing.
export function succeeded(entry, error) {
  entry[inner].error = error
  return error === ""
}
