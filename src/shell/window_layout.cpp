#include "shell/window_layout.h"

#include "state/window_model.h"

#include <algorithm>

namespace {

// Pixels at 96 dots per inch.
constexpr int kMargin = 8;
constexpr int kLabelGap = 6;
constexpr int kRowGap = 2;
constexpr int kFieldGap = 8;
constexpr int kSwatchPadding = 3;
constexpr int kButtonSide = 26;
constexpr int kFrameBarHeight = 17;

// Widths of Label1 to Label3 in average characters, for "00000x00000", "16 bpp", "256 colors".
constexpr std::array<int, 3> kFieldCharacters = {12, 8, 12};

// Minimum width of the status line; width of the read-out, for
// "00000, 00000   color 00   #FFFFFF   R7 G7 B7", whose blanks are narrow.
constexpr int kMinStatusCharacters = 44;
constexpr int kReadoutCharacters = 36;

int scaled(int distance, const TextMetrics &metrics) {
  return MulDiv(distance, metrics.dotsPerInch, USER_DEFAULT_SCREEN_DPI);
}

// For two digits.
int swatchWidth(const TextMetrics &metrics) { return 2 * metrics.characterWidth + 2 * scaled(kSwatchPadding, metrics); }

int rowHeight(const TextMetrics &metrics) { return metrics.lineHeight + scaled(kRowGap, metrics); }

int labelRowsHeight(const TextMetrics &metrics) { return 2 * rowHeight(metrics); }

// The row of Play, Stop and the frame bar, with the gap above it.
int videoRowHeight(const WindowModel &model, const TextMetrics &metrics) {
  return model.HScroll1.visible ? scaled(kLabelGap + kButtonSide, metrics) : 0;
}

// All rows below MainView.
int rowsHeight(const WindowModel &model, const TextMetrics &metrics) {
  return videoRowHeight(model, metrics) + scaled(kLabelGap, metrics) + labelRowsHeight(metrics);
}

int fieldsWidth(const TextMetrics &metrics) {
  int width = 0;
  for (const int characters : kFieldCharacters) width += characters * metrics.characterWidth;
  return width;
}

// A rectangle at `left`, which advances by its width.
RECT nextRectangle(LONG &left, LONG top, int width, int height) {
  const RECT rectangle{left, top, left + width, top + height};
  left += width;
  return rectangle;
}

// MainView's border lies outside the window; all else has no size.
WindowLayout layOutFullScreen(SIZE client) {
  WindowLayout layout;
  layout.mainView = {-kViewBorder, -kViewBorder, client.cx + kViewBorder, client.cy + kViewBorder};
  return layout;
}

} // namespace

SIZE pictureAreaOf(const WindowModel &model) {
  const SIZE unscaled{model.mainViewWidth - kViewBorders, model.mainViewHeight - kViewBorders};
  const Stretch &stretch = model.stretch;
  if (stretch.targetWidth <= 0 || stretch.targetHeight <= 0) {
    return {unscaled.cx * model.scale, unscaled.cy * model.scale};
  }
  return {std::max(unscaled.cx, LONG{stretch.targetWidth} * model.scale),
          std::max(unscaled.cy, LONG{stretch.targetHeight} * model.scale)};
}

SIZE contentSize(const WindowModel &model, SIZE area, const TextMetrics &metrics, SIZE room) {
  const int margins = 2 * scaled(kMargin, metrics);
  const int gap = scaled(kFieldGap, metrics);
  const int firstRow = fieldsWidth(metrics) + gap + 16 * swatchWidth(metrics);
  const int secondRow =
      (kMinStatusCharacters + kReadoutCharacters) * metrics.characterWidth + 2 * gap + swatchWidth(metrics);
  LONG width = margins + area.cx + kViewBorders;
  LONG height = margins + area.cy + kViewBorders + rowsHeight(model, metrics);
  if (width > room.cx) height += metrics.scrollBarWidth;
  if (height > room.cy) width += metrics.scrollBarWidth;
  return {std::max({width, LONG{margins + firstRow}, LONG{margins + secondRow}}), height};
}

WindowLayout layOutWindow(const WindowModel &model, const TextMetrics &metrics, SIZE client) {
  if (model.fullScreen) return layOutFullScreen(client);
  const int margin = scaled(kMargin, metrics);
  const int gap = scaled(kFieldGap, metrics);
  const LONG labelGap = scaled(kLabelGap, metrics);
  const LONG width = std::max(LONG{0}, client.cx - 2 * margin);
  const LONG height = std::max(LONG{0}, client.cy - 2 * margin - rowsHeight(model, metrics));

  WindowLayout layout;
  layout.mainView = {margin, margin, margin + width, margin + height};

  const LONG videoTop = margin + height + labelGap;
  const int buttonSide = scaled(kButtonSide, metrics);
  const LONG barTop = videoTop + (buttonSide - scaled(kFrameBarHeight, metrics)) / 2;
  LONG buttonLeft = margin;
  for (RECT &button : layout.videoButtons) {
    button = nextRectangle(buttonLeft, videoTop, buttonSide, buttonSide);
    buttonLeft += gap / 2;
  }
  buttonLeft += gap / 2;
  layout.frameBar = {buttonLeft, barTop, std::max(buttonLeft, margin + width),
                     barTop + scaled(kFrameBarHeight, metrics)};

  const LONG firstRow = margin + height + videoRowHeight(model, metrics) + labelGap;
  LONG left = margin;
  for (size_t field = 0; field < kFieldCharacters.size(); ++field) {
    layout.labels[field] =
        nextRectangle(left, firstRow, kFieldCharacters[field] * metrics.characterWidth, metrics.lineHeight);
  }
  left += gap;
  for (RECT &swatch : layout.swatches) {
    swatch = nextRectangle(left, firstRow, swatchWidth(metrics), metrics.lineHeight);
  }

  const LONG secondRow = firstRow + rowHeight(metrics);
  const LONG right = std::max(LONG{margin}, client.cx - margin);
  const LONG swatchLeft = right - swatchWidth(metrics);
  const LONG readoutRight = swatchLeft - gap;
  const LONG readoutLeft = readoutRight - kReadoutCharacters * metrics.characterWidth;
  layout.labels[3] = {margin, secondRow, std::max(LONG{margin}, readoutLeft - gap), secondRow + metrics.lineHeight};
  layout.readout = {readoutLeft, secondRow, readoutRight, secondRow + metrics.lineHeight};
  layout.readoutSwatch = {swatchLeft, secondRow, right, secondRow + metrics.lineHeight};
  return layout;
}

RECT keptOnWorkArea(RECT window, const RECT &workArea) {
  const LONG width = std::min(window.right - window.left, workArea.right - workArea.left);
  const LONG height = std::min(window.bottom - window.top, workArea.bottom - workArea.top);
  const LONG left = std::clamp(window.left, workArea.left, workArea.right - width);
  const LONG top = std::clamp(window.top, workArea.top, workArea.bottom - height);
  return {left, top, left + width, top + height};
}

RECT centredOnWorkArea(SIZE window, const RECT &workArea) {
  const LONG left = (workArea.left + workArea.right - window.cx) / 2;
  const LONG top = (workArea.top + workArea.bottom - window.cy) / 2;
  return {left, top, left + window.cx, top + window.cy};
}

RECT freePlace(RECT window, std::span<const POINT> taken, int step, const RECT &workArea) {
  const auto isTaken = [&](const POINT &corner) { return corner.x == window.left && corner.y == window.top; };
  for (size_t steps = 0; steps < taken.size() && std::any_of(taken.begin(), taken.end(), isTaken); ++steps) {
    OffsetRect(&window, step, step);
    if (window.right <= workArea.right && window.bottom <= workArea.bottom) continue;
    OffsetRect(&window, workArea.left - window.left, workArea.top - window.top);
  }
  return window;
}
