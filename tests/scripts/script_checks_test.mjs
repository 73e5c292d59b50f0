// script_checks_test.mjs MODULES SCRATCH: whether the checks find what the host would not take.
import assert from "node:assert/strict";
import { ScriptChecks } from "./script_checks.mjs";

// The script, what is to be said of it, and in which line.
const slips = [
  ["a reserved word as a key", "var o = {class: 1};", /class/],
  ["a reserved word as a member", "var o = {}; o.default = 1;", /default/],
  ["a reserved word as a name", "var int = 1;", /int/],
  ["a comma behind the last member", "var o = {a: 1,};", /Unexpected token|trailing comma/i],
  ["a comma behind the last element", "var a = [1,];", /trailing comma/i],
  ["a getter", "var o = {get a() { return 1; }};", /Unexpected token/],
  ["let", "let a = 1;", /Unexpected token|let/],
  ["const", "const a = 1;", /Unexpected token/],
  ["an arrow function", "var f = (a) => a;", /Unexpected token/],
  ["a template string", "var s = `a`;", /Unexpected/],
  ["return outside a function", "return 1;", /return/],
  ["a directive of the preprocessor", "#include \"a.jsx\"", /Unexpected/],
  ["an unfilled place", "var x = #X_POS;", /Unexpected/],
  ["JSON", "var o = JSON.parse(\"{}\");", /JSON/],
  ["console", "console.log(1);", /console/],
  ["a timer", "setTimeout(alert, 1);", /setTimeout/],
  ["an undeclared name", "tpyo = 1;", /tpyo/],
  ["trim of a text", "var s = \" a\".trim();", /trim/],
  ["trim of what may be anything", "function f(a) { return a.trim(); }", /trim/],
  ["forEach", "[1].forEach(alert);", /forEach/],
  ["indexOf of an array", "var a = [1]; var i = a.indexOf(1);", /indexOf/],
  ["Array.isArray", "var b = Array.isArray([]);", /isArray/],
  ["Object.keys", "var k = Object.keys({});", /keys/],
  ["bind", "function f() { return 1; }\nvar g = f.bind(null);", /bind/, 2],
  ["Date.now", "var t = Date.now();", /now/],
  ["the engine's own additions", "function f(o) { return o.toSource(); }", /toSource/],
  ["text of an object, which is encoded for a file", "var s = Folder.appData.toString();", /toString/],
  ["eval", "eval(\"1\");", /eval/],
  ["eval by another name", "var f = new Function(\"return 1\");", /Function/],
  ["and and or without brackets", "function f(a, b, c) { return a || b && c; }", /&&/],
  ["nested conditions", "function f(a, b) { return a ? 1 : b ? 2 : 3; }", /ternary/],
  ["the same name twice", "var a = 1;\nvar a = 2;", /already defined/, 2],
  ["comparison that converts", "function f(a) { return a == 1; }", /===/],
  ["a wrong type", "var f = new File(\"a\"); f.encoding = 8;", /number/],
  ["a wrong argument", "alert(1);", /number/],
  ["a wrong kind of window", "var w = new Window(\"modal\");", /modal/],
  ["a wrong kind of control", "var w = new Window(\"dialog\"); w.add(\"textbox\");", /textbox/],
  ["a misspelt property", "var w = new Window(\"dialog\", \"\", undefined, {resizable: false});", /resizable/],
  ["a misspelt member", "var p = Folder.appData.fsname;", /fsname/],
  ["a member that does not exist", "var w = new Window(\"dialog\"); w.padding = 5;", /padding/],
];

const good = `
var dialog = new Window("dialog", "Title", undefined, {resizeable: false}), list = dialog.add("dropdownlist"), i;
var found = Folder.userData.getFiles("*.png"), names = [];
for (i = 0; i < found.length; i++) names.push(found[i].fsName);
list.preferredSize = [450, -1];
list.selection = 0;
list.selection = null;
"result";
`;

const checks = new ScriptChecks(process.argv[2], process.argv[3]);
const scripts = slips.map(([, text], index) => ({ name: `slip${index}`, text }));
const findings = await checks.findings([...scripts, { name: "good", text: good }]);

assert.deepEqual(findings.filter(({ name }) => !name.startsWith("slip")), []);
for (const [index, [title, text, expected, line = 1]] of slips.entries()) {
  const said = findings.filter((finding) => finding.name === `slip${index}`);
  assert.ok(said.some((finding) => finding.line === line && expected.test(finding.message)),
    `${title}: ${text}\nfound: ${JSON.stringify(said)}`);
}
console.log(`found ${slips.length} slips`);
