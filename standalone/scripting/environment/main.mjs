// Makes the global object of the scripting host out of that of a plain engine.

import { keepEdition3 } from "./edition3.mjs"
import { File } from "./file.mjs"
import { Folder } from "./folder.mjs"
import { Window } from "./window.mjs"
import { ListItem } from "./list_item.mjs"
import { ScriptUI } from "./script_ui.mjs"
import { alert, confirm, prompt } from "./message_boxes.mjs"
import { app, makeDollar } from "./dollar.mjs"

const global = hostGlobal
keepEdition3(global)

const objects = { File, Folder, Window, ListItem, ScriptUI, alert, confirm, prompt, app, $: makeDollar(global) }
for (const name in objects) global[name] = objects[name]
