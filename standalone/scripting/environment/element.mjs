// What windows, containers and controls have in common.

import { hostObject, inner, seal, TypeErrorType } from "./strict.mjs"
import { addHandlers, addListener, dispatch, fire, removeListener } from "./events.mjs"
import { alignmentParts } from "./alignment.mjs"
import { boundsValue, liveValue, numbersOf } from "./layout_values.mjs"
import { graphicsOf } from "./graphics.mjs"

const mouseEvents = " mousedown mouseup click "

// What the native element tells of; the answer to "draw" says whether the script drew.
export const receive = Symbol("receive")
// What a click of a person, or of notify() without a name, does.
export const activate = Symbol("activate")

export class Element {
  constructor(native, parent, properties) {
    this[inner] = {
      native, parent, properties,
      handlers: {}, listeners: [], alignment: undefined, graphics: null,
      preferredSize: [-1, -1], minimumSize: [0, 0], maximumSize: [1 << 20, 1 << 20],
    }
    if (properties.name !== undefined) native.setName(String(properties.name))
    native.listen((event, detail) => this[receive](event, detail))
  }

  get type() { return this[inner].native.kind }
  get parent() { return this[inner].parent }
  get window() { return this[inner].parent === null ? this : this[inner].parent.window }
  get properties() { return this[inner].properties }

  get enabled() { return this[inner].native.enabled }
  set enabled(value) { this[inner].native.enabled = Boolean(value) }
  get visible() { return this[inner].native.visible }
  set visible(value) { this[inner].native.visible = Boolean(value) }
  get helpTip() { return this[inner].native.helpTip }
  set helpTip(text) { this[inner].native.helpTip = String(text) }
  get active() { return this[inner].native.focused }
  set active(value) { if (value) this[inner].native.focus() }
  get graphics() { return graphicsOf(this) }

  get alignment() { return this[inner].alignment }
  set alignment(value) {
    const { native, parent } = this[inner]
    const parts = alignmentParts(value, "alignment", parent === null ? "column" : parent.orientation)
    this[inner].alignment = value
    native.setAlignment(parts[0], parts[1])
  }

  get preferredSize() { return sizeProperty(this, "preferredSize") }
  set preferredSize(value) { setSizeProperty(this, "preferredSize", value) }
  get minimumSize() { return sizeProperty(this, "minimumSize") }
  set minimumSize(value) { setSizeProperty(this, "minimumSize", value) }
  get maximumSize() { return sizeProperty(this, "maximumSize") }
  set maximumSize(value) { setSizeProperty(this, "maximumSize", value) }

  // Undefined until the layout has run.
  get size() {
    const size = () => this[inner].native.bounds().slice(2)
    if (size().length < 2) return undefined
    return liveValue("Dimension", size, (all) => { this.size = all })
  }
  set size(value) { this[inner].native.setSize(...numbersOf("Dimension", value, "size")) }

  get location() {
    const place = () => this[inner].native.bounds().slice(0, 2)
    if (place().length < 2) return undefined
    return liveValue("Point", place, (all) => { this.location = all })
  }
  set location(value) { this[inner].native.setLocation(...numbersOf("Point", value, "location")) }

  get bounds() {
    const bounds = () => edgesOf(this[inner].native.bounds())
    if (bounds().length < 4) return undefined
    return boundsValue(bounds, (all) => { this.bounds = all })
  }
  set bounds(value) {
    const [left, top, right, bottom] = numbersOf("Margins", value, "bounds")
    this[inner].native.setSize(right - left, bottom - top)
    this[inner].native.setLocation(left, top)
  }

  show() { this.visible = true }
  hide() { this.visible = false }

  addEventListener(name, listener) { return addListener(this, String(name), listener) }
  removeEventListener(name, listener) { return removeListener(this, String(name), listener) }
  dispatchEvent(event) { return dispatch(this, event.type) }

  // "onDraw" asks for a new picture; all else is done as if a person had.
  notify(event) {
    if (event === undefined) this[activate]()
    else if (event === "onDraw") this[inner].native.redraw()
    else fire(this, String(event))
  }

  [activate]() { fire(this, "onClick") }

  [receive](event) {
    if (mouseEvents.indexOf(` ${event} `) >= 0) dispatch(this, event)
    if (event === "focus" || event === "blur") {
      dispatch(this, event)
      fire(this, event === "focus" ? "onActivate" : "onDeactivate")
    }
    if (event === "activate") this[activate]()
    return event === "draw" ? drawByScript(this) : undefined
  }

  toString() { return `[object ${this.type}]` }
}

addHandlers(Element, ["onActivate", "onDeactivate"])
seal(Element, true)

function sizeProperty(element, name) {
  return liveValue("Dimension", () => element[inner][name].slice(0), (all) => { element[name] = all })
}

function setSizeProperty(element, name, value) {
  const parts = numbersOf("Dimension", value, name)
  element[inner][name] = parts
  element[inner].native[`set${name.charAt(0).toUpperCase()}${name.substring(1)}`](...parts)
}

function drawByScript(element) {
  const { native, handlers } = element[inner]
  if (typeof handlers.onDraw !== "function") return false
  fire(element, "onDraw", hostObject("DrawState", {
    mouseOver: native.hovered === true, leftButtonPressed: native.pressed === true, middleButtonPressed: false,
    rightButtonPressed: false, hasFocus: native.focused, shiftKeyPressed: false, ctrlKeyPressed: false,
    altKeyPressed: false, metaKeyPressed: false, capsLockKeyPressed: false, numLockKeyPressed: false,
  }))
  return true
}

function edgesOf(place) {
  return place.length < 4 ? [] : [place[0], place[1], place[0] + place[2], place[1] + place[3]]
}

export function requireProperties(kind, given, known) {
  if (given === undefined || given === null) return {}
  for (const key in given) {
    if (` ${known} name `.indexOf(` ${key} `) < 0) throw new TypeErrorType(`${kind}: "${key}" is no creation property`)
  }
  return given
}
