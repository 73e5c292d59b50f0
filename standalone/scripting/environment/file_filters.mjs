// The two small languages by which scripts choose files.

// "*" for any characters, "?" for one; upper and lower case are alike.
export function matchesMask(name, mask) {
  return matches(name.toLowerCase(), 0, mask.toLowerCase(), 0)
}

function matches(name, at, mask, from) {
  while (from < mask.length) {
    const sign = mask.charAt(from)
    if (sign === "*") {
      for (let rest = at; rest <= name.length; ++rest) {
        if (matches(name, rest, mask, from + 1)) return true
      }
      return false
    }
    if (at >= name.length || (sign !== "?" && sign !== name.charAt(at))) return false
    ++at
    ++from
  }
  return at === name.length
}

// "Images:*.png;*.jp*,All files:*.*" as ["Images (*.png *.jp*)", "All files (*.*)"]. Scripts may give a function in its
// place, which then chooses among the files that a person sees; a person here sees all of them.
export function dialogFilters(filter) {
  if (filter === undefined || filter === null || typeof filter === "function") return []
  const filters = []
  for (const part of String(filter).split(",")) {
    const colon = part.indexOf(":")
    const masks = part.substring(colon + 1).split(";").join(" ")
    filters.push(colon < 0 ? masks : `${part.substring(0, colon)} (${masks})`)
  }
  return filters
}
