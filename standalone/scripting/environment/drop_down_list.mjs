// A list of which one item is shown and chosen.

import { inner, nameClass, TypeErrorType } from "./strict.mjs"
import { activate, Element, receive, requireProperties } from "./element.mjs"
import { addHandlers, dispatch, fire } from "./events.mjs"
import { ListItem, newItem, placeOf } from "./list_item.mjs"
import { rules } from "./host.mjs"

export class DropDownList extends Element {
  constructor(native, parent, properties, texts) {
    super(native, parent, properties)
    this[inner].items = []
    this[inner].selection = null
    this[inner].title = ""
    for (const text of texts) this.add("item", text)
  }

  get items() { return this[inner].items.slice(0) }
  get title() { return this[inner].title }
  set title(text) { this[inner].title = String(text) }
  get text() { return this[inner].selection === null ? "" : this[inner].selection.text }

  add(kind, text, index) {
    const { items, native } = this[inner]
    if (kind !== "item" && kind !== "separator") throw new TypeErrorType(`DropDownList.add: "${kind}" is no kind of item`)
    const item = newItem(this, kind === "separator" ? "-" : text)
    const place = index === undefined || index > items.length ? items.length : index
    items.splice(place, 0, item)
    native.insertItem(place, item.text)
    native.showItem(this[inner].selection === null ? -1 : this[inner].selection.index)
    return item
  }

  remove(which) {
    const item = itemFor(this, which)
    if (item === null) return
    const { items, native } = this[inner]
    const wasChosen = item === this[inner].selection
    native.removeItem(item.index)
    items.splice(item.index, 1)
    item[inner].list = null
    if (wasChosen) choose(this, null)
    else native.showItem(this[inner].selection === null ? -1 : this[inner].selection.index)
  }

  removeAll() {
    const { items, native } = this[inner]
    for (let i = items.length - 1; i >= 0; --i) {
      native.removeItem(i)
      items[i][inner].list = null
    }
    items.length = 0
    choose(this, null)
  }

  find(text) {
    for (const item of this[inner].items) {
      if (item.text === String(text)) return item
    }
    return null
  }

  get selection() { return this[inner].selection }
  // An index out of range is ignored, as is a separator.
  set selection(which) {
    if (which === null || which === undefined) return choose(this, null)
    const item = itemFor(this, which)
    if (item !== null && item.text !== "-") choose(this, item)
  }

  [activate]() { fire(this, "onChange") }

  [receive](event, detail) {
    if (event === "choose") this.selection = detail
    return super[receive](event, detail)
  }
}

function itemFor(list, which) {
  const { items } = list[inner]
  if (which instanceof ListItem) return placeOf(items, which) < 0 ? null : which
  if (typeof which === "number") return which >= 0 && which < items.length ? items[which] : null
  return typeof which === "string" ? list.find(which) : null
}

// The handler hears of every change, a script's too, and not of the same item once more.
function choose(list, item) {
  const state = list[inner]
  state.native.showItem(item === null ? -1 : item.index)
  if (state.selection === item) return
  state.selection = item
  if (!rules.changeEventsBeforeShow && !list.window[inner].wasShown) return
  dispatch(list, "change")
  fire(list, "onChange")
}

addHandlers(DropDownList, ["onChange", "onDraw"])
nameClass("DropDownList", DropDownList)

// add("dropdownlist", bounds, texts, properties), the texts also as the property "items"
export function newDropDownList(native, parent, texts, properties) {
  const known = requireProperties("dropdownlist", properties, "items")
  const given = texts === undefined || texts === null ? known.items : texts
  return new DropDownList(native, parent, known, given === undefined ? [] : given)
}
