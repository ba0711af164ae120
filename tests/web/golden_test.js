// Opens every sample in the module: frames and sound are those of the golden list.
// Usage: golden_test.js MODULE SAMPLES GOLDEN_LIST
'use strict';
const fs = require('fs');
const { CoreUnderNode, hashOf } = require('./core_under_node.js');

const [moduleFile, samples, golden] = process.argv.slice(2);
const wasm = new WebAssembly.Module(fs.readFileSync(moduleFile));

// All frames from the last to the first, and the sound of a run.
function filmLines(test, name) {
  const { core, heard } = test;
  const { film, frame } = core.model();
  const frames = [];
  for (let i = film.maximum; i >= 0; --i) {
    core.scroll(i);
    frames.push(...core.frame(frame));
  }
  core.scroll(0);
  core.play();
  while (core.model().film.playing) {
    test.ticks += 1;
    core.step();
  }
  const lines = [`${hashOf(frames)} ${film.maximum + 1} frames of ${name}`];
  return heard.length === 0 ? lines : [...lines, `${hashOf(heard.reverse().flat())} sound of ${name}`];
}

async function linesOf(name) {
  const test = new CoreUnderNode(wasm, samples);
  const model = await test.open(name);
  const [width, height] = model.frame;
  const status = test.said || model.status;
  const what = name + (status ? `: ${status}` : '');
  if (!model.shown || width * height === 0) return [`- ${what}`];
  const picture = `${hashOf(test.core.frame(model.frame))} ${width}x${height} ${what}`;
  return model.film ? [picture, ...filmLines(test, name)] : [picture];
}

async function main() {
  const foreign = WebAssembly.Module.imports(wasm).filter((entry) => entry.module !== 'page');
  if (foreign.length > 0) throw new Error(`The page does not give ${foreign[0].module}.${foreign[0].name}`);
  const lines = fs.readFileSync(golden, 'utf8').trimEnd().split('\n').map((line) => line.replace(/ "[^"]*"/, ''));
  let failures = 0;
  while (lines.length > 0) {
    const name = lines[0].replace(/^\S+ (\d+x\d+ )?/, '').replace(/: .*/, '');
    for (const line of await linesOf(name)) {
      const wanted = lines.shift();
      if (line === wanted) continue;
      console.error(`${line}\nis not\n${wanted}`);
      ++failures;
    }
  }
  process.exitCode = failures > 0 ? 1 : 0;
}

main();
