// A button with a picture in its own size; a script that wants it otherwise draws it itself.

import { inner, nameClass } from "./strict.mjs"
import { Element, requireProperties } from "./element.mjs"
import { addHandlers } from "./events.mjs"
import { imageFrom, nativeOf } from "./script_image.mjs"

export class IconButton extends Element {
  constructor(native, parent, properties, image) {
    super(native, parent, properties)
    this[inner].image = undefined
    this[inner].title = ""
    this.image = image
  }

  get image() { return this[inner].image }
  set image(source) {
    this[inner].image = imageFrom(source)
    this[inner].native.setImage(nativeOf(this[inner].image))
  }
  get icon() { return this.image }
  set icon(source) { this.image = source }
  get value() { return this[inner].native.value }
  set value(value) { this[inner].native.value = Boolean(value) }
  get title() { return this[inner].title }
  set title(text) { this[inner].title = String(text) }
}

addHandlers(IconButton, ["onClick", "onDraw"])
nameClass("IconButton", IconButton)

export function newIconButton(native, parent, image, properties) {
  return new IconButton(native, parent, requireProperties("iconbutton", properties, "style toggle"), image)
}
