// Pictures on controls: a file's, loaded at once, or refused.

import { inner, ErrorType, hostObject } from "./strict.mjs"
import { files, ui } from "./host.mjs"
import { liveValue } from "./layout_values.mjs"

const isFile = 1
const natives = Symbol("native picture")

// What a script assigns as a picture: a File, the text of a path, a picture, or nothing.
export function imageFrom(source) {
  if (source === undefined || source === null || source === "") return undefined
  if (typeof source === "object" && source[natives] !== undefined) return source
  const path = typeof source === "object" && source[inner] !== undefined && source[inner].path !== undefined
    ? source[inner].path
    : files.absolute(String(source))
  if (files.kind(path) !== isFile) throw new ErrorType("File or folder does not exist")
  const native = ui.loadImage(files.onDisk(path))
  if (native === null) throw new ErrorType("Invalid image data")
  const image = hostObject("ScriptUIImage", {
    format: native.format,
    name: files.lastName(path),
    pathname: files.fsName(path),
    get size() { return liveValue("Dimension", () => [native.width, native.height], () => {}) },
    toString() { return "[object ScriptUIImage]" },
  })
  image[natives] = native
  return image
}

export function nativeOf(image) { return image === undefined ? null : image[natives] }
