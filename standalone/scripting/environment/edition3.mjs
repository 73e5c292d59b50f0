// Takes from the engine's language what the third edition of ECMAScript, of 1999, does not have, so that a script that
// uses it fails here as in the host. Named is what stays: what later engines add is taken away too.

const { deleteProperty } = Reflect
const { getOwnPropertyNames } = Object

const shared = "length name prototype"

const kept = {
  Object: { own: shared, prototype: "constructor toString toLocaleString valueOf hasOwnProperty isPrototypeOf propertyIsEnumerable" },
  Function: { own: shared, prototype: "constructor toString apply call length name" },
  Array: {
    own: shared,
    prototype: "constructor toString toLocaleString concat join pop push reverse shift slice sort splice unshift length",
  },
  String: {
    own: `${shared} fromCharCode`,
    prototype:
      "constructor toString valueOf charAt charCodeAt concat indexOf lastIndexOf localeCompare match replace search slice " +
      "split substr substring toLowerCase toLocaleLowerCase toUpperCase toLocaleUpperCase length",
  },
  Boolean: { own: shared, prototype: "constructor toString valueOf" },
  Number: {
    own: `${shared} MAX_VALUE MIN_VALUE NaN NEGATIVE_INFINITY POSITIVE_INFINITY`,
    prototype: "constructor toString toLocaleString valueOf toFixed toExponential toPrecision",
  },
  Date: {
    own: `${shared} parse UTC`,
    prototype:
      "constructor toString toDateString toTimeString toLocaleString toLocaleDateString toLocaleTimeString valueOf getTime " +
      "getFullYear getUTCFullYear getMonth getUTCMonth getDate getUTCDate getDay getUTCDay getHours getUTCHours getMinutes " +
      "getUTCMinutes getSeconds getUTCSeconds getMilliseconds getUTCMilliseconds getTimezoneOffset getYear setYear setTime " +
      "setFullYear setUTCFullYear setMonth setUTCMonth setDate setUTCDate setHours setUTCHours setMinutes setUTCMinutes " +
      "setSeconds setUTCSeconds setMilliseconds setUTCMilliseconds toUTCString toGMTString",
  },
  RegExp: {
    own: shared,
    // "flags" and the like are accessors that the remaining methods need.
    prototype: "constructor exec test toString compile source global ignoreCase multiline lastIndex flags unicode sticky",
  },
  Error: { own: shared, prototype: "constructor name message toString" },
  Math: {
    own:
      "E LN10 LN2 LOG2E LOG10E PI SQRT1_2 SQRT2 abs acos asin atan atan2 ceil cos exp floor log max min pow random round sin " +
      "sqrt tan",
  },
}

const functions =
  "eval parseInt parseFloat isNaN isFinite decodeURI decodeURIComponent encodeURI encodeURIComponent escape unescape " +
  "undefined NaN Infinity EvalError RangeError ReferenceError SyntaxError TypeError URIError"

function removeOthers(object, names) {
  const stays = ` ${names} `
  for (const key of getOwnPropertyNames(object)) {
    // A few constants, such as Number.EPSILON, cannot be removed.
    if (stays.indexOf(` ${key} `) < 0) deleteProperty(object, key)
  }
}

// The host's own objects are set afterwards.
export function keepEdition3(global) {
  // The host's errors tell their line under this name.
  Object.defineProperty(Error.prototype, "line", { get() { return this.lineNumber }, configurable: true })
  kept.Error.prototype += " line"
  const globals = `${functions} ${Object.keys(kept).join(" ")}`
  for (const name in kept) {
    const object = global[name]
    removeOthers(object, kept[name].own)
    if (kept[name].prototype) removeOthers(object.prototype, kept[name].prototype)
  }
  removeOthers(global, globals)
}
