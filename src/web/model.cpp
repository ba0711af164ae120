#include "web/model.h"

#include "base/disk_files.h"
#include "base/json.h"
#include "core/levels.h"
#include "core/menus.h"
#include "core/png_export.h"
#include "video/sound_track.h"

namespace {

// The elements of `items` for which `json` gives a text.
template <typename Items, typename Json> std::string listOf(const Items &items, Json json) {
  std::string list;
  for (const auto &item : items) {
    const std::string element = json(item);
    if (!element.empty()) list += (list.empty() ? "" : ",") + element;
  }
  return "[" + list + "]";
}

std::string readoutJson(const ColourReadout &readout) {
  JsonObject object;
  object.member("text", jsonText(readout.text));
  object.member("colour", showsColour(readout) ? std::to_string(readout.colour) : "null");
  return object.end();
}

std::string swatchJson(const Swatch &swatch) {
  if (!swatch.visible) return "";
  JsonObject object;
  object.member("colour", std::to_string(swatch.background));
  object.member("tip", jsonText(colourAndLevels(swatch.background)));
  return object.end();
}

// The key without Ctrl, most of which a browser keeps for itself.
std::string keyText(const MenuRow &row) {
  const auto [use, code] = row.shortcut;
  if (use == ShortcutUse::kWithCtrlOrAlone) return {static_cast<char>(code)};
  return use == ShortcutUse::kKeyAlone ? shortcutText(row) : "";
}

std::string commandsJson(const WindowModel &window) {
  return listOf(kMenuRows, [&window](const MenuRow &row) -> std::string {
    JsonObject object;
    if (row.item == nullptr) return object.end(); // the place of a separator, so that a row's index is the place
    object.member("caption", jsonText(plainCaption(row.caption)));
    object.member("key", jsonText(keyText(row)));
    object.member("enabled", jsonTruth(menuRowEnabled(window, row)));
    object.member("checked", jsonTruth((window.*row.item).checked));
    return object.end();
  });
}

std::string filmJson(const ViewerState &viewer) {
  const ScrollBar &bar = viewer.window.HScroll1;
  if (!bar.visible) return "null";
  JsonObject object;
  object.member("maximum", std::to_string(bar.maximum));
  object.member("value", std::to_string(bar.value));
  object.member("playing", jsonTruth(videoPlaying(viewer)));
  const bool heard = viewer.player != nullptr && viewer.player->hasSound;
  object.member("soundRate", std::to_string(heard ? samplesPerSecond(soundFormat(viewer)) : 0));
  return object.end();
}

} // namespace

std::string modelJson(const ViewerState &viewer) {
  const WindowModel &window = viewer.window;
  JsonObject object;
  object.member("path", jsonText(viewer.filePath));
  object.member("opened", jsonText(openedPath(viewer))); // `path` may be of a file that was ignored
  object.member("onDisk", jsonTruth(diskLength(openedPath(viewer)) != 0));
  object.member("caption", jsonText(window.caption));
  object.member("labels", listOf(std::to_array({window.Label1, window.Label2, window.Label3}), jsonText));
  object.member("status", jsonText(window.Label4));
  object.member("readout", readoutJson(window.readout));
  object.member("swatches", listOf(window.Label5, swatchJson));
  object.member("commands", commandsJson(window));
  object.member("film", filmJson(viewer));
  object.member("shown", jsonTruth(viewer.pictureShown == kTrue));
  object.member("serial", std::to_string(window.pictureSerial));
  object.member("frame", jsonSize(viewer.frameWidth, viewer.frameHeight));
  object.member("target", jsonSize(window.stretch.targetWidth, window.stretch.targetHeight));
  object.member("tall", jsonTruth(hasTallPixels(viewer)));
  object.member("zoomed", jsonTruth(viewer.zoomMode == 1));
  object.member("fullScreen", jsonTruth(window.fullScreen));
  return object.end();
}
