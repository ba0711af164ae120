// The core: the module with what it calls. A call that traps throws; the core is of no use then.

const kOutOfMemory = 'not enough memory';

// `shelf` holds the files; `page` has milliseconds, save, copyPng, showText,
// chooseFiles and sound.
function startCore(module, shelf, page) {
  const decoder = new TextDecoder(), encoder = new TextEncoder();
  const opened = new Map(); // bytes of the open files, by number
  let lastFile = 0, saved = [];
  let calls;

  const bytesAt = (address, count) => new Uint8Array(calls.memory.buffer, address, count);
  const textAt = (address, count) => decoder.decode(bytesAt(address, count));
  const intoRoom = (text) => {
    const bytes = encoder.encode(text);
    bytesAt(calls.room(bytes.length), bytes.length).set(bytes);
    return bytes.length;
  };

  const imports = {
    openFile(path, count) {
      const bytes = shelf.bytesOf(textAt(path, count));
      if (!bytes) return -1;
      opened.set(++lastFile, bytes);
      return lastFile;
    },
    holds: (path, count) => shelf.holds(textAt(path, count)),
    fileLength: (file) => opened.get(file).length,
    readFile(file, offset, into, count) {
      const bytes = opened.get(file).subarray(offset, offset + count);
      bytesAt(into, bytes.length).set(bytes);
      return bytes.length;
    },
    closeFile: (file) => opened.delete(file),
    listFolder: (folder, count) => intoRoom(shelf.list(textAt(folder, count)).map((name) => name + '\0').join('')),
    putBytes: (bytes, count) => saved.push(bytesAt(bytes, count).slice()),
    endFile(name, count, keep) {
      if (keep) page.save(textAt(name, count), saved);
      saved = [];
    },
    copyPng: (bytes, count) => page.copyPng(bytesAt(bytes, count).slice()),
    milliseconds: () => page.milliseconds(),
    playSamples: (samples, count, rate) => page.sound.play(bytesAt(samples, count), rate),
    holdSound: () => page.sound.hold(),
    resumeSound: () => page.sound.resume(),
    stopSound: () => page.sound.stop(),
    showText: (title, titleCount, text, count) => page.showText(textAt(title, titleCount), textAt(text, count)),
    chooseFiles: () => page.chooseFiles(),
    outOfMemory() { throw new Error(kOutOfMemory); },
  };

  calls = new WebAssembly.Instance(module, { page: imports }).exports;
  calls._initialize();
  calls.start();
  const withPath = (call) => (path) => {
    intoRoom(path);
    return call();
  };
  return {
    ...calls,
    kindOfFile: withPath(calls.kindOfFile),
    open: withPath(calls.open),
    drop: withPath(calls.drop),
    model() {
      const address = calls.model();
      const end = bytesAt(0, calls.memory.buffer.byteLength).indexOf(0, address);
      return JSON.parse(textAt(address, end - address));
    },
    // Words 0x00RRGGBB; valid until the next call.
    frame: ([width, height]) => new Uint32Array(calls.memory.buffer, calls.frame(), width * height),
  };
}
