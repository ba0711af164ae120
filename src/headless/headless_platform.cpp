#include "headless/headless_platform.h"

#include <utility>

namespace {

HeadlessPlatform &platformOf(void *context) { return *static_cast<HeadlessPlatform *>(context); }

void runPendingEvents(void *context) {
  HeadlessPlatform &headless = platformOf(context);
  // Depackers make tens of thousands of passes: one line stands for all in a row.
  if (headless.log.empty() || headless.log.back() != "runPendingEvents") headless.log.emplace_back("runPendingEvents");
  if (headless.events.empty()) return;
  const HeadlessEvent event = std::move(headless.events.front());
  headless.events.pop_front();
  event.deliver(*headless.viewer, event.argument);
}

void presentPicture(void *context, std::span<const uint32_t>, int32_t width, int32_t height) {
  platformOf(context).log.push_back("presentPicture " + std::to_string(width) + "x" + std::to_string(height));
}

void copyToClipboard(void *context, std::span<const uint8_t> bitmap) {
  HeadlessPlatform &headless = platformOf(context);
  headless.log.push_back("copyToClipboard " + std::to_string(bitmap.size()));
  headless.clipboard.assign(bitmap.begin(), bitmap.end());
}

void showMessage(void *context, const std::string &title, const std::string &text, MessageIcon icon) {
  const char *kind = icon == MessageIcon::kInformation ? "showMessage (i) " : "showMessage (!) ";
  platformOf(context).log.push_back(kind + title + ": " + text);
}

void exitProgram(void *context) { platformOf(context).log.emplace_back("exitProgram"); }

} // namespace

void attachHeadless(ViewerState &viewer, HeadlessPlatform &headless) {
  headless.viewer = &viewer;
  viewer.platform = {.context = &headless,
                     .files = &systemFiles(),
                     .runPendingEvents = runPendingEvents,
                     .presentPicture = presentPicture,
                     .copyToClipboard = copyToClipboard,
                     .showMessage = showMessage,
                     .exitProgram = exitProgram};
}
