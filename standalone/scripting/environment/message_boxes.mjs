// The boxes that tell or ask one thing.

import { ui } from "./host.mjs"

function textOf(value) { return value === undefined || value === null ? "" : String(value) }

export function alert(message, title, isError) { ui.alert(String(message), textOf(title), isError === true) }

export function confirm(message, noIsDefault, title) {
  return ui.confirm(String(message), textOf(title), noIsDefault === true)
}

export function prompt(message, preset, title) { return ui.prompt(String(message), textOf(preset), textOf(title)) }
