// lint_scripts.mjs MODULES SCRATCH: whether the host would take the dialogs' scripts.
import { dialogNames, filled, placeOf } from "./dialog_scripts.mjs";
import { ScriptChecks } from "./script_checks.mjs";

const checks = new ScriptChecks(process.argv[2], process.argv[3]);
const findings = await checks.findings(dialogNames.map((name) => ({ name, text: filled(name) })));
for (const { name, line, message } of findings) {
  console.error(`${dialogNames.includes(name) ? placeOf(name, line) : `${name}:${line}`}: ${message}`);
}
process.exitCode = findings.length > 0 ? 1 : 0;
