// functions_test.mjs MODULES SCRATCH: the functions of the dialogs' scripts, one by one.
import assert from "node:assert/strict";
import fs from "node:fs";
import { dirname, join, resolve } from "node:path";
import { test } from "node:test";
import { dialogNames, filled, template } from "./dialog_scripts.mjs";
import { File, loadDialog } from "./stub_host.mjs";

const scratch = resolve(process.argv[3] ?? "build/functions_test.work");
let number = 0;

function newData() {
  const data = join(scratch, `data ${++number} 100%41 ä`);
  fs.rmSync(data, { recursive: true, force: true });
  return data;
}

function put(path, text = "") {
  fs.mkdirSync(dirname(path), { recursive: true });
  fs.writeFileSync(path, text);
}

// Objects out of the script's own world compare as what they hold.
const plain = (value) => value === undefined ? undefined : JSON.parse(JSON.stringify(value));

let seed = 12345;
function random(limit) {
  seed = (seed * 1103515245 + 12345) % 2147483648;
  return Math.floor(seed / 65536) % limit;
}

test("scripts leave room for what is filled in", () => {
  for (const name of dialogNames) {
    assert.ok(template(name).length < 40000);
    assert.ok(/^[\x09\x0a\x20-\x7e]*$/.test(template(name)), "only ASCII");
    assert.ok(!/#(WIDTH|HEIGHT|X_POS|Y_POS|IMGPATH|v1|v2)/.test(filled(name)));
    for (const [mark] of template(name).matchAll(/.#\w+./g)) assert.ok(/^"#\w+"$/.test(mark), mark);
  }
});

test("the hash of a path counts printable ASCII without separators", () => {
  const { pathHash } = loadDialog("gallery", newData());
  assert.equal(pathHash(""), 0);
  assert.equal(pathHash("a"), 97);
  assert.equal(pathHash("ab"), 97 * 31 + 98);
  assert.equal(pathHash("/a\\b"), pathHash("ab"));
  assert.equal(pathHash("a\u00e4\u007f\u001f\ud83e\uddf1b"), pathHash("ab"));
  for (let i = 0; i < 2000; i++) {
    let path = "", sum = 0n;
    for (let n = random(80); n > 0; n--) path += String.fromCharCode(random(5) ? 32 + random(95) : random(65536));
    for (const unit of path.split("").map((c) => BigInt(c.charCodeAt(0)))) {
      if (unit >= 32n && unit <= 126n && unit !== 47n && unit !== 92n) sum = sum * 31n + unit;
    }
    assert.equal(BigInt(pathHash(path)), BigInt.asIntN(32, sum), path);
  }
});

// --- manifests ---

function randomJson(depth) {
  const text = () => ["", "a", "\"\\/\b\f\n\r\t", "\u00e4\ud83e\uddf1\u2028", "long ".repeat(50)][random(5)];
  switch (random(depth > 0 ? 8 : 5)) {
    case 0: return null;
    case 1: return random(2) === 0;
    case 2: return (random(2000) - 1000) * 10 ** (random(20) - 10);
    case 3: case 4: return text();
    case 5: return Array.from({ length: random(5) }, () => randomJson(depth - 1));
    default: return Object.fromEntries(Array.from({ length: random(5) }, (_, i) =>
      [text() + i, randomJson(depth - 1)]));
  }
}

test("JSON texts are read as they mean", () => {
  const { JSONify } = loadDialog("gallery", newData());
  for (let i = 0; i < 3000; i++) {
    const value = randomJson(5);
    const text = JSON.stringify(value, null, ["", " ", "\t"][random(3)]);
    assert.deepEqual(plain(JSONify(` ${text}\r\n`)), value, text);
    const escaped = text.replace(/[^\x00-\x7f]/g, (c) => `\\u${c.charCodeAt(0).toString(16).padStart(4, "0")}`);
    assert.deepEqual(plain(JSONify(escaped)), value, escaped);
  }
});

test("texts that are no JSON give nothing", () => {
  const { JSONify } = loadDialog("gallery", newData());
  const broken = ["", " ", "{", "}", "[", "]", "[1,]", "[,1]", "[1 2]", "{a:1}", "{\"a\"}", "{\"a\":}", "{\"a\":1,}",
    "{,}", "\"", "\"a", "\"\\", "\"\\x\"", "\"\\u12\"", "\"\\u12g4\"", "tru", "nul", "01", "1.", ".5", "-", "+1", "1e",
    "1e+", "0x1", "NaN", "Infinity", "undefined", "1 1", "[1]]",
    "{\"a\":1}}", "[}", "{]", "alert(1)", "'a'", "//x\n1", "[\"a\":1]"];
  for (const text of broken) {
    assert.throws(() => JSON.parse(text), SyntaxError, text);
    assert.equal(JSONify(text), undefined, text);
  }
});

test("damaged JSON ends as the language's own reader says", () => {
  const { JSONify } = loadDialog("gallery", newData());
  for (let i = 0; i < 3000; i++) {
    const text = JSON.stringify(randomJson(4));
    const at = random(text.length);
    const damaged = text.slice(0, at) + ["", "\"", "{", "]", ",", "\\", "0"][random(7)] + text.slice(at + random(3));
    let expected;
    try { expected = JSON.parse(damaged); } catch { expected = undefined; }
    assert.deepEqual(plain(JSONify(damaged)), expected, damaged);
  }
});

test("names that every object has are not taken from JSON", () => {
  const { JSONify } = loadDialog("gallery", newData());
  const value = JSONify("{\"__proto__\":{\"a\":1},\"hasOwnProperty\":1,\"toString\":2,\"b\":3}");
  assert.equal(value.a, undefined);
  assert.equal(typeof value.hasOwnProperty, "function");
  assert.deepEqual(Object.keys(value), ["b"]);
});

test("deep and large JSON is read soon", () => {
  const { JSONify } = loadDialog("gallery", newData());
  for (const depth of [50, 200, 200000]) {
    assert.notEqual(JSONify("{\"children\":[".repeat(depth) + "]}".repeat(depth)), undefined);
    assert.equal(JSONify("[".repeat(depth)), undefined);
  }
  const began = performance.now();
  for (const text of [`"${"\\n".repeat(2500000)}"`, `"${"a".repeat(5000000)}"`, `[${"\"a\\tb\",".repeat(700000)}1]`,
    " ".repeat(5000000), `"${"\\n".repeat(2500000)}`, `[${"{},".repeat(1700000)}{}]`]) {
    let expected;
    try { expected = JSON.parse(text); } catch { expected = undefined; }
    assert.equal(typeof JSONify(text), typeof expected);
  }
  assert.ok(performance.now() - began < 60000, "a reader that goes over its text again and again would take hours");
});

const library = (name) => `{"name":"${name}","type":"application/library+dcx",`
  + "\"children\":[{\"name\":\"Brick\",\"type\":\"element.pattern+dcx\"}]}";

test("a cloud library's name stands behind its mark or in front of it", () => {
  const { checkCloud, checkCloudName } = loadDialog("gallery", newData());
  assert.equal(checkCloudName(library("Walls")), "Walls");
  assert.equal(checkCloudName("{\"type\":\"library+dcx\",\"name\" : \"Walls\",\"children\":[{\"name\":\"Brick\"}]}"),
    "Walls");
  assert.equal(checkCloudName(library("\\\"Z\\u00e4une\\\" \\\\\\/")), "\"Z\u00e4une\" \\/");
  for (const damaged of ["", ":", ":\"", ": 7", ":\"Walls", ":\"Walls\\", ":\"\\u12"]) {
    assert.equal(checkCloudName(`[pattern+dcx library+dcx "name"${damaged}`), undefined, damaged);
  }
  assert.equal(checkCloudName("{\"children\":[{\"name\":\"Brick\",\"type\":\"pattern+dcx\"}],\"name\":\"Walls\","
    + "\"type\":\"library+dcx\"}"), "Walls", "with nothing behind the mark");
  assert.equal(checkCloudName("x"), undefined);
  assert.equal(checkCloud(library("Walls")), true);
  assert.equal(checkCloud("{\"type\":\"library+dcx\"}"), false);
  assert.equal(checkCloud("library+dcx pattern+dcx"), false, "a mark at the very beginning does not count");
});

test("a manifest beyond 32 megabytes is not read", () => {
  const data = newData();
  const { readJsonFile } = loadDialog("gallery", data);
  const path = join(data, "manifest");
  put(path, library("Walls"));
  fs.truncateSync(path, 33554432);
  assert.equal(readJsonFile(path).length, 33554432);
  fs.truncateSync(path, 33554433);
  assert.equal(readJsonFile(path).length, 0);
});

test("the images of a cloud library are its patterns' primary files", () => {
  const data = newData();
  const script = loadDialog("gallery", data);
  const folder = join(data, "walls/components");
  for (const name of ["a.png", "b.JPG", "c.pat", "d.png", "e.png", "f.png", "sub/g.png"]) put(join(folder, name));
  put(join(data, "walls/outside.png"));
  const element = (type, ...components) => ({ type: `element.${type}+dcx`, components });
  const primary = (path, more) => ({ rel: "primary", path, ...more });
  const manifest = {
    children: [
      { children: [element("pattern", { rel: "rendition", path: "a.png" }, primary("b.JPG"), null, 7, "x",
        primary(7))] },
      element("image", primary("d.png")),
      element("pattern", primary("a.png"), primary("c.pat"), primary("missing.png"), primary("../outside.png"),
        primary(`/${folder}/a.png`), primary("c:a.png"), primary("sub/g.png")),
      { name: "removed_elements", children: [element("pattern", primary("d.png"))] },
      element("pattern", primary("e.png", { state: "deleted" }), primary("f.png", { state: "pendingDelete" })),
      { type: 7, components: "x" }, { type: "pattern+dcx", components: { rel: "primary", path: "a.png" } }, [[null]],
    ],
  };
  put(join(data, "walls/manifest"), JSON.stringify(manifest));
  const images = () => plain(script.cloudImages({ tag: "CLOUD", name: "Walls", folder: join(data, "walls/manifest") }));
  assert.deepEqual(images(), ["b.JPG", "a.png", "sub/g.png"].map((name) => join(folder, name)));
  put(join(data, "walls/manifest"), `\ufeff${JSON.stringify(element("pattern", primary("a.png")))}`);
  assert.deepEqual(images(), [join(folder, "a.png")], "with a byte order mark");
  for (const text of ["", "[", "7", "null", "\"x\"", "[]", "{}"]) {
    put(join(data, "walls/manifest"), text);
    assert.deepEqual(images(), [], text);
  }
});

test("a click on an image closes the gallery with a result only when a library is selected", () => {
  const script = loadDialog("gallery", newData());
  let closed = 0;
  Object.assign(script.gallery, { list: { selection: null }, window: { close() { closed++; } } });
  script.result = "*UPD";
  script.pick.call({ path: "/a.png" });
  assert.deepEqual([script.result, closed], ["*UPD", 1]);
  script.addLibrary("T", "n", "/f");
  script.gallery.list.selection = { index: 0 };
  script.pick.call({ path: "/a.png" });
  assert.deepEqual([script.result, closed], ["/a.png*T*n*/f*", 2]);
  script._refresh = true;
  script.pick.call({ path: "/a.png" });
  assert.equal(script.result, "/a.png*T*n*/f*UPD");
});

test("the gallery is moved into the screen that it begins on", () => {
  const script = loadDialog("gallery", newData());
  script.$ = { screens: [{ left: 0, top: 0, right: 1536, bottom: 864 },
    { left: -1000, top: -200, right: 0, bottom: 600 }] };
  const moved = (x, y) => {
    const window = { location: [x, y], size: [480, 410] };
    script.keepOnScreen(window);
    return plain(window.location);
  };
  assert.deepEqual(moved(300, 200), [300, 200]);
  assert.deepEqual(moved(1500, 860), [1536 - 480 - 40, 864 - 410 - 40]);
  assert.deepEqual(moved(10, 0), [10, 40], "the title can be reached");
  assert.deepEqual(moved(-10, 500), [-520, 150]);
  assert.deepEqual(moved(3000, 2000), [1016, 414], "beyond all screens");
  script.$.screens = [{ left: 0, top: 0, right: 320, bottom: 200 }];
  assert.deepEqual(moved(100, 100), [0, 40], "a screen that is too small shows the beginning");
});

// As hosts are said to be: pictures are loaded when they are assigned, and nothing takes them away again.
class IconButton {
  shown = [];
  drawn = [];
  size = [50, 50];
  graphics = {
    drawOSControl: () => this.drawn.push("control"),
    drawImage: (picture, ...place) => this.drawn.push(picture.pathname, place),
  };
  set visible(value) { this.shown.push(value); }
  get image() { return this.loaded; }
  set image(file) {
    if (file === undefined) throw new Error("Invalid image data");
    if (fs.readFileSync(file.fsName, "utf8") !== "picture") throw new Error("Invalid image data");
    this.loaded = { pathname: file.fsName };
  }
}

test("a button shows its own picture and never that of the page before", () => {
  const data = newData();
  const script = loadDialog("gallery", data);
  const path = (name) => join(data, name);
  put(path("a.png"), "picture");
  put(path("b.png"), "damaged");
  put(path("c.png"), "picture");
  put(script.thumbnailPath(path("c.png")), "damaged");
  put(path("d.png"), "damaged");
  put(script.thumbnailPath(path("d.png")), "picture");
  const button = new IconButton();
  const shown = (name) => {
    Object.assign(button, { shown: [], drawn: [] });
    script.showImage(button, name === "" ? "" : path(name));
    script.drawThumbnail.call(button);
    return button.drawn;
  };
  const whole = [0, 0, 50, 50];
  assert.deepEqual(plain(shown("a.png")), ["control", path("a.png"), whole]);
  assert.deepEqual(button.shown, [false, true], "hidden and shown, it is drawn again");
  assert.deepEqual(shown("b.png"), ["control"]);
  assert.deepEqual([button.path, button.shown], [path("b.png"), [false, true]]);
  assert.deepEqual(plain(shown("c.png")), ["control", path("c.png"), whole]);
  assert.deepEqual(plain(shown("d.png")), ["control", script.thumbnailPath(path("d.png")), whole]);
  assert.deepEqual(shown("missing.png"), ["control"]);
  assert.deepEqual(button.shown, [false, true]);
  assert.deepEqual(shown(""), ["control"]);
  assert.deepEqual([button.path, button.shown], ["", [false]]);
});

// --- settings and the list ---

const keys = ["baseFolder", "addFolder1", "addFolder2", "addFolder3", "addFolder4", "loadFromCloud", "copyOnImport",
  "convertPatterns", "flattenSubfolders"];

test("settings are known by the last five characters of their keys", () => {
  const data = newData();
  const { loadConfig, config } = loadDialog("gallery", data);
  const lines = ["  Xlder:  C:\\a b ", "der1: [not set]", "some der2:/x", "addFolder3:", "loadFromCloud: true ",
    "copyOnImport: TRUE", "erns: false", "flattenSubfolders: true", "", "nothing"];
  put(join(data, "user/Quiltor/config.txt"), lines.join("\r\n"));
  assert.equal(loadConfig(join(data, "user")), 9);
  assert.deepEqual(plain(config), { baseFolder: "C:\\a b", addFolder1: "[not set]", addFolder2: "/x", addFolder3: "",
    addFolder4: "", loadFromCloud: true, copyOnImport: false, convertPatterns: false, flattenSubfolders: true });
  assert.equal(loadConfig(join(data, "all")), 0);
});

test("the user's settings come before those of all users", () => {
  const data = newData();
  put(join(data, "all/Quiltor/config.txt"), "\ufeffaddFolder1: /shared\n");
  let script = loadDialog("settings", data);
  script.loadSettings();
  assert.deepEqual([script.allUsers, script.config.addFolder1], [true, "/shared"]);
  put(join(data, "user/Quiltor/config.txt"), "\r\n\r\n");
  script = loadDialog("settings", data);
  script.loadSettings();
  assert.deepEqual([script.allUsers, script.config.addFolder1], [true, "/shared"], "blank lines are none");
  put(join(data, "user/Quiltor/config.txt"), "addFolder1: /own");
  script = loadDialog("settings", data);
  script.loadSettings();
  assert.deepEqual([script.allUsers, script.config.addFolder1], [false, "/own"]);
});

test("settings are written and read alike", () => {
  const data = newData();
  const script = loadDialog("settings", data);
  Object.assign(script.config, { baseFolder: "/b", addFolder1: "/\u00e4 *|", addFolder2: "[not set]", addFolder3: "/c",
    addFolder4: "/d", flattenSubfolders: true, copyOnImport: false });
  const values = keys.map((key) => script.config[key]);
  assert.equal(script.saveSettings(join(data, "user")), true);
  assert.equal(fs.readFileSync(join(data, "user/Quiltor/config.txt"), "utf8"),
    keys.map((key, i) => `${key}: ${values[i]}\r\n`).join("") + "\r\n");
  assert.deepEqual(fs.readdirSync(join(data, "user/Quiltor")), ["config.txt"]);
  const again = loadDialog("settings", data);
  again.loadSettings();
  assert.deepEqual(keys.map((key) => again.config[key]), values);
});

test("a file that cannot be written stays as it was", () => {
  const data = newData();
  const path = join(data, "user/file.txt");
  const denied = () => { throw new Error("Permission denied (is Preferences > ...)"); };
  const kept = function () { return this.fsName === path ? false : File.prototype.remove.call(this); };
  for (const [method, answer] of Object.entries({ open: denied, write: denied, close: () => false, remove: kept })) {
    const script = loadDialog("settings", data);
    put(path, "before");
    script.File = class extends File {};
    script.File.prototype[method] = answer;
    assert.equal(script.saveText(path, "after\n"), false, method);
    assert.equal(fs.readFileSync(path, "utf8"), "before", method);
    assert.deepEqual(fs.readdirSync(dirname(path)).filter((name) => name.startsWith("file")), ["file.txt"], method);
  }
});

test("a file whose new text cannot have its name is copied, and else the new text stays beside it", () => {
  const data = newData();
  const path = join(data, "user/file.txt");
  const save = (answers) => {
    const script = loadDialog("settings", data);
    script.File = class extends File {};
    Object.assign(script.File.prototype, answers);
    return script.saveText(path, "after\n");
  };
  const files = () => fs.readdirSync(dirname(path)).filter((name) => name.startsWith("file"));
  const refused = () => false;
  const half = (target) => { fs.writeFileSync(target.fsName, "af"); return false; };
  put(path, "before");
  assert.equal(save({ rename: refused }), true);
  assert.equal(fs.readFileSync(path, "utf8"), "after\r\n");
  assert.deepEqual(files(), ["file.txt"]);
  assert.equal(save({ rename: refused, copy: half }), false);
  assert.deepEqual(files(), ["file.txt.part"]);
  assert.equal(fs.readFileSync(`${path}.part`, "utf8"), "after\r\n");
  assert.equal(save({ rename: refused, copy: half }), false);
  assert.deepEqual(files(), [], "nothing was lost where nothing was before");
  assert.equal(save({}), true);
  assert.deepEqual(files(), ["file.txt"]);
});

function found(data, config) {
  const script = loadDialog("gallery", data);
  Object.assign(script.config, { loadFromCloud: false }, config);
  script.findLibraries();
  return plain(script.libs).map((lib) => [lib.tag, lib.name, lib.folder.replace(data, "")]);
}

test("folders give libraries by what they hold", () => {
  const data = newData();
  const top = join(data, "Tex tures");
  for (const name of ["x.PNG", "wood/oak/1.jpeg", "wood/oak/deep/2.jpg", "wood/notes.txt", ".cache/1.png",
    "wood/.cache/1.png", "empty/a.gif", "Stone/3.png", "x.pngx"]) {
    put(join(top, name));
  }
  fs.mkdirSync(join(top, "empty/folder.png"));
  const config = { baseFolder: top, addFolder1: "[not set]", addFolder2: join(data, "missing"),
    addFolder3: join(top, "wood") };
  assert.deepEqual(found(data, config), [
    ["Tex tures", "", "/Tex tures"],
    ["Tex tures", "Stone", "/Tex tures/Stone"],
    ["Tex tures", "wood | oak", "/Tex tures/wood/oak"],
    ["Tex tures", "wood | oak | deep", "/Tex tures/wood/oak/deep"],
    ["wood", "oak", "/Tex tures/wood/oak"],
    ["wood", "oak | deep", "/Tex tures/wood/oak/deep"],
  ]);
  assert.deepEqual(found(data, { ...config, flattenSubfolders: true }), [
    ["Tex tures", "", "/Tex tures"],
    ["Tex tures", "Stone", "/Tex tures/Stone"],
    ["Tex tures", "wood", "/Tex tures/wood"],
    ["wood", "oak", "/Tex tures/wood/oak"],
  ]);
});

test("names that differ in their case alone have an order", () => {
  const data = newData();
  const { compareEntries } = loadDialog("gallery", data);
  const names = ["b", "a.png", "A.png", "B", "A.PNG", "\u00e4"];
  const entries = names.map((name) => ({ order: name.toLowerCase(), name }));
  const sorted = ["A.PNG", "A.png", "a.png", "B", "b", "\u00e4"];
  assert.deepEqual([...entries].sort(compareEntries).map((entry) => entry.name), sorted);
  assert.deepEqual(entries.reverse().sort(compareEntries).map((entry) => entry.name), sorted);
  assert.equal(compareEntries(entries[0], entries[0]), 0);
});

test("libraries whose line could not be read again are left out", () => {
  const data = newData();
  put(join(data, "base/a*b/1.png"));
  put(join(data, "base/c/1.png"));
  put(join(data, "base/d/a*b.png"));
  assert.deepEqual(found(data, { baseFolder: join(data, "base") }), [["base", "c", "/base/c"]]);
});

test("links that lead back end", () => {
  const data = newData();
  put(join(data, "base/a/b/1.png"));
  fs.symlinkSync("..", join(data, "base/a/up"));
  const names = () => found(data, { baseFolder: join(data, "base") }).map(([, name]) => name);
  assert.ok(names().includes("a | b"));
  assert.ok(names().length < 40);
  fs.symlinkSync("..", join(data, "base/a/again"));
  assert.ok(names().length <= 20000);
});

test("manifests below the user's folder give the cloud's libraries", () => {
  const data = newData();
  const cloud = join(data, "user/Adobe/Creative Cloud Libraries/LIBS/id_AdobeID/creative_cloud/dcx");
  put(join(cloud, "1/manifest"), library("Wa*lls\\n1"));
  put(join(cloud, "2/manifest"), "nothing of ours");
  put(join(cloud, "3/manifest.txt"), library("Text"));
  put(join(cloud, "4/manifest"), library("x".repeat(256)));
  put(join(cloud, "5/manifest"), "\ufeff" + library("Last"));
  assert.deepEqual(found(data, { loadFromCloud: true }), [
    ["CLOUD", "Wa lls 1", join(cloud, "1/manifest").replace(data, "")],
    ["CLOUD", "Last", join(cloud, "5/manifest").replace(data, "")],
  ]);
  assert.deepEqual(found(data, {}), []);
});

test("the list is written as it is read", () => {
  const data = newData();
  const script = loadDialog("gallery", data);
  script.createFolders(join(data, "user/Quiltor"));
  script.addLibrary("T\u00e4x", "a | b", "/t/a/b");
  script.addLibrary("CLOUD", "Walls", "/l/manifest");
  assert.equal(script.saveLibraries(join(data, "user")), true);
  const path = join(data, "user/Quiltor/libpaths.txt");
  assert.equal(fs.readFileSync(path, "utf8"), "T\u00e4x*a | b*/t/a/b\r\nCLOUD*Walls*/l/manifest\r\n");
  const libs = plain(script.libs);
  script.readLibs();
  assert.deepEqual(plain(script.libs), libs);
  put(path, "only\n*x.cachex*/a\r\n\r\n a * b * /c /d \t\r\n1*2*3*4\n");
  script.readLibs();
  assert.deepEqual(plain(script.libs), [{ tag: "only", name: "", folder: "" }, { tag: "a", name: "b", folder: "/c /d" },
    { tag: "1", name: "2", folder: "3" }]);
  fs.rmSync(path);
  script.readLibs();
  assert.deepEqual(plain(script.libs), [{ tag: "Quiltor", name: "", folder: `${join(data, "all")}/Quiltor` }]);
  assert.equal(script.gallery.listBase, join(data, "all"));
});

test("paths are taken apart at either separator", () => {
  const { lastComponent, joinPath, shownPath, trimText } = loadDialog("gallery", newData());
  assert.deepEqual(["C:\\a\\b", "C:\\a\\b\\", "C:\\", "/a/b", "/", "", "a"].map(lastComponent),
    ["b", "b", "C:", "b", "", "", "a"]);
  assert.equal(joinPath("/", "a"), "/a");
  assert.equal(joinPath("C:\\", "a"), "C:\\a");
  assert.equal(shownPath("C:\\", "C:\\a\\b"), "a | b");
  assert.equal(shownPath("/t", "/t/a/b\\c"), "a | b | c");
  assert.equal(trimText(" \t\ufeff a b \r\n"), "a b");
});
