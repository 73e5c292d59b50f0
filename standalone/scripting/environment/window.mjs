// Window: a modal dialog.

import { inner, hostFunction, nameClass, TypeErrorType } from "./strict.mjs"
import { addHandlers, dispatch, fire } from "./events.mjs"
import { receive, requireProperties } from "./element.mjs"
import { Container } from "./container.mjs"
import { Button } from "./controls.mjs"
import { rules, ui } from "./host.mjs"
import { alert, confirm, prompt } from "./message_boxes.mjs"

const properties =
  "resizeable closeButton maximizeButton minimizeButton independent borderless su1PanelCoordinates"
const accepted = 1
const cancelled = 2

class WindowObject extends Container {
  constructor(title, given) {
    super(ui.newWindow(), null, requireProperties("Window", given, properties), { orientation: "column", margins: [15, 15, 15, 15] })
    const state = this[inner]
    state.defaultElement = undefined
    state.cancelElement = undefined
    state.wasShown = false
    state.isOpen = false
    state.isShowing = false
    state.answer = 0
    this.text = title === undefined || title === null ? "" : title
  }

  get text() { return this[inner].native.text }
  set text(text) { this[inner].native.text = String(text) }
  get visible() { return this[inner].isOpen }
  set visible(value) { if (value) this.show(); else this.hide() }
  get active() { return this[inner].isOpen }
  set active(value) {}
  get opacity() { return 1 }
  set opacity(value) {}
  get defaultElement() { return this[inner].defaultElement === undefined ? null : this[inner].defaultElement }
  set defaultElement(element) { this[inner].defaultElement = element }
  get cancelElement() { return this[inner].cancelElement === undefined ? null : this[inner].cancelElement }
  set cancelElement(element) { this[inner].cancelElement = element }
  get frameLocation() { return this.location }
  get frameSize() { return this.size }
  get frameBounds() { return this.bounds }

  center() {
    if (this.size === undefined) this.layout.layout(true)
    this[inner].native.center()
  }
  update() { this[inner].native.redraw() }

  // Returns when the dialog is closed, with what close() was given.
  show() {
    const state = this[inner]
    if (state.isOpen) return 0
    state.answer = 0
    state.isOpen = true
    if (!state.wasShown) {
      findUsualButtons(this)
      state.native.layOut(true)
    }
    state.wasShown = true
    state.isShowing = true
    dispatch(this, "show")
    fire(this, "onShow")
    state.isShowing = false
    if (state.isOpen) state.native.run()
    state.isOpen = false
    return state.answer
  }

  hide() { finish(this, 0) }

  close(answer) {
    const state = this[inner]
    if (!state.isOpen || (state.isShowing && rules.closeInOnShowIgnored)) return
    if (fire(this, "onClose") === false) return
    dispatch(this, "close")
    finish(this, answer === undefined ? 0 : answer)
  }

  notify(event) { if (event !== undefined) fire(this, String(event)) }

  [receive](event, detail) {
    if (event === "titleclose") this.close(cancelled)
    if (event === "escape") pressEscape(this)
    if (event === "enter") press(this, this[inner].defaultElement, accepted)
    return super[receive](event, detail)
  }
}

function finish(window, answer) {
  const state = window[inner]
  if (!state.isOpen) return
  state.answer = answer
  state.isOpen = false
  state.native.finish()
}

function pressEscape(window) {
  if (window[inner].cancelElement) press(window, window[inner].cancelElement, cancelled)
  else window.close(cancelled)
}

// A button that does nothing by itself closes the dialog.
function press(window, button, answer) {
  if (!button || !button.enabled || !button.visible) return
  button[inner].closesWith = answer
  button.notify()
}

// Without a word from the script these are the buttons named "ok" and "cancel".
function findUsualButtons(window) {
  const state = window[inner]
  forEachButton(window, (button) => {
    const { name } = button[inner].properties
    const word = String(name === undefined ? button.text : name).toLowerCase()
    if (state.defaultElement === undefined && word === "ok") state.defaultElement = button
    if (state.cancelElement === undefined && word === "cancel") state.cancelElement = button
  })
  forEachButton(window, (button) => {
    if (button === state.defaultElement) button[inner].native.setDefault(true)
    if (button === state.defaultElement) button[inner].closesWith = accepted
    if (button === state.cancelElement) button[inner].closesWith = cancelled
  })
}

function forEachButton(container, use) {
  for (const child of container[inner].children) {
    if (child instanceof Button) use(child)
    if (child[inner].children !== undefined) forEachButton(child, use)
  }
}

addHandlers(WindowObject, ["onShow", "onClose", "onMove", "onMoving", "onResize", "onResizing", "onDraw", "onShortcutKey"])
nameClass("Window", WindowObject)

function newWindow([type, title, bounds, given]) {
  if (type !== "dialog") throw new TypeErrorType(`Window: "${type}" is no type of window here; expected "dialog"`)
  const window = new WindowObject(title, given)
  if (bounds !== undefined && bounds !== null) window.bounds = bounds
  return window
}

const statics = { alert, confirm, prompt }

export const Window = hostFunction("Window", WindowObject, statics, newWindow, newWindow)
