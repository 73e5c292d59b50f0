// Reads scripts as the host's language has them: their syntax and names with ESLint, and the members of objects with
// TypeScript against the published declarations of the host's objects.
import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { dirname, join, resolve } from "node:path";

const hostNames = ["File", "Folder", "Window", "ScriptUI", "$", "alert", "confirm"];

// Methods that the language lacks and that the declarations cannot catch where a value's type is not known. The shared
// engine may even have them, when some other script has added them.
const missingMethods = ["forEach", "map", "filter", "some", "every", "reduce", "isArray", "trim", "startsWith",
  "endsWith", "includes", "repeat", "padStart", "bind", "keys", "defineProperty", "freeze", "now",
  "toISOString", "toSource", "watch", "unwatch", "reflect", "evalFile"];

const rules = {
  "comma-dangle": [2, "never"],
  "eqeqeq": 2,
  "no-alert": 0,
  "no-dupe-keys": 2,
  "no-empty": 2,
  "no-eval": 2,
  "no-extend-native": 2,
  "no-implied-eval": 2,
  // Both bind alike in the host, from left to right.
  "no-mixed-operators": [2, { groups: [["&&", "||"]] }],
  "no-multi-str": 2,
  "no-nested-ternary": 2,
  "no-new-func": 2,
  "no-redeclare": 2,
  "no-restricted-properties": [2, ...missingMethods.map((property) => ({ property })), { property: "toString" }],
  "no-shadow-restricted-names": 2,
  "no-sparse-arrays": 2,
  "no-undef": 2,
  "no-unreachable": 2,
  "no-unused-vars": [2, { vars: "local", caughtErrors: "none" }],
  "no-with": 2,
  "radix": 2,
};

// Corrections to the declarations: lists for places and sizes, numbers and null for a selection, files as pictures.
const corrections = {
  "ScriptUI.d.ts": [
    [/^  selection: ListItem \| number$/gm,
      "  get selection(): ListItem | null\n  set selection(v: ListItem | number | null)"],
    [/^  (image|icon): ScriptUIImage$/gm,
      "  get $1(): ScriptUIImage\n  set $1(v: ScriptUIImage | File | string | undefined)"],
    [/^  (left|right|top|bottom|x|y): /gm, "  $1?: "],
  ],
  "JavaScript.d.ts": [
    [/^  openDialog\(prompt\?: string, filter\?: .*, multiSelect\?: boolean\): File \| File\[\]$/gm, ""],
    [/^  openDialog\(prompt: string, filter: string \| Function, multiSelect: false\): File$/gm,
      "  openDialog(prompt?: string, filter?: string | Function, multiSelect?: false): File | null"],
    [/^  copy\(target: string\): boolean/gm, "  copy(target: string | File): boolean"],
    [/readonly screens: object\[\]/g,
      "readonly screens: {left: number, top: number, right: number, bottom: number, primary: boolean}[]"],
  ],
};

// What the language server expects of a library, and what the dialogs themselves add to the host's objects.
const additions = `
type Extract<T, U> = T extends U ? T : never;
interface IconButton { path?: string; picture?: ScriptUIImage | null }
`;

export class ScriptChecks {
  // `modules` is the folder that the package manager filled; `scratch` is one to write into.
  constructor(modules, scratch) {
    this.require = createRequire(resolve(modules, "x.js"));
    this.scratch = resolve(scratch);
  }

  // Scripts are {name, text}. Gives {name, line, message} for all that the host would not take.
  async findings(scripts) {
    const found = await this.#lint(scripts);
    // A text that cannot be parsed has no types.
    const broken = new Set(found.filter((finding) => finding.fatal).map((finding) => finding.name));
    return found.concat(this.#checkTypes(scripts.filter((script) => !broken.has(script.name))));
  }

  async #lint(scripts) {
    const { Linter } = this.require("eslint");
    const config = {
      languageOptions: {
        ecmaVersion: 3,
        sourceType: "script",
        globals: Object.fromEntries(hostNames.map((name) => [name, "readonly"])),
      },
      linterOptions: { noInlineConfig: true },
      rules,
    };
    return scripts.flatMap(({ name, text }) =>
      new Linter().verify(text, config).map(({ line, message, fatal }) => ({ name, line, message, fatal })));
  }

  #checkTypes(scripts) {
    const typescript = this.require("typescript");
    const declarations = this.#declarations();
    // One at a time: scripts that never run together may use the same names.
    return scripts.flatMap(({ name, text }) => {
      const path = this.#write(`${name}.js`, text);
      const program = typescript.createProgram([...declarations, path],
        { allowJs: true, checkJs: true, noEmit: true, noLib: true, types: [], strict: false });
      return typescript.getPreEmitDiagnostics(program).map((diagnostic) => ({
        name: diagnostic.file?.fileName === path ? name : diagnostic.file?.fileName ?? "options",
        line: diagnostic.file ? diagnostic.file.getLineAndCharacterOfPosition(diagnostic.start).line + 1 : 0,
        message: typescript.flattenDiagnosticMessageText(diagnostic.messageText, " "),
      }));
    });
  }

  #declarations() {
    const folder = join(dirname(this.require.resolve("types-for-adobe/package.json")), "shared");
    const files = ["JavaScript", "ScriptUI", "global", "XMPScript", "PlugPlugExternalObject"].map((name) => {
      let text = readFileSync(join(folder, `${name}.d.ts`), "utf8").replaceAll("\r", "");
      for (const [from, to] of corrections[`${name}.d.ts`] ?? []) text = text.replace(from, to);
      return this.#write(`types/${name}.d.ts`, text);
    });
    return [...files.filter((file) => /(global|ScriptUI)\.d\.ts$/.test(file)),
      this.#write("types/additions.d.ts", additions)];
  }

  #write(name, text) {
    const path = join(this.scratch, name);
    mkdirSync(dirname(path), { recursive: true });
    writeFileSync(path, text);
    return path;
  }
}
