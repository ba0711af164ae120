#include "shell/window_memory.h"

#include "shell/main_window.h"
#include "shell/win32_helpers.h"
#include "state/platform_calls.h"

#include <array>
#include <charconv>
#include <optional>
#include <string>

//  Place      "left,top" in pixels of the screen
//  Size       "width,height"; empty while the window follows its picture
//  Maximised  "1" or "0"

namespace {

constexpr const char *kPlace = "Place";
constexpr const char *kSize = "Size";
constexpr const char *kMaximised = "Maximised";

// nullopt unless the value is two numbers of 16 bits.
std::optional<std::array<int16_t, 2>> readPair(const ViewerState &viewer, const char *name) {
  const std::string text = readValue(viewer, name).value_or("");
  const char *end = text.data() + text.size();
  std::array<int16_t, 2> pair{};
  const auto first = std::from_chars(text.data(), end, pair[0]);
  if (first.ec != std::errc() || first.ptr == end || *first.ptr != ',') return std::nullopt;
  const auto second = std::from_chars(first.ptr + 1, end, pair[1]);
  if (second.ec != std::errc() || second.ptr != end) return std::nullopt;
  return pair;
}

std::string pairText(LONG first, LONG second) { return std::to_string(first) + "," + std::to_string(second); }

// A placement counts from the work area.
RECT onScreen(RECT place) {
  const MONITORINFO monitor = infoOf(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST));
  OffsetRect(&place, monitor.rcWork.left - monitor.rcMonitor.left, monitor.rcWork.top - monitor.rcMonitor.top);
  return place;
}

} // namespace

WindowMemory recallWindow(const ViewerState &viewer) {
  WindowMemory memory;
  if (const auto place = readPair(viewer, kPlace)) memory.corner = {(*place)[0], (*place)[1]};
  const auto size = readPair(viewer, kSize);
  memory.sizedByHand = size && (*size)[0] > 0 && (*size)[1] > 0;
  if (memory.sizedByHand) memory.size = {(*size)[0], (*size)[1]};
  memory.maximised = readValue(viewer, kMaximised) == "1";
  return memory;
}

void rememberWindow(const MainWindow &main) {
  WINDOWPLACEMENT placement = main.fullScreen.placement;
  placement.length = sizeof placement;
  if (!main.shown.fullScreen) GetWindowPlacement(main.window, &placement);
  const RECT place = onScreen(placement.rcNormalPosition);
  const SIZE size = sizeOf(place);
  const bool maximised = placement.showCmd == SW_SHOWMAXIMIZED ||
                         (placement.showCmd == SW_SHOWMINIMIZED && (placement.flags & WPF_RESTORETOMAXIMIZED) != 0);
  const ViewerState &viewer = *main.viewer;
  const bool moved = place.left != main.evadedTo.x || place.top != main.evadedTo.y;
  const bool byHand = size.cx != main.fittedSize.cx || size.cy != main.fittedSize.cy;
  if (moved) writeValue(viewer, kPlace, pairText(place.left, place.top));
  writeValue(viewer, kSize, byHand ? pairText(size.cx, size.cy) : "");
  writeValue(viewer, kMaximised, maximised ? "1" : "0");
}
