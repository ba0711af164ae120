// What the page calls. A path is in the room for texts.
#include "base/disk_files.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/colour_readout.h"
#include "core/commands.h"
#include "core/file_kinds.h"
#include "core/file_palettes.h"
#include "core/keys.h"
#include "core/menus.h"
#include "core/palette_commands.h"
#include "core/video_commands.h"
#include "video/playback.h"
#include "web/model.h"
#include "web/page_files.h"
#include "web/page_viewer.h"

#define EXPORTED(name) __attribute__((export_name(#name)))

namespace {

// A kind of file, as kindOfFile() gives it.
enum PageKind { kUnknown, kPicture, kFilm, kPalette }; // a disk image is opened as a picture

ViewerState &viewer() { return pageViewer().viewer; }

// Runs a command; one during a run is carried out behind it.
template <typename Command> void perform(Command command) {
  pageViewer().statusBefore = viewer().window.Label4;
  command();
  if (viewer().request.kind != Request::kNone) stepPageViewer();
}

} // namespace

extern "C" {

EXPORTED(start) void start() { startPageViewer(); }

EXPORTED(room) char *room(size_t bytes) { return textRoom(bytes); }

EXPORTED(kindOfFile) int32_t kindOfFile() {
  if (isPaletteFile(roomText())) return kPalette;
  const FileKind *kind = findFileKind(upperCased(lastCharacters(roomText(), kExtensionLength)));
  if (kind == nullptr) return isDiskImageName(roomText()) ? kPicture : kUnknown;
  return kind->traits.player != nullptr ? kFilm : kPicture;
}

EXPORTED(open) void open() {
  perform([] { openPath(viewer(), std::string(roomText())); });
}

// The page has the bytes that it lacked when the core opened the file: opens it as if that had not been tried.
EXPORTED(openAgain) void openAgain() {
  viewer().window.Label4 = pageViewer().statusBefore;
  openPath(viewer(), viewer().filePath);
}

// The user has dropped or chosen a file.
EXPORTED(drop) void drop() {
  perform([] { dropFile(viewer(), std::string(roomText())); });
}

// Returns whether the key is one of the viewer's.
EXPORTED(press) bool press(int32_t code, bool ctrl, bool shift, bool repeated) {
  bool taken = false;
  perform([&] { taken = pressKey(viewer(), {.code = code, .ctrl = ctrl, .shift = shift, .repeated = repeated}); });
  return taken;
}

// Runs the command of that place in the model's list.
EXPORTED(run) void run(size_t row) {
  perform([row] { runMenuRow(viewer(), row); });
}

EXPORTED(play) void play() {
  perform([] { togglePlayback(viewer()); });
}

EXPORTED(scroll) void scroll(int32_t frame) { HScroll1_Change(viewer(), frame); }

EXPORTED(step) void step() { stepPageViewer(); }

EXPORTED(pause) void pause() { pausePlayback(viewer()); }

EXPORTED(resume) void resume() { resumePlayback(viewer()); }

// The pointer is at that pixel of the picture; below 0, on none.
EXPORTED(point) void point(int32_t column, int32_t line) {
  if (column < 0 || line < 0) return leaveMouse(viewer());
  moveMouseToPixel(viewer(), column, line);
}

// Words 0x00RRGGBB, top row first.
EXPORTED(frame) const uint32_t *frame() { return viewer().frameBits.data(); }

// Valid until the next call.
EXPORTED(model) const char *model() {
  static std::string json;
  json = modelJson(viewer());
  return json.c_str();
}
}
