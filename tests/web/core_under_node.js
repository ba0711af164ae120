// The module as the page runs it, under node.
'use strict';
const fs = require('fs');
const path = require('path');

const web = path.join(__dirname, '../../src/web');
const sources = ['shelf.js', 'core.js'].map((name) => fs.readFileSync(path.join(web, name), 'utf8')).join('\n');
const { makeShelf, startCore } = new Function(`${sources}; return { makeShelf, startCore };`)();

// FNV-1a over the four bytes of each word, lowest first. The prime is 2^40 + 435.
function hashOf(words) {
  let low = 0x84222325, high = 0xcbf29ce4;
  for (const word of words) {
    for (let shift = 0; shift < 32; shift += 8) {
      low = (low ^ (word >>> shift & 0xff)) >>> 0;
      const product = low * 435;
      high = (high * 435 + Math.floor(product / 2 ** 32) + low * 256) % 2 ** 32;
      low = product >>> 0;
    }
  }
  return [high, low].map((half) => half.toString(16).padStart(8, '0')).join('');
}

// A core whose shelf is a folder; what it says is in `said`, what it plays in `heard`.
class CoreUnderNode {
  constructor(wasm, folder) {
    this.said = '';
    this.heard = [];
    this.ticks = 0;
    const sound = { play: (samples) => this.heard.push([...samples]), stop() {}, hold() {}, resume() {} };
    const page = { sound, milliseconds: () => this.ticks, showText: (_, text) => { this.said = text; } };
    this.shelf = makeShelf();
    for (const name of fs.readdirSync(folder, { recursive: true })) {
      const file = path.join(folder, name);
      const { size } = fs.statSync(file);
      this.shelf.add(name, { size, arrayBuffer: async () => new Uint8Array(fs.readFileSync(file)).buffer });
    }
    this.core = startCore(wasm, this.shelf, page);
  }

  // Returns the model.
  async open(name) {
    const { core, shelf } = this;
    core.open(name);
    while (shelf.misses()) {
      await shelf.loadMissing(core);
      core.openAgain();
    }
    return core.model();
  }
}

module.exports = { CoreUnderNode, hashOf };
