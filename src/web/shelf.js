// The files that the user has dropped or chosen. Their bytes are read when the core asks for them: it opens the file
// again when they are there.

const kUnknown = 0, kPicture = 1, kFilm = 2; // kinds of file, as the core counts them
const kMaxFilmMebibytes = 256, kMaxMebibytes = 64;

function makeShelf() {
  const files = new Map();  // what gives the bytes, by path: "ART/COAST.SC5"
  const loaded = new Map(); // bytes by path; null if they cannot be read
  const missing = new Set(); // asked for before they were loaded
  const used = new Set();
  const refusals = new Map(); // lines by path

  return {
    add(path, file) {
      files.set(path, file);
      loaded.delete(path);
      refusals.delete(path);
    },
    bytesOf(path) {
      used.add(path);
      if (files.has(path) && !loaded.has(path)) missing.add(path);
      return loaded.get(path);
    },
    // 0 nothing, 1 a file, 2 a folder
    holds(path) {
      if (files.has(path)) return 1;
      return [...files.keys()].some((other) => other.startsWith(`${path}/`)) ? 2 : 0;
    },
    list(folder) {
      const inFolder = [...files.keys()].filter((path) => path.startsWith(folder));
      return inFolder.map((path) => path.slice(folder.length)).filter((name) => !name.includes('/')).sort();
    },
    misses: () => missing.size > 0,
    // Why the bytes of the file are not there; undefined if they are.
    refusal: (path) => refusals.get(path),
    async load(path, core) {
      missing.delete(path);
      const file = files.get(path);
      const limit = core.kindOfFile(path) === kFilm ? kMaxFilmMebibytes : kMaxMebibytes;
      let bytes = null;
      if (file.size > limit * 2 ** 20) {
        refusals.set(path, `*** Error: Longer than ${limit} MiB.`);
      } else {
        bytes = await file.arrayBuffer().then((buffer) => new Uint8Array(buffer), () => null);
      }
      loaded.set(path, bytes);
    },
    async loadMissing(core) {
      for (const path of [...missing]) await this.load(path, core);
    },
    // Forgets the bytes that were not asked for since the last call.
    forgetUnused() {
      for (const path of loaded.keys()) if (!used.has(path)) loaded.delete(path);
      used.clear();
    },
  };
}

// The files of a drop or of an input, with those of folders, as [path, file].
async function filesOf(source) {
  const entries = [...(source.items ?? [])].map((item) => item.webkitGetAsEntry?.()).filter(Boolean);
  const found = [];
  if (entries.length === 0) {
    for (const file of source.files) found.push([pathOf(file.webkitRelativePath || file.name), file]);
  }
  for (const entry of entries) await walk(entry, found);
  return found;
}

// The core takes a backslash for a separator.
function pathOf(name) {
  return name.replace(/^\//, '').replaceAll('\\', '_');
}

async function walk(entry, found) {
  if (entry.name.startsWith('.')) return;
  const asked = (call) => new Promise((resolve) => call(resolve, () => resolve(null)));
  if (entry.isFile) {
    const file = await asked((done, failed) => entry.file(done, failed));
    if (file) found.push([pathOf(entry.fullPath), file]);
    return;
  }
  const reader = entry.createReader();
  for (let some; (some = await asked((done, failed) => reader.readEntries(done, failed)))?.length;) {
    for (const inner of some) await walk(inner, found);
  }
}
