// The page: what the user does goes to the core, what the core's model says is shown.

const kInPart = 'Shown in part: the browser has no room for the whole picture. Save as PNG writes all of it.';

const byId = (id) => document.getElementById(id);
const canvas = byId('picture'), stage = byId('stage');
const shelf = makeShelf();
let module, core, model, showTools;
let settling = false, stepping = false;
let partial = false; // the canvas is too small for the picture
let note = ''; // the page's own line, until the next command
let lastSerial = -1;

const isLight = (word) => 3 * (word >> 16) + 6 * (word >> 8 & 255) + (word & 255) > 1275;
const colourText = (word) => `#${word.toString(16).padStart(6, '0')}`;

const asked = {
  milliseconds: () => performance.now(),
  sound: makeSound(),
  save(name, parts) {
    const link = document.createElement('a');
    link.href = URL.createObjectURL(new Blob(parts));
    link.download = name;
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 60000);
  },
  copyPng(bytes) {
    const item = () => new ClipboardItem({ 'image/png': new Blob([bytes], { type: 'image/png' }) });
    const failed = () => showNote('Could not copy: the browser does not allow it.');
    try {
      navigator.clipboard.write([item()]).catch(failed);
    } catch {
      failed();
    }
  },
  showText(title, text) {
    const dialog = byId('dialog'), table = document.createElement('table');
    dialog.querySelector('h2').textContent = title;
    for (const line of text.split('\n')) {
      const row = table.insertRow();
      for (const cell of line.split('\t')) row.insertCell().textContent = cell;
      if (row.cells.length === 1) row.cells[0].colSpan = 2;
    }
    dialog.querySelector('div').replaceChildren(table);
    if (dialog.open) return;
    core.pause(); // until it closes
    dialog.showModal();
  },
  chooseFiles: () => byId('files').click(),
};

// Calls the core. A module that traps or has no more memory is replaced by a new one.
function guarded(command) {
  try {
    return command();
  } catch (error) {
    console.error(error);
    asked.sound.stop();
    core = startCore(module, shelf, asked);
    lastSerial = -1; // the new core counts anew
    note = error.message === kOutOfMemory ? '*** Error: Not enough memory.' : '*** Error: This file cannot be shown.';
  }
}

function perform(command) {
  note = '';
  return guarded(command);
}

// Loads the files that the core has asked for, then shows what it shows.
async function settle() {
  if (settling) return;
  settling = true;
  while (shelf.misses()) {
    await shelf.loadMissing(core);
    perform(() => core.openAgain());
  }
  settling = false;
  show();
}

function act(command) {
  const taken = perform(command);
  settle();
  return taken;
}

function show() {
  const opened = model.opened;
  model = guarded(() => core.model()) ?? core.model();
  if (model.opened !== opened) shelf.forgetUnused();
  document.title = byId('caption').textContent = model.caption;
  byId('labels').textContent = model.shown ? model.labels.join(' · ') : '';
  showTools(model);
  showPicture();
  showFilm();
  showSwatches();
  showLines();
  showFullScreen();
}

function showPicture() {
  canvas.hidden = !model.shown;
  byId('empty').hidden = model.shown;
  if (!model.shown) return;
  if (model.serial !== lastSerial) partial = !drawPicture(canvas, core.frame(model.frame), model.frame);
  lastSerial = model.serial;
  placePicture(canvas, model, stage);
}

function showFilm() {
  const film = model.film, bar = byId('bar'), play = byId('play');
  byId('film').hidden = !film;
  if (!film) return;
  bar.max = Math.max(0, film.maximum);
  bar.value = film.value;
  bar.disabled = film.playing;
  play.setAttribute('aria-label', film.playing ? 'Stop' : 'Play');
  play.querySelector('use').setAttribute('href', film.playing ? '#i-stop' : '#i-play');
  if (film.playing) stepFilm();
}

function showSwatches() {
  byId('swatches').hidden = model.swatches.length === 0;
  byId('swatches').replaceChildren(...model.swatches.map((swatch, i) => {
    const span = document.createElement('span');
    span.textContent = i;
    span.title = swatch.tip;
    span.style.background = colourText(swatch.colour);
    span.style.color = isLight(swatch.colour) ? '#000' : '#fff';
    return span;
  }));
}

function showLines() {
  const status = note || shelf.refusal(model.path) || model.status || (model.shown && partial ? kInPart : '');
  byId('status').textContent = status;
  byId('status').classList.toggle('fault', status.startsWith('***'));
  const [colour, text] = byId('readout').children;
  text.textContent = model.readout.text;
  colour.hidden = model.readout.colour === null;
  if (!colour.hidden) colour.style.background = colourText(model.readout.colour);
}

function showNote(text) {
  note = text;
  showLines();
}

// The browser may leave its full screen by itself, and a phone may not have one.
function showFullScreen() {
  const full = document.body.classList.contains('full');
  if (full === model.fullScreen) return;
  document.body.classList.toggle('full', model.fullScreen);
  if (model.fullScreen) document.documentElement.requestFullscreen?.().catch(() => {});
  else if (document.fullscreenElement) document.exitFullscreen();
  placePicture(canvas, model, stage);
}

// Each frame of the screen may show one of the film.
function stepFilm() {
  if (stepping) return;
  stepping = true;
  requestAnimationFrame(() => {
    stepping = false;
    if (model.film?.playing) act(() => core.step());
  });
}
