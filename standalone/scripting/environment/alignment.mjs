// The words and numbers by which scripts align elements.

import { TypeErrorType } from "./strict.mjs"

export const Alignment = { TOP: 1, BOTTOM: 2, LEFT: 3, RIGHT: 4, FILL: 5, CENTER: 6 }

const near = 0, center = 1, far = 2, fill = 3, notGiven = -1

const horizontal = { left: near, center, right: far, fill, 3: near, 4: far, 5: fill, 6: center }
const vertical = { top: near, center, bottom: far, fill, 1: near, 2: far, 5: fill, 6: center }

function lookUp(table, value) {
  const key = String(value).toLowerCase()
  return table.hasOwnProperty(key) ? table[key] : notGiven
}

// [along x, along y] for the layout. One word alone means the direction across that in which the container lays out, where
// "left" and the like cannot mean the other.
export function alignmentParts(value, property, orientation) {
  if (value === undefined || value === null) return [notGiven, notGiven]
  const isPair = typeof value === "object" && value.length === 2
  const parts = isPair
    ? [lookUp(horizontal, value[0]), lookUp(vertical, value[1])]
    : [lookUp(horizontal, value), lookUp(vertical, value)]
  const isKnown = isPair ? parts[0] !== notGiven && parts[1] !== notGiven : parts[0] !== notGiven || parts[1] !== notGiven
  if (!isKnown) throw new TypeErrorType(`${property}: "${value}" is no alignment`)
  if (!isPair && parts[0] !== notGiven && parts[1] !== notGiven) parts[orientation === "row" ? 0 : 1] = notGiven
  return parts
}
