// Sizes, places and margins: each part has a name and an index, and writing a part changes the element.

import { defineProperty, hostObject, TypeErrorType } from "./strict.mjs"

const names = {
  Dimension: ["width", "height"],
  Point: ["x", "y"],
  Margins: ["left", "top", "right", "bottom"],
}

function isList(value) { return typeof value === "object" && value !== null && typeof value.length === "number" }

function hasPart(value, name) {
  try {
    return typeof value[name] === "number"
  } catch (missing) {
    return false
  }
}

// The numbers of what a script assigns: a list, a text of numbers, an object with the names, or one number for all.
export function numbersOf(kind, value, property) {
  const parts = []
  const expected = names[kind]
  const list = typeof value === "string" ? value.split(",") : value
  for (let i = 0; i < expected.length; ++i) {
    if (typeof value === "number") parts.push(value)
    else if (isList(list)) parts.push(Number(list[i]))
    else if (typeof value === "object" && value !== null && hasPart(value, expected[i])) parts.push(value[expected[i]])
  }
  for (const part of parts) {
    if (isNaN(part)) parts.length = 0
  }
  if (parts.length === expected.length && !(isList(list) && list.length !== expected.length)) return parts
  throw new TypeErrorType(`${property}: expected [${expected.join(", ")}]`)
}

// An object whose parts are read by `read()`, a list, and changed by `write(list)`.
export function liveValue(kind, read, write) {
  const parts = { toString() { return read().join(",") } }
  for (let i = 0; i < names[kind].length; ++i) {
    const part = {
      get() { return read()[i] },
      set(value) {
        const all = read()
        all[i] = Number(value)
        write(all)
      },
      enumerable: true,
      configurable: true,
    }
    defineProperty(parts, names[kind][i], part)
    defineProperty(parts, String(i), part)
  }
  parts.length = names[kind].length
  return hostObject(kind, parts)
}

// An element's rectangle: [left, top, right, bottom] by index, and all names that the host knows.
export function boundsValue(read, write) {
  const [left, top, right, bottom] = [0, 1, 2, 3]
  const parts = { toString() { return read().join(",") }, length: 4 }
  const add = (name, get, set) => defineProperty(parts, name, { get, set, enumerable: true, configurable: true })
  const edge = (index) => [() => read()[index], (value) => {
    const all = read()
    all[index] = Number(value)
    write(all)
  }]
  const edges = ["left", "top", "right", "bottom"]
  for (let i = 0; i < 4; ++i) {
    const [get, set] = edge(i)
    add(edges[i], get, set)
    add(String(i), get, set)
  }
  add("x", ...edge(left))
  add("y", ...edge(top))
  add("width", () => read()[right] - read()[left], (value) => edge(right)[1](read()[left] + Number(value)))
  add("height", () => read()[bottom] - read()[top], (value) => edge(bottom)[1](read()[top] + Number(value)))
  return hostObject("Bounds", parts)
}
