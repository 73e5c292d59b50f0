// The controls that hold one text or tick.

import { inner, nameClass } from "./strict.mjs"
import { activate, Element, receive, requireProperties } from "./element.mjs"
import { addHandlers, dispatch, fire } from "./events.mjs"

class TextElement extends Element {
  constructor(native, parent, properties, text) {
    super(native, parent, properties)
    this.text = text === undefined || text === null ? "" : text
  }

  get text() { return this[inner].native.text }
  set text(text) { this[inner].native.text = String(text) }
}

// It has no onClick: one that a script sets is a property like any other. Its listeners hear of clicks.
export class StaticText extends TextElement {
  get justify() { return this[inner].justify === undefined ? "left" : this[inner].justify }
  set justify(side) {
    this[inner].justify = String(side)
    this[inner].native.setJustify(String(side))
  }
}

// As the default or cancel button of a window it closes it, unless the script has something else in mind.
export class Button extends TextElement {
  [activate]() {
    const { closesWith } = this[inner]
    if (typeof this.onClick === "function" || closesWith === undefined) fire(this, "onClick")
    else this.window.close(closesWith)
  }
}

export class Checkbox extends TextElement {
  get value() { return this[inner].native.value }
  set value(value) { this[inner].native.value = Boolean(value) }

  // The native control has toggled already; a notification toggles nothing.
  [receive](event, detail) {
    if (event === "activate") dispatch(this, "change")
    return super[receive](event, detail)
  }
}

export class EditText extends TextElement {
  get justify() { return "left" }

  [activate]() { fire(this, "onChange") }

  [receive](event, detail) {
    if (event === "edit") fire(this, "onChanging")
    if (event === "commit") fire(this, "onChange")
    return super[receive](event, detail)
  }
}

addHandlers(Button, ["onClick", "onDraw"])
addHandlers(Checkbox, ["onClick", "onDraw"])
addHandlers(EditText, ["onChange", "onChanging", "onEnterKey", "onDraw"])
addHandlers(StaticText, ["onDraw"])
nameClass("TextElement", TextElement)
nameClass("StaticText", StaticText)
nameClass("Button", Button)
nameClass("Checkbox", Checkbox)
nameClass("EditText", EditText)
nameClass("Element", Element)

// add(type, bounds, text, properties)
const controls = {
  statictext: { Class: StaticText, properties: "multiline scrolling truncate" },
  button: { Class: Button, properties: "" },
  checkbox: { Class: Checkbox, properties: "" },
  edittext: { Class: EditText, properties: "multiline readonly noecho enterKeySignalsOnChange borderless scrollable wantReturn" },
}

export function newControl(kind, native, parent, text, properties) {
  const { Class, properties: known } = controls[kind]
  return new Class(native, parent, requireProperties(kind, properties, known), text)
}
