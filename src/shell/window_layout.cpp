#include "shell/window_layout.h"

#include <algorithm>

namespace {

// Distances at 96 dots per inch.
constexpr int kMargin = 8;
constexpr int kLabelGap = 6;
constexpr int kRowGap = 2;

// Room for the longest texts, in average characters: "00000x00000", "16 bpp", "256 colors".
constexpr std::array<int, 3> kFieldCharacters = {12, 8, 12};

// Room that the status line has at the least, also below a narrow picture.
constexpr int kStatusCharacters = 40;

int scaled(int distance, const TextMetrics &metrics) { return MulDiv(distance, metrics.dotsPerInch, 96); }

int labelRowsHeight(const TextMetrics &metrics) { return 2 * metrics.lineHeight + scaled(kRowGap, metrics); }

} // namespace

SIZE contentSize(const WindowModel &model, const TextMetrics &metrics) {
  const int margin = scaled(kMargin, metrics);
  int fieldsWidth = 0;
  for (const int characters : kFieldCharacters) fieldsWidth += characters * metrics.characterWidth;
  const int labelsWidth = std::max(fieldsWidth, kStatusCharacters * metrics.characterWidth);
  return {
      .cx = 2 * margin + std::max(static_cast<int>(model.mainViewWidth), labelsWidth),
      .cy = 2 * margin + model.mainViewHeight + scaled(kLabelGap, metrics) + labelRowsHeight(metrics),
  };
}

WindowLayout layOutWindow(const WindowModel &model, const TextMetrics &metrics, SIZE client) {
  const int margin = scaled(kMargin, metrics);
  WindowLayout layout;
  // On a small screen the picture area is cut, and the labels stay readable below it.
  const int gap = scaled(kLabelGap, metrics);
  const int mostWidth = std::max(0, static_cast<int>(client.cx) - 2 * margin);
  const int mostHeight = std::max(0, static_cast<int>(client.cy) - 2 * margin - gap - labelRowsHeight(metrics));
  const int width = std::min(static_cast<int>(model.mainViewWidth), mostWidth);
  const int height = std::min(static_cast<int>(model.mainViewHeight), mostHeight);
  layout.mainView = {margin, margin, margin + width, margin + height};

  const int fieldsTop = margin + height + gap;
  int left = margin;
  for (size_t field = 0; field < kFieldCharacters.size(); ++field) {
    const int right = left + kFieldCharacters[field] * metrics.characterWidth;
    layout.labels[field] = {left, fieldsTop, right, fieldsTop + metrics.lineHeight};
    left = right;
  }

  const int statusTop = fieldsTop + metrics.lineHeight + scaled(kRowGap, metrics);
  const int statusRight = std::max(margin, static_cast<int>(client.cx) - margin);
  layout.labels[3] = {margin, statusTop, statusRight, statusTop + metrics.lineHeight};
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
