#include "shell/swatches.h"

#include "base/colours.h"
#include "base/windows_text.h"
#include "core/levels.h"
#include "shell/control_ids.h"

#include <algorithm>

namespace {

// A field of that colour with a border of one pixel. Paints every pixel once: no flicker.
void drawSwatch(const DRAWITEMSTRUCT &item, uint32_t colour, uint32_t textColour, const std::wstring &text) {
  RECT field = item.rcItem;
  FrameRect(item.hDC, &field, GetSysColorBrush(COLOR_WINDOWFRAME));
  InflateRect(&field, -1, -1);
  SetBkColor(item.hDC, swapRedBlue(colour));
  SetTextColor(item.hDC, swapRedBlue(textColour));
  SIZE size{};
  GetTextExtentPoint32W(item.hDC, text.c_str(), static_cast<int>(text.size()), &size);
  const int left = (field.left + field.right - size.cx) / 2;
  const int top = (field.top + field.bottom - size.cy) / 2;
  ExtTextOutW(item.hDC, left, top, ETO_OPAQUE | ETO_CLIPPED, &field, text.c_str(), static_cast<UINT>(text.size()),
              nullptr);
}

void drawReadout(const DRAWITEMSTRUCT &item, const std::wstring &text) {
  SetBkColor(item.hDC, GetSysColor(COLOR_BTNFACE));
  SetTextColor(item.hDC, GetSysColor(COLOR_BTNTEXT));
  SIZE size{};
  GetTextExtentPoint32W(item.hDC, text.c_str(), static_cast<int>(text.size()), &size);
  const LONG left = std::max(item.rcItem.left, item.rcItem.right - size.cx); // too long a text is cut at its end
  ExtTextOutW(item.hDC, left, item.rcItem.top, ETO_OPAQUE | ETO_CLIPPED, &item.rcItem, text.c_str(),
              static_cast<UINT>(text.size()), nullptr);
}

} // namespace

std::string swatchName(size_t index, uint32_t colour) {
  return "Color " + std::to_string(index) + ": " + colourAndLevels(colour);
}

void drawItem(const MainWindow &main, const DRAWITEMSTRUCT &item) {
  if (item.CtlType == ODT_BUTTON) {
    drawVideoButton(main.videoButtons, item);
    return;
  }
  const WindowModel &model = main.shown;
  const HGDIOBJ previous = SelectObject(item.hDC, main.font);
  if (item.CtlID == kReadoutId) {
    drawReadout(item, toUtf16(model.readout.text));
  } else if (item.CtlID == kReadoutSwatchId) {
    drawSwatch(item, model.readout.colour, 0, L"");
  } else if (const size_t index = item.CtlID - kLabel5Id; index < model.Label5.size()) {
    drawSwatch(item, model.Label5[index].background, model.Label5[index].text, std::to_wstring(index));
  }
  SelectObject(item.hDC, previous);
}
