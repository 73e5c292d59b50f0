// What the scripting host offers the modules in here, for them alone: it is gone from the global object when scripts run.

const native = nativeHost

export const files = native.files
export const ui = native.ui
// Notes what went wrong in a script where the host goes on.
export function complain(text) { native.complain(text) }
export function sleep(milliseconds) { native.sleep(milliseconds) }
export function environmentVariable(name) { return native.environmentVariable(name) }
export function print(text) { native.print(text) }
export const rules = native.rules
