// The dialogs' scripts as the module hands them out: what both share and then each dialog's own.
import { readFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";

const folder = join(dirname(fileURLToPath(import.meta.url)), "../../src/ui/scripts");
const samples = { "#WIDTH": "800", "#HEIGHT": "600", "#X_POS": "10", "#Y_POS": "20", "#IMGPATH": "path", "#v1": "label",
  "#v2": "name" };

export const dialogNames = ["gallery", "settings"];

export function template(name) {
  return ["common", name].map((part) => readFileSync(join(folder, `${part}.jsx`), "utf8")).join("");
}

export function filled(name, values = {}) {
  return Object.entries({ ...samples, ...values }).reduce((text, [mark, value]) => text.replaceAll(mark, value),
    template(name));
}

// Where a line of the joined text stands.
export function placeOf(name, line) {
  const shared = readFileSync(join(folder, "common.jsx"), "utf8").split("\n").length - 1;
  return line > shared ? `${name}.jsx:${line - shared}` : `common.jsx:${line}`;
}
