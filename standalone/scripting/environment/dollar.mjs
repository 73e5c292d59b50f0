// $ and app: what a script asks of its engine and of the application.

import { hostObject } from "./strict.mjs"
import { environmentVariable, files, print, rules, sleep, ui } from "./host.mjs"

export function makeDollar(global) {
  const started = new Date().getTime()
  const lines = { text: "" }
  return hostObject("$", {
    build: "97.1.2",
    version: "4.5.5",
    buildDate: new Date(0),
    locale: "en_US",
    engineName: "main",
    fileName: "",
    line: 0,
    level: 0,
    stack: "",
    error: undefined,
    strict: false,
    flags: 0,
    get os() { return files.system === "Windows" ? "Windows/64 10.0" : "Macintosh OS 13.0" },
    get global() { return global },
    get screens() {
      const all = []
      const places = ui.screens()
      for (let i = 0; i < places.length; ++i) {
        const [left, top, right, bottom] = places[i]
        all.push(hostObject("Screen", { left, top, right, bottom, primary: i === 0 }))
      }
      return all
    },
    get hiresTimer() { return (new Date().getTime() - started) * 1000 },
    getenv(name) { return environmentVariable(String(name)) },
    sleep(milliseconds) { sleep(Number(milliseconds)) },
    gc() {},
    write(...texts) { lines.text += texts.join("") },
    writeln(...texts) {
      print(lines.text + texts.join(""))
      lines.text = ""
    },
    toString() { return "[object $]" },
  })
}

export const app = hostObject("app", {
  name: "After Effects",
  version: "23.0x59",
  buildName: "",
  isoLanguage: "en_US",
  preferences: hostObject("Preferences", {
    havePref() { return true },
    getPrefAsLong(section, key) {
      return key === "Pref_SCRIPTING_FILE_NETWORK_SECURITY" && rules.writingAllowed ? 1 : 0
    },
  }),
  executeCommand() {},
  beginSuppressDialogs() {},
  endSuppressDialogs() {},
  toString() { return "[object Application]" },
})
