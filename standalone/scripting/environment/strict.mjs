// Objects of the host know their properties: what they lack is an error that names it, where a plain engine would go on
// with undefined. The last object of such a prototype chain is a proxy, which sees only what none before it has.

const ProxyType = Proxy
const ErrorType = Error
const TypeErrorType = TypeError
const setPrototype = Object.setPrototypeOf
const defineProperty = Object.defineProperty
const create = Object.create
const propertyOf = Object.getOwnPropertyDescriptor

export { ErrorType, TypeErrorType, defineProperty }

// Where an object of the host keeps what is no property for scripts.
export const inner = Symbol("inner")

const nameKey = Symbol("name")

function guard(base, isOpen) {
  return new ProxyType(base, {
    get(target, key, receiver) {
      if (typeof key === "symbol" || key in target) return target[key]
      throw new TypeErrorType(`${receiver[nameKey]} has no property "${key}"`)
    },
    set(target, key, value, receiver) {
      if (typeof key !== "symbol" && !isOpen) throw new TypeErrorType(`${receiver[nameKey]} has no property "${key}"`)
      defineProperty(receiver, key, { value, writable: true, enumerable: true, configurable: true })
      return true
    },
  })
}

// Ends the prototype chain of a class that extends none. Objects of an open class take any property from a script, as
// windows and controls do, but still know which they have never been given.
export function seal(Class, isOpen) {
  setPrototype(Class.prototype, guard(Object.prototype, isOpen))
}

// Names a sealed class for scripts. What it only tells cannot be set.
export function nameClass(name, Class) {
  Class.prototype[nameKey] = name
  for (const key of Object.getOwnPropertyNames(Class.prototype)) {
    const property = propertyOf(Class.prototype, key)
    if (property.get === undefined || property.set !== undefined) continue
    property.set = () => { throw new TypeErrorType(`${name}.${key} is read only`) }
    defineProperty(Class.prototype, key, property)
  }
}

// What scripts call for a new object, with `new` or without; they are different things to some classes.
export function hostFunction(name, Class, statics, construct, call) {
  function make(...values) {
    return new.target ? construct(values) : call(values)
  }
  make.prototype = Class.prototype
  make[nameKey] = name
  defineProperty(Class.prototype, "constructor", { value: make, enumerable: false })
  for (const key in statics) copyProperty(statics, key, make)
  setPrototype(make, guard(Function.prototype, false))
  return make
}

// An object of the host that scripts get as it is.
export function hostObject(name, members) {
  const object = create(guard(Object.prototype, false))
  defineProperty(object, nameKey, { value: name })
  for (const key in members) copyProperty(members, key, object)
  return object
}

// Accessors stay accessors.
function copyProperty(from, key, to) {
  const property = propertyOf(from, key)
  property.enumerable = true
  defineProperty(to, key, property)
}
