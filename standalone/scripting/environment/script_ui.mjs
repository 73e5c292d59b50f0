// ScriptUI: what belongs to no single window.

import { hostObject } from "./strict.mjs"
import { Alignment } from "./alignment.mjs"
import { imageFrom } from "./script_image.mjs"
import { ui } from "./host.mjs"

function keyboardState() {
  const held = ui.heldKeys()
  const isHeld = (name) => ` ${held.join(" ")} `.indexOf(` ${name} `) >= 0
  return hostObject("Keyboard", {
    keyName: "", shiftKey: isHeld("shift"), altKey: isHeld("alt"), ctrlKey: isHeld("ctrl"), metaKey: false,
  })
}

export const ScriptUI = hostObject("ScriptUI", {
  version: "6.2.2",
  coreVersion: "5.1.37",
  frameworkName: "",
  Alignment: hostObject("Alignment", Alignment),
  FontStyle: hostObject("FontStyle", { REGULAR: 0, BOLD: 1, ITALIC: 2, BOLDITALIC: 3 }),
  get environment() { return hostObject("Environment", { get keyboardState() { return keyboardState() } }) },
  // The pictures for other states of a control are not shown here.
  newImage(normal) { return imageFrom(normal) },
  newFont(name, style, size) {
    return hostObject("ScriptUIFont", { name: String(name), family: String(name), style, size, substitute: "" })
  },
})
