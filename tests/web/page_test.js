// Drops files onto the page in a headless Chromium: the canvas shows the pixels of the core.
// Usage: page_test.js PAGE MODULE SAMPLES KORILAN_CLI
'use strict';
const assert = require('assert/strict');
const { execFileSync } = require('child_process');
const fs = require('fs');
const path = require('path');
const { Browser } = require('./browser.js');
const { CoreUnderNode, hashOf } = require('./core_under_node.js');

const [page, moduleFile, samples, cli] = process.argv.slice(2);
const wasm = new WebAssembly.Module(fs.readFileSync(moduleFile));
const sample = (name) => [path.basename(name), fs.readFileSync(path.join(samples, name))];

// Words 0x00RRGGBB as their hash.
async function pixelsOf(name, frame = 0) {
  const test = new CoreUnderNode(wasm, samples);
  const model = await test.open(name);
  test.core.scroll(frame);
  return hashOf(test.core.frame(model.frame));
}

const kCanvasWords = `(() => {
  const data = canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height).data;
  return Array.from({ length: data.length / 4 }, (_, i) => data[4 * i] << 16 | data[4 * i + 1] << 8 | data[4 * i + 2]);
})()`;
const canvasPixels = async (browser) => hashOf(await browser.evaluate(kCanvasWords));
const kStatus = 'document.getElementById("status").textContent';

async function showsPicture(browser, name) {
  await browser.drop([sample(name)]);
  await browser.until(`model.caption.endsWith("${name}") && !settling`);
  assert.equal(await canvasPixels(browser), await pixelsOf(name), name);
}

// The next file of a drop, with its companion; a file of another kind changes nothing of what is known.
async function turnsPages(browser) {
  const [name, bytes] = sample('FIGURES.TGS');
  await browser.drop([sample('COAST.SC5'), [name, bytes], sample('FIGURES.TCS')]);
  await browser.until('model.caption.endsWith("COAST.SC5") && !settling');
  await browser.evaluate('press(kPageDown)');
  await browser.until(`model.caption.endsWith("${name}") && !settling`);
  assert.equal(await canvasPixels(browser), await pixelsOf(name));
  await browser.drop([['photo.jpg', [0]]]);
  await browser.until(`${kStatus}.startsWith("photo.jpg is not a kind")`);
  const info = await browser.evaluate('press(73); byId("dialog").querySelector("div").textContent');
  assert.ok(info.includes(`${bytes.length.toLocaleString('en-US')} bytes`), info);
  await browser.evaluate('byId("dialog").close()');
}

// The pictures of a disk in the order of korilan-cli, also those in folders on it; then the next disk.
async function showsDisks(browser) {
  const disks = ['FOLDERS.DSK', 'SCREENS.DSK'];
  const told = (disk) => execFileSync(path.resolve(cli), ['info', disk], { cwd: samples, encoding: 'utf8' });
  const list = (disk) => told(disk).match(/^[^:]+/gm);
  await browser.drop(disks.map(sample));
  for (const picture of [...list(disks[0]), list(disks[1])[0]]) {
    await browser.until(`model.opened === "${picture}" && !settling`);
    assert.equal(await canvasPixels(browser), await pixelsOf(path.basename(picture)), picture);
    const isLast = picture === list(disks[0]).at(-1);
    await browser.evaluate(`press(kPageDown, ${isLast})`);
  }
}

async function showsError(browser, file, line) {
  const before = await canvasPixels(browser);
  await browser.drop([file]);
  await browser.until(`${kStatus} === "${line}"`);
  assert.equal(await canvasPixels(browser), before);
}

// While a frame's number is shown, the next frame is on the canvas.
async function playsFilm(browser, name) {
  await browser.drop([sample(name)]);
  await browser.until('model.film !== null');
  await browser.evaluate('let sounds = 0; AudioBufferSourceNode.prototype.start = () => { ++sounds; }');
  await browser.send('Input.dispatchKeyEvent', { type: 'keyDown', key: ' ', windowsVirtualKeyCode: 32 });
  await browser.until('model.film.value >= 3');
  const [frame, words, sounds] = await browser.evaluate(`[model.film.value, ${kCanvasWords}, sounds]`);
  assert.equal(hashOf(words), await pixelsOf(name, frame + 1), `frame ${frame} of ${name}`);
  assert.equal(sounds, frame + 2);
  await browser.until('!model.film.playing && model.film.value === 0');
}

// A picture of 64 million pixels in a module that is not given more memory.
async function lacksMemory(browser) {
  const [name, bytes] = sample('COAST32K.G9B');
  for (const place of [8, 10]) bytes.writeUInt16LE(8000, place);
  await browser.evaluate('try { for (;;) core.memory.grow(1); } catch {}');
  await browser.drop([[name, bytes]]);
  await browser.until(`${kStatus} === "*** Error: Not enough memory."`);
}

// A canvas of too few pixels shows a part; the saved file has all of them.
async function savesWhole(browser, name) {
  await browser.evaluate(`var saved;
    kCanvasSides.fill(100);
    asked.save = async (_, parts) => { saved = [...await new Blob(parts).bytes()]; };`);
  await browser.drop([sample(name)]);
  await browser.until(`${kStatus}.startsWith("Shown in part")`);
  await browser.evaluate('act(() => core.press(83, true, true, false))');
  await browser.until('saved !== undefined');
  const whole = execFileSync(cli, ['convert', '--format', 'png', '-o', '-', path.join(samples, name)]);
  assert.deepEqual(Buffer.from(await browser.evaluate('saved')), whole);
}

async function main() {
  const browser = new Browser();
  try {
    await browser.open(page, 1000, 700);
    await turnsPages(browser);
    await showsDisks(browser);
    await showsPicture(browser, 'COAST.SC8');
    await showsError(browser, sample('odd/start_0001.SC5'), '*** Error: Not a valid .SC5 file.');
    await playsFilm(browser, 'COAST.EV8');
    await lacksMemory(browser);
    await showsPicture(browser, 'COAST.SC5');
    await browser.evaluate('core.drop = () => { throw new WebAssembly.RuntimeError("unreachable"); }');
    await browser.drop([sample('COAST.SC7')]);
    await browser.until(`${kStatus} === "*** Error: This file cannot be shown."`);
    await showsPicture(browser, 'COAST.SC7');
    await savesWhole(browser, 'PLASMA.SC5');
    assert.deepEqual(browser.requests.filter((address) => !/^(data|blob):|\/korilan\.html$/.test(address)), []);
  } finally {
    await browser.close();
  }
}

main();
