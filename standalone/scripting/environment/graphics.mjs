// How a script draws a control: only while it is asked to, in onDraw. Anything else is noted.

import { inner, hostObject, TypeErrorType } from "./strict.mjs"
import { complain } from "./host.mjs"
import { imageFrom, nativeOf } from "./script_image.mjs"
import { liveValue } from "./layout_values.mjs"

const BrushType = { SOLID_COLOR: 0, THEME_COLOR: 1 }
const PenType = { SOLID_COLOR: 0, THEME_COLOR: 1 }

function colourOf(tool) { return tool === undefined || tool === null ? [] : tool.color }

function newTool(kind, type, color, lineWidth) {
  if (typeof color !== "object" || color.length !== 4) throw new TypeErrorType(`${kind}: expected [red, green, blue, alpha]`)
  return hostObject(kind, { type, color, lineWidth, theme: "" })
}

export function graphicsOf(element) {
  const state = element[inner]
  if (state.graphics === null) state.graphics = newGraphics(element)
  return state.graphics
}

function newGraphics(element) {
  const { native } = element[inner]
  let rectangles = []
  const note = (name, done) => { if (!done) complain(`graphics.${name} outside of onDraw`) }
  const graphics = {
    BrushType, PenType,
    font: null, foregroundColor: null, backgroundColor: null, disabledForegroundColor: null, disabledBackgroundColor: null,
    currentPath: null, currentPoint: null,
    drawOSControl() { note("drawOSControl", native.drawControl()) },
    drawFocusRing() { note("drawFocusRing", native.isDrawnByScript) },
    // In the picture's own size without a width and height.
    drawImage(source, left, top, width, height) {
      const image = imageFrom(source)
      if (image === undefined) throw new TypeErrorType("graphics.drawImage: there is no picture")
      const size = [width === undefined ? image.size.width : width, height === undefined ? image.size.height : height]
      note("drawImage", native.drawImage(nativeOf(image), left, top, size[0], size[1]))
    },
    drawString(text, pen, x, y) { note("drawString", native.drawString(String(text), colourOf(pen), x, y)) },
    newPath() {
      rectangles = []
      return null
    },
    rectPath(left, top, width, height) {
      rectangles.push(left, top, width, height)
      return null
    },
    fillPath(brush) { note("fillPath", native.drawRectangles(colourOf(brush), 0, rectangles)) },
    strokePath(pen) { note("strokePath", native.drawRectangles(colourOf(pen), pen.lineWidth, rectangles)) },
    newBrush(type, color) { return newTool("ScriptUIBrush", type, color, 0) },
    newPen(type, color, width) { return newTool("ScriptUIPen", type, color, width) },
    measureString(text) { return liveValue("Dimension", () => native.measureString(String(text)), () => {}) },
  }
  return hostObject("ScriptUIGraphics", graphics)
}
