// What the user does: keys, pointer, drops, buttons. The last lines start the page.

const kSpace = 32, kReturn = 13, kF1 = 112, kF11 = 122;
const kSwipe = 60; // pixels

const press = (code, ctrl = false) => act(() => core.press(code, ctrl, false, false));
const isPicture = (path) => [kPicture, kFilm].includes(core.kindOfFile(path));

// Opens the first file that is a picture or a film, else the first one.
async function openFiles(source) {
  const found = await filesOf(source);
  if (found.length === 0) return;
  for (const [path, file] of found) shelf.add(path, file);
  const paths = found.map(([path]) => path).sort();
  const path = paths.find(isPicture) ?? paths[0];
  await shelf.load(path, core);
  act(() => core.drop(path));
  if (shelf.refusal(path)) showNote(shelf.refusal(path));
  else if (core.kindOfFile(path) === kUnknown) showNote(`${path} is not a kind of file that Korilan opens.`);
}

const openAll = (source) => openFiles(source).catch((error) => {
  console.error(error);
  showNote('*** Error: These files cannot be read.');
});

// A browser may let a page be heard only from within a click or a key.
const wakeSound = () => asked.sound.wake(model.film?.soundRate ?? 0);

// What works on the page; the rest of the viewer's help is of its window.
function showHelp() {
  const captions = [...kTools.map(([, caption]) => caption), ...kMenu];
  const lines = model.commands.filter(({ caption, key }) => key && captions.includes(caption))
    .map(({ caption, key }) => `${key}\t${caption.replace('  ', ' ')}`);
  asked.showText('Help', [...lines, 'Page Down, Page Up\tNext and previous picture', 'Home, End\tFirst and last picture',
    'Space\tPlay or stop a film', ', and .\tPrevious frame, next frame', 'Swipe\tNext and previous picture'].join('\n'));
}

// With Ctrl only what saves and opens: the other letters are the browser's.
function onKey(event) {
  const code = event.keyCode, ctrl = event.ctrlKey || event.metaKey;
  if (byId('dialog').open || event.altKey || (ctrl && !'OS'.includes(String.fromCharCode(code)))) return;
  if (code === kF1) {
    showHelp();
    return event.preventDefault();
  }
  if (code === kSpace) wakeSound();
  if ([kSpace, kReturn].includes(code) && event.target.closest('button')) return;
  if (act(() => core.press(code, ctrl, event.shiftKey, event.repeat))) event.preventDefault();
}

// Only the read-out changes.
function onPointer(event) {
  const place = event.type === 'pointerleave' ? [-1, -1] : pointedAt(canvas, event);
  const readout = guarded(() => {
    core.point(...place);
    return core.model().readout;
  });
  if (!readout) return show();
  model.readout = readout;
  showLines();
}

function watchPicture() {
  for (const type of ['pointermove', 'pointerdown', 'pointerleave']) canvas.addEventListener(type, onPointer);
  canvas.addEventListener('dblclick', () => press(kF11));
  let start = null;
  const begin = ({ touches }) => { start = touches.length === 1 ? touches[0] : null; };
  stage.addEventListener('touchstart', begin, { passive: true });
  stage.addEventListener('touchend', ({ changedTouches: [end] }) => {
    const way = start ? end.clientX - start.clientX : 0;
    const scrolls = stage.scrollWidth > stage.clientWidth;
    if (!scrolls && Math.abs(way) > kSwipe && Math.abs(way) > 2 * Math.abs(end.clientY - start.clientY)) {
      press(way < 0 ? kPageDown : kPageUp);
    }
  });
}

function watchDrops() {
  const mark = (dragged) => document.body.classList.toggle('dragged', dragged);
  document.addEventListener('dragover', (event) => { event.preventDefault(); mark(true); });
  document.addEventListener('dragleave', (event) => { if (!event.relatedTarget) mark(false); });
  document.addEventListener('drop', (event) => {
    event.preventDefault();
    mark(false);
    openAll(event.dataTransfer);
  });
  for (const input of [byId('files'), byId('folder')]) {
    input.addEventListener('change', async () => {
      await openAll(input);
      input.value = ''; // the same file again is a change, too
    });
  }
}

function watchPage() {
  document.addEventListener('keydown', onKey);
  byId('choose-files').addEventListener('click', () => byId('files').click());
  byId('choose-folder').addEventListener('click', () => byId('folder').click());
  byId('leave-full').addEventListener('click', () => press(kF11));
  byId('play').addEventListener('click', () => {
    wakeSound();
    act(() => core.play());
  });
  byId('bar').addEventListener('input', (event) => act(() => core.scroll(Number(event.target.value))));
  byId('dialog').addEventListener('close', () => core.resume());
  document.addEventListener('visibilitychange', () => (document.hidden ? core.pause() : core.resume()));
  document.addEventListener('fullscreenchange', () => {
    if (!document.fullscreenElement && model.fullScreen) press(kF11);
  });
  new ResizeObserver(() => placePicture(canvas, model, stage)).observe(stage);
}

// The module is compressed, and written in letters.
async function unpackModule() {
  const packed = Uint8Array.from(atob(byId('module').textContent.trim()), (letter) => letter.charCodeAt(0));
  const stream = new Blob([packed]).stream().pipeThrough(new DecompressionStream('gzip'));
  return WebAssembly.compile(await new Response(stream).arrayBuffer());
}

// Opens a black picture in a core of its own: a browser compiles a procedure at its first call.
function warmUp() {
  const bytes = Uint8Array.of(0xfe, 0, 0, 0xff, 0xd3, 0, 0);
  const spare = startCore(module, { bytesOf: () => bytes, list: () => [] }, asked);
  spare.open('BLACK.SC8');
  drawPicture(document.createElement('canvas'), spare.frame(spare.model().frame), spare.model().frame);
}

async function startPage() {
  module = await unpackModule();
  core = startCore(module, shelf, asked);
  model = core.model();
  showTools = makeTools(byId('tools'), model.commands, (row) => (model.commands[row].caption === 'Help' ? showHelp() : act(() => core.run(row))), press);
  watchPicture();
  watchDrops();
  watchPage();
  show();
  setTimeout(warmUp);
}

startPage().catch((error) => {
  console.error(error);
  byId('status').textContent = 'This browser is too old for the page.';
});
