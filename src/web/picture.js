// The picture on its canvas: pixels, size, and the pixel under the pointer.

// Longest sides of a canvas that one browser or another has room for.
const kCanvasSides = [65535, 32767, 16384, 8192, 4096];
const kStripPixels = 1 << 20;

// A canvas that is too large stays empty.
function holdsPixels(canvas) {
  const context = canvas.getContext('2d');
  if (!context) return false;
  context.fillRect(canvas.width - 1, canvas.height - 1, 1, 1);
  return context.getImageData(canvas.width - 1, canvas.height - 1, 1, 1).data[3] === 255;
}

// Makes the canvas as large as the picture, or as the browser can.
function sizeCanvas(canvas, [width, height]) {
  for (const side of kCanvasSides) {
    canvas.width = Math.min(width, side);
    canvas.height = Math.min(height, side);
    const small = Math.max(canvas.width, canvas.height) <= kCanvasSides.at(-1);
    if (small || holdsPixels(canvas)) return;
  }
}

// Draws words 0x00RRGGBB in strips, which need little memory. Returns whether the whole picture has room.
function drawPicture(canvas, words, size) {
  const [width, height] = size;
  const key = size.join();
  if (canvas.dataset.size !== key) {
    sizeCanvas(canvas, size);
    canvas.dataset.size = key;
  }
  const context = canvas.getContext('2d');
  const columns = canvas.width, rows = canvas.height;
  const lines = Math.max(1, Math.floor(kStripPixels / Math.max(1, columns)));
  for (let top = 0; top < rows && columns > 0; top += lines) {
    const count = Math.min(lines, rows - top);
    const strip = context.createImageData(columns, count);
    const pixels = new Uint32Array(strip.data.buffer);
    for (let y = 0, target = 0; y < count; ++y) {
      const end = (top + y) * width + columns;
      for (let source = end - columns; source < end; ++source) {
        const word = words[source];
        pixels[target++] = 0xff000000 | (word & 0xff) << 16 | (word & 0xff00) | word >>> 16;
      }
    }
    context.putImageData(strip, 0, top);
  }
  return columns === width && rows === height;
}

// Gives the canvas its size on the screen: zoomed, the largest whole factor that the room has, in pixels of the screen;
// a picture larger than the room is reduced. Otherwise the viewer's own size.
function placePicture(canvas, model, room) {
  const ratio = window.devicePixelRatio || 1;
  const width = canvas.width, height = canvas.height * (model.tall ? 2 : 1);
  if (!model.shown || width * height === 0) return;
  let factor = Math.min(room.clientWidth * ratio / width, room.clientHeight * ratio / height);
  if (factor >= 1) factor = Math.floor(factor);
  let shown = [width * factor / ratio, height * factor / ratio];
  if (!model.zoomed) {
    factor = Math.max(1, Math.floor(ratio)) / ratio;
    shown = model.target.map((side, i) => side * factor * [canvas.width, canvas.height][i] / model.frame[i]);
  }
  canvas.style.width = `${shown[0]}px`;
  canvas.style.height = `${shown[1]}px`;
  canvas.classList.toggle('reduced', shown[0] * ratio < width);
}

// The pixel of the picture that a pointer is at.
function pointedAt(canvas, event) {
  const box = canvas.getBoundingClientRect();
  const part = [(event.clientX - box.left) / box.width, (event.clientY - box.top) / box.height];
  if (part.some((value) => !(value >= 0 && value < 1))) return [-1, -1];
  const sides = [canvas.width, canvas.height];
  return part.map((value, i) => Math.floor(value * sides[i]));
}
