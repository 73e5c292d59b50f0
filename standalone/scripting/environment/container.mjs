// What holds other elements and lays them out: windows, panels and groups.

import { inner, hostObject, nameClass, TypeErrorType } from "./strict.mjs"
import { Element, requireProperties } from "./element.mjs"
import { addHandlers } from "./events.mjs"
import { alignmentParts } from "./alignment.mjs"
import { liveValue, numbersOf } from "./layout_values.mjs"
import { newControl } from "./controls.mjs"
import { newDropDownList } from "./drop_down_list.mjs"
import { newIconButton } from "./icon_button.mjs"

const orientations = " row column stack "

export class Container extends Element {
  constructor(native, parent, properties, defaults) {
    super(native, parent, properties)
    const state = this[inner]
    state.children = []
    state.orientation = defaults.orientation
    state.alignChildren = defaults.orientation === "row" ? ["left", "center"] : ["center", "top"]
    state.margins = defaults.margins
    state.spacing = 10
    tellAlignChildren(this)
  }

  get children() {
    const { children } = this[inner]
    const list = { length: children.length }
    for (let i = 0; i < children.length; ++i) {
      const { name } = children[i][inner].properties
      list[i] = children[i]
      if (name !== undefined) list[name] = children[i]
    }
    return hostObject("children", list)
  }

  get orientation() { return this[inner].orientation }
  set orientation(value) {
    if (orientations.indexOf(` ${value} `) < 0) throw new TypeErrorType(`orientation: "${value}" is none; expected row, column or stack`)
    this[inner].orientation = value
    this[inner].native.setOrientation(value)
    if (!this[inner].hasOwnAlignment) {
      this[inner].alignChildren = value === "row" ? ["left", "center"] : ["center", value === "column" ? "top" : "center"]
    }
    tellAlignChildren(this)
  }

  get alignChildren() { return this[inner].alignChildren }
  set alignChildren(value) {
    alignmentParts(value, "alignChildren", this.orientation)
    this[inner].alignChildren = value
    this[inner].hasOwnAlignment = true
    tellAlignChildren(this)
  }

  get margins() {
    return liveValue("Margins", () => this[inner].margins.slice(0), (all) => { this.margins = all })
  }
  set margins(value) {
    this[inner].margins = numbersOf("Margins", value, "margins")
    this[inner].native.setMargins(...this[inner].margins)
  }

  get spacing() { return this[inner].spacing }
  set spacing(value) {
    if (isNaN(Number(value))) throw new TypeErrorType(`spacing: "${value}" is no number`)
    this[inner].spacing = Number(value)
    this[inner].native.setSpacing(Number(value))
  }

  get layout() {
    const { native } = this[inner]
    return hostObject("AutoLayoutManager", {
      layout(again) { native.layOut(again === true) },
      resize() { native.layOut(false) },
    })
  }

  add(kind, bounds, ...rest) {
    const element = newElement(this, String(kind), rest)
    if (bounds !== undefined && bounds !== null) element.bounds = bounds
    this[inner].children.push(element)
    const { name } = element[inner].properties
    if (name !== undefined) this[name] = element
    return element
  }

  remove(which) {
    const { children, native } = this[inner]
    const child = typeof which === "object" ? which : this.children[which]
    native.removeChild(child[inner].native)
    children.splice(placeIn(this, child), 1)
  }

  findElement(name) {
    for (const child of this[inner].children) {
      if (child[inner].properties.name === name) return child
      const below = child[inner].children === undefined ? null : child.findElement(name)
      if (below !== null) return below
    }
    return null
  }
}

class Panel extends Container {
  constructor(native, parent, properties, text) {
    super(native, parent, properties, { orientation: "column", margins: [10, 10, 10, 10] })
    this.text = text === undefined || text === null ? "" : text
  }

  get text() { return this[inner].native.text }
  set text(text) { this[inner].native.text = String(text) }
}

class Group extends Container {
  constructor(native, parent, properties) {
    super(native, parent, properties, { orientation: "row", margins: [0, 0, 0, 0] })
  }
}

addHandlers(Panel, ["onDraw"])
addHandlers(Group, ["onDraw"])
nameClass("Container", Container)
nameClass("Panel", Panel)
nameClass("Group", Group)

function placeIn(container, child) {
  const { children } = container[inner]
  for (let i = 0; i < children.length; ++i) {
    if (children[i] === child) return i
  }
  return -1
}

// What a single word leaves open keeps the usual place of its direction.
function tellAlignChildren(container) {
  const { native, orientation, alignChildren } = container[inner]
  const usual = orientation === "row" ? ["left", "center"] : ["center", orientation === "column" ? "top" : "center"]
  const parts = alignmentParts(alignChildren, "alignChildren", orientation)
  const others = alignmentParts(usual, "alignChildren", orientation)
  native.setAlignChildren(parts[0] < 0 ? others[0] : parts[0], parts[1] < 0 ? others[1] : parts[1])
}

function nativeFor(container, kind, options) {
  const native = container[inner].native.add(kind, options === undefined || options === null ? {} : options)
  if (native === null) throw new TypeErrorType(`add: "${kind}" is no type of element here`)
  return native
}

// The arguments after the bounds differ: a group has no text.
function newElement(container, kind, [first, second]) {
  if (kind === "group") {
    const properties = requireProperties(kind, first, "")
    return new Group(nativeFor(container, kind, properties), container, properties)
  }
  const native = nativeFor(container, kind, second)
  if (kind === "panel") return new Panel(native, container, requireProperties(kind, second, "borderStyle su1PanelCoordinates"), first)
  if (kind === "dropdownlist") return newDropDownList(native, container, first, second)
  if (kind === "iconbutton") return newIconButton(native, container, first, second)
  return newControl(kind, native, container, first, second)
}
