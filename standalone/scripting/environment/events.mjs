// What a script is told of a window or control: by its handlers, such as onClick, and by the listeners that it has added.

import { inner, hostObject } from "./strict.mjs"
import { complain } from "./host.mjs"

const kinds = " click mousedown mouseup mouseover mouseout mousemove keydown keyup focus blur change changing show close "

// An error in a handler goes no further: the dialog stays open, and the error is noted.
export function callHandler(element, handler, values) {
  if (typeof handler !== "function") return undefined
  try {
    return handler.apply(element, values)
  } catch (error) {
    complain(describeError(error))
    return undefined
  }
}

export function describeError(error) {
  if (typeof error !== "object" || error === null || error.lineNumber === undefined) return String(error)
  const place = typeof error.fileName === "string" && error.fileName.indexOf("script") >= 0 ? ` (line ${error.lineNumber})` : ""
  return `${error}${place}`
}

// The element's own handler of that name, if the script has set one.
export function fire(element, name, ...values) {
  return callHandler(element, element[inner].handlers[name], values)
}

export function addListener(element, name, listener) {
  if (kinds.indexOf(` ${name} `) < 0 || typeof listener !== "function") return false
  element[inner].listeners.push({ name, listener })
  return true
}

export function removeListener(element, name, listener) {
  const { listeners } = element[inner]
  for (let i = listeners.length - 1; i >= 0; --i) {
    if (listeners[i].name === name && listeners[i].listener === listener) listeners.splice(i, 1)
  }
  return true
}

// Calls the listeners of the element, then those of what it lies in, until one stops the event.
export function dispatch(target, name) {
  let stopped = false
  let prevented = false
  for (let element = target; element !== null && !stopped; element = element[inner].parent) {
    const event = hostObject("Event", {
      type: name, target, currentTarget: element, detail: 1, button: 0, eventPhase: element === target ? 2 : 3,
      clientX: 0, clientY: 0, screenX: 0, screenY: 0, shiftKey: false, ctrlKey: false, altKey: false, metaKey: false,
      bubbles: true, cancelable: true, timeStamp: new Date(), keyName: "", keyIdentifier: "",
      preventDefault() { prevented = true },
      stopPropagation() { stopped = true },
    })
    for (const entry of element[inner].listeners.slice(0)) {
      if (entry.name === name) callHandler(element, entry.listener, [event])
    }
  }
  return !prevented
}

// Gives a class the properties in which scripts set its handlers. Nothing else that looks like one is ever called.
export function addHandlers(Class, names) {
  for (const name of names) {
    Object.defineProperty(Class.prototype, name, {
      get() { return this[inner].handlers.hasOwnProperty(name) ? this[inner].handlers[name] : undefined },
      set(handler) { this[inner].handlers[name] = handler },
      enumerable: true,
      configurable: true,
    })
  }
}
