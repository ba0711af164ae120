#include "core/scaling.h"

#include "state/platform_calls.h"
#include "state/video_memory.h"

#include <algorithm>
#include <limits>
#include <string>

namespace {

constexpr int32_t kNormalDotsPerInch = 96;
constexpr const char *kScaleValue = "Scale"; // "0": the start value
constexpr const char *kFitValue = "Fit";     // "0" or "1"
constexpr size_t kFitChoice = kScaleSteps.size() + 1;

// Least common multiple of all whole factors up to the largest one.
constexpr int64_t kAnchorParts = 720720;

// No side of a scaled picture exceeds 32 bits. Lines may be shown twice.
static_assert(kMaxPixels * 2 * kScaleSteps.back() <= std::numeric_limits<int32_t>::max());

// The one that is applied unless the picture is fitted.
int32_t chosenScale(const DisplaySettings &display) { return display.scale != 0 ? display.scale : display.startScale; }

int32_t fittedScale(const Stretch &stretch, int32_t roomWidth, int32_t roomHeight) {
  return std::clamp(std::min(roomWidth / stretch.targetWidth, roomHeight / stretch.targetHeight), 1,
                    kScaleSteps.back());
}

bool pictured(const WindowModel &window) { return window.stretch.targetWidth > 0 && window.stretch.targetHeight > 0; }

void keepScale(ViewerState &viewer, int32_t scale, bool fit) {
  viewer.display.scale = scale;
  viewer.display.fit = fit;
  writeValue(viewer, kScaleValue, std::to_string(scale));
  writeValue(viewer, kFitValue, fit ? "1" : "0");
}

void showScale(ViewerState &viewer) {
  WindowModel &window = viewer.window;
  ChoiceMenu &choices = window.scaleChoices;
  if (choices.captions.empty()) {
    for (const int32_t step : kScaleSteps) choices.captions.push_back(std::to_string(step) + "x");
    choices.captions.insert(choices.captions.end(), {"", "Fit"});
  }
  const auto *const step = std::find(kScaleSteps.begin(), kScaleSteps.end(), chosenScale(viewer.display));
  choices.checked = static_cast<int32_t>(viewer.display.fit ? kFitChoice : size_t(step - kScaleSteps.begin()));
  const bool scalable = pictured(window) && !window.fullScreen;
  window.menuScale.enabled = window.menuNormalScale.enabled = !window.fullScreen;
  window.menuLarger.enabled = scalable && window.scale < kScaleSteps.back();
  window.menuSmaller.enabled = scalable && window.scale > 1;
  window.menuFitWindow.enabled = scalable;
}

} // namespace

void loadScale(ViewerState &viewer) {
  const auto stored = readValue(viewer, kScaleValue);
  for (const int32_t step : kScaleSteps) {
    if (stored == std::to_string(step)) viewer.display.scale = step;
  }
  viewer.display.fit = readValue(viewer, kFitValue) == "1";
}

void setDotsPerInch(ViewerState &viewer, int32_t dotsPerInch) {
  viewer.display.startScale = std::clamp(dotsPerInch / kNormalDotsPerInch, 1, 8);
}

void applyScale(ViewerState &viewer, int32_t roomWidth, int32_t roomHeight) {
  WindowModel &window = viewer.window;
  const DisplaySettings &display = viewer.display;
  const bool fit = display.fit || window.fullScreen;
  if (!pictured(window) || (fit && roomWidth <= 0)) {
    window.scale = display.startScale;
  } else {
    window.scale = fit ? fittedScale(window.stretch, roomWidth, roomHeight) : chosenScale(display);
  }
  showScale(viewer);
}

void stepScale(ViewerState &viewer, int32_t steps) {
  const WindowModel &window = viewer.window;
  if (viewer.activity == Activity::kLoading || !pictured(window) || window.fullScreen) return;
  // Between two steps, as Fit may be, one step up is the next one above.
  const auto *const above = steps > 0 ? std::upper_bound(kScaleSteps.begin(), kScaleSteps.end(), window.scale)
                                      : std::lower_bound(kScaleSteps.begin(), kScaleSteps.end(), window.scale);
  const auto from = static_cast<int32_t>(above - kScaleSteps.begin()) - (steps > 0 ? 1 : 0);
  const int32_t to = std::clamp(from + steps, 0, static_cast<int32_t>(kScaleSteps.size()) - 1);
  const int32_t scale = kScaleSteps[static_cast<size_t>(to)];
  if (scale != window.scale) keepScale(viewer, scale, false);
}

void menuLarger_Click(ViewerState &viewer) { stepScale(viewer, 1); }
void menuSmaller_Click(ViewerState &viewer) { stepScale(viewer, -1); }
void menuNormalScale_Click(ViewerState &viewer) { keepScale(viewer, 0, false); }

void chooseScale(ViewerState &viewer, size_t choice) {
  if (choice == kFitChoice) keepScale(viewer, viewer.display.scale, true);
  if (choice < kScaleSteps.size()) keepScale(viewer, kScaleSteps[choice], false);
}

void menuFitWindow_Click(ViewerState &viewer) { ++viewer.window.windowFits; }

int64_t anchorOf(int32_t place, int32_t scale) { return place * kAnchorParts / scale; }

int32_t placeOf(int64_t anchor, int32_t scale) { return static_cast<int32_t>(anchor * scale / kAnchorParts); }

GridStep gridStep(const WindowModel &window) {
  constexpr int32_t kMinStep = 4;
  const Stretch &stretch = window.stretch;
  if (!window.menuGrid.checked || !pictured(window)) return {};
  const bool whole = stretch.targetWidth % stretch.sourceWidth == 0 && stretch.targetHeight % stretch.sourceHeight == 0;
  const GridStep step{.width = stretch.targetWidth / stretch.sourceWidth * window.scale,
                      .height = stretch.targetHeight / stretch.sourceHeight * window.scale};
  return whole && step.width >= kMinStep && step.height >= kMinStep ? step : GridStep{};
}
