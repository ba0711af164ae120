// Both video players under a user who plays, stops, scrolls and opens at random.
// Byte 0: kind of the file. Byte 1: number of actions, which follow, two bytes each: what, and where to. Then the file.
#include "fuzz_viewer.h"

#include "core/bitmap_export.h"
#include "core/commands.h"
#include "core/keys.h"
#include "core/video_commands.h"

#include <array>
#include <cstdlib>

namespace {

constexpr std::array<const char *, 4> kNames = {"a.EVA", "a.EV8", "a.VID", "b.VID"};

void scroll(ViewerState &viewer, const std::string &to) { HScroll1_Change(viewer, std::stoi(to)); }
void play(ViewerState &viewer, const std::string &) { Image1_Click(viewer); }
void stop(ViewerState &viewer, const std::string &) { Image2_Click(viewer); }
void close(ViewerState &viewer, const std::string &) { menuClose_Click(viewer); }
void save(ViewerState &viewer, const std::string &) {
  if (viewer.window.menuSaveBMP.enabled) menuSaveBMP_Click(viewer);
}
void open(ViewerState &viewer, const std::string &to) {
  openPath(viewer, kNames[static_cast<size_t>(std::stoi(to)) % kNames.size()]);
}
void press(ViewerState &viewer, const std::string &to) { pressKey(viewer, {.code = std::stoi(to)}); }
void look(ViewerState &, const std::string &) {}

using Action = void (*)(ViewerState &viewer, const std::string &to);
constexpr std::array<Action, 8> kActions = {scroll, play, stop, close, save, open, press, look};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  std::span<const uint8_t> input(data, size);
  const char *name = kNames[takeByte(input) % kNames.size()];
  const int actions = takeByte(input) % 64;
  FuzzViewer &fuzz = freshViewer();
  for (int i = 0; i < actions; ++i) {
    const Action action = kActions[takeByte(input) % kActions.size()];
    fuzz.platform.events.push_back({action, std::to_string(takeByte(input))});
  }
  for (const char *file : kNames) putFile(file, input);
  openPath(fuzz.viewer, name);
  // Runs take their events from the same queue; the last one stops them.
  for (int i = 0; i <= actions && !fuzz.platform.events.empty(); ++i) {
    const HeadlessEvent event = fuzz.platform.events.front();
    fuzz.platform.events.pop_front();
    if (fuzz.platform.events.empty()) fuzz.platform.events.push_back({stop, ""});
    event.deliver(fuzz.viewer, event.argument);
    if (fuzz.viewer.activity != Activity::kIdle) std::abort();
  }
  menuClose_Click(fuzz.viewer);
  return 0;
}
