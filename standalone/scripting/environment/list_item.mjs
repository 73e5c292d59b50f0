// An item of a drop-down list. Scripts keep own properties in it, such as the folder that it stands for.

import { inner, hostFunction, nameClass, seal, TypeErrorType } from "./strict.mjs"

class ListItemObject {
  constructor(list, text) {
    this[inner] = { list, text: String(text), image: null, enabled: true }
  }

  // Undefined once the item is removed.
  get index() {
    const { list } = this[inner]
    const place = list === null ? -1 : placeOf(list[inner].items, this)
    return place < 0 ? undefined : place
  }
  get text() { return this[inner].text }
  set text(text) {
    const { list } = this[inner]
    this[inner].text = String(text)
    if (list !== null) list[inner].native.setItemText(this.index, this[inner].text)
  }
  get type() { return "item" }
  get parent() { return this[inner].list }
  get enabled() { return this[inner].enabled }
  set enabled(value) { this[inner].enabled = Boolean(value) }
  get image() { return this[inner].image }
  set image(image) { this[inner].image = image }
  get checked() { return false }
  get selected() { return this[inner].list !== null && this[inner].list.selection === this }
  set selected(value) { if (value && this[inner].list !== null) this[inner].list.selection = this }

  valueOf() { return this.index }
  toString() { return this[inner].text }
}

seal(ListItemObject, true)
nameClass("ListItem", ListItemObject)

export function placeOf(items, item) {
  for (let i = 0; i < items.length; ++i) {
    if (items[i] === item) return i
  }
  return -1
}

export function newItem(list, text) { return new ListItemObject(list, text) }

function refuse() { throw new TypeErrorType("ListItem is not made by scripts: lists add their items") }

export const ListItem = hostFunction("ListItem", ListItemObject, {}, refuse, refuse)
