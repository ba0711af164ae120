#include "headless/headless_platform.h"

#include "base/disk_files.h"

#include <string_view>
#include <utility>

namespace {

HeadlessPlatform &platformOf(void *context) { return *static_cast<HeadlessPlatform *>(context); }

// Logs equal consecutive lines once: a load makes hundreds of event passes, a video shows hundreds of frames.
void logOnce(HeadlessPlatform &headless, std::string_view line) {
  if (!headless.keepsLog) return;
  if (headless.log.empty() || headless.log.back() != line) headless.log.emplace_back(line);
}

void log(void *context, std::string line) {
  HeadlessPlatform &headless = platformOf(context);
  if (headless.keepsLog) headless.log.push_back(std::move(line));
}

void runPendingEvents(void *context) {
  HeadlessPlatform &headless = platformOf(context);
  logOnce(headless, "runPendingEvents");
  if (headless.events.empty()) return;
  const HeadlessEvent event = std::move(headless.events.front());
  headless.events.pop_front();
  event.deliver(*headless.viewer, event.argument);
}

uint32_t tickCount(void *context) { return platformOf(context).ticks; }

// A pending event arrives after a millisecond.
void waitForEvents(void *context, uint32_t milliseconds) {
  HeadlessPlatform &headless = platformOf(context);
  headless.ticks += headless.events.empty() ? milliseconds : 1;
}

void presentPicture(void *context, std::span<const uint32_t>, int32_t width, int32_t height) {
  logOnce(platformOf(context), "presentPicture " + std::to_string(width) + "x" + std::to_string(height));
}

// Returns false if there is not enough memory.
bool take(const ClipboardForm &form, std::vector<uint8_t> &bytes) {
  if (!reserve(bytes, form.bytes)) return false;
  bytes.resize(form.bytes);
  form.write(bytes);
  return true;
}

bool copyToClipboard(void *context, const ClipboardPicture &picture) {
  HeadlessPlatform &headless = platformOf(context);
  log(context, "copyToClipboard " + std::to_string(picture.bitmap.bytes));
  if (headless.clipboardHeld) return false;
  std::vector<uint8_t> plain;
  std::vector<uint8_t> version5;
  std::vector<uint8_t> png;
  if (!take(picture.bitmap, plain) || !take(picture.bitmapV5, version5) || !take(picture.png, png)) return false;
  headless.clipboard = std::move(plain);
  headless.clipboardV5 = std::move(version5);
  headless.clipboardPng = std::move(png);
  return true;
}

std::string askOpenFileName(void *context, const std::string &filter, const std::string &initialDirectory) {
  HeadlessPlatform &headless = platformOf(context);
  log(context, "askOpenFileName " + filter.substr(0, filter.find('\0')) + " in " + initialDirectory);
  if (headless.chosenFiles.empty()) return "";
  std::string chosen = std::move(headless.chosenFiles.front());
  headless.chosenFiles.pop_front();
  return chosen;
}

bool showInFolder(void *context, const std::string &path) {
  log(context, "showInFolder " + path);
  return path.find("lost") == std::string::npos;
}

void showMessage(void *context, const std::string &title, const std::string &text, MessageIcon icon) {
  const char *kind = icon == MessageIcon::kInformation ? "showMessage (i) "
                     : icon == MessageIcon::kWarning   ? "showMessage (!) "
                                                       : "showMessage ";
  log(context, kind + title + ": " + text);
}

bool askYesNo(void *context, const std::string &title, const std::string &text) {
  log(context, "askYesNo " + title + ": " + text);
  return platformOf(context).answersYes;
}

void showText(void *context, const std::string &title, const std::string &text) {
  log(context, "showText " + title + "\n" + text);
}

void showPreferences(void *context) { log(context, "showPreferences"); }

std::string readSetting(void *context, const std::string &key) {
  const auto &settings = platformOf(context).settings;
  const auto setting = settings.find(key);
  return setting != settings.end() ? setting->second : std::string();
}

void writeSetting(void *context, const std::string &key, const std::string &value) {
  log(context, "writeSetting " + key + " = " + value);
  platformOf(context).settings[key] = value;
}

void deleteSetting(void *context, const std::string &key) {
  log(context, "deleteSetting " + key);
  platformOf(context).settings.erase(key);
}

std::optional<std::string> readValue(void *context, const std::string &name) {
  const auto &values = platformOf(context).values;
  const auto value = values.find(name);
  return value != values.end() ? std::optional(value->second) : std::nullopt;
}

void writeValue(void *context, const std::string &name, const std::string &value) {
  platformOf(context).values[name] = value;
}

void notifyAssociations(void *context) { log(context, "notifyAssociations"); }

std::string programPath(void *) { return "C:\\Programs\\Korilan.exe"; }

void startSound(void *context, std::span<const uint8_t> image) {
  log(context, "startSound " + std::to_string(image.size()));
}

void holdSound(void *context) { log(context, "holdSound"); }

void resumeSound(void *context) { log(context, "resumeSound"); }

void stopSound(void *context, std::span<const uint8_t> silence) {
  log(context, "stopSound " + std::to_string(silence.size()));
}

void exitProgram(void *context) { log(context, "exitProgram"); }

} // namespace

void attachHeadless(ViewerState &viewer, HeadlessPlatform &headless) {
  headless.viewer = &viewer;
  viewer.platform = {.context = &headless,
                     .files = &filesWithDisks(),
                     .runPendingEvents = runPendingEvents,
                     .tickCount = tickCount,
                     .waitForEvents = waitForEvents,
                     .presentPicture = presentPicture,
                     .copyToClipboard = copyToClipboard,
                     .askOpenFileName = askOpenFileName,
                     .showInFolder = showInFolder,
                     .showMessage = showMessage,
                     .askYesNo = askYesNo,
                     .showText = showText,
                     .showPreferences = showPreferences,
                     .readSetting = readSetting,
                     .writeSetting = writeSetting,
                     .deleteSetting = deleteSetting,
                     .readValue = readValue,
                     .writeValue = writeValue,
                     .notifyAssociations = notifyAssociations,
                     .programPath = programPath,
                     .startSound = startSound,
                     .holdSound = holdSound,
                     .resumeSound = resumeSound,
                     .stopSound = stopSound,
                     .exitProgram = exitProgram};
}
