// Times what a user waits for: from the start of the viewer to its first picture on the screen, beside a minimal
// program that shows the same picture as a bitmap, and from PageDown to the next picture. Usage: window_times KORILAN
// MINIMAL_WINDOW, in an empty folder
#include "pixels/bitmap.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr int kStarts = 25;
constexpr int kPages = 60;
constexpr DWORD kPatienceMilliseconds = 20000;
constexpr int32_t kWidth = 256;
constexpr int32_t kHeight = 212;
constexpr uint8_t kBytes[] = {0x1C, 0xE0}; // red and green of Screen 8
constexpr COLORREF kColours[] = {RGB(252, 0, 0), RGB(0, 252, 0)};

double milliseconds() {
  LARGE_INTEGER count;
  LARGE_INTEGER perSecond;
  QueryPerformanceCounter(&count);
  QueryPerformanceFrequency(&perSecond);
  return static_cast<double>(count.QuadPart) * 1000 / static_cast<double>(perSecond.QuadPart);
}

double median(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

bool writeFile(const std::string &path, const std::vector<uint8_t> &bytes) {
  std::FILE *file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return false;
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  return std::fclose(file) == 0 && written;
}

std::string pageName(int page) { return "page" + std::to_string(100 + page) + ".SC8"; }

// Pictures of one colour each, in turn, and the first one as a bitmap.
bool writePictures() {
  std::vector<uint8_t> screen{0xFE, 0, 0, 0xFF, 0xD3, 0, 0};
  screen.resize(7 + size_t{kWidth} * kHeight);
  bool written = true;
  for (int page = 0; page <= 2 * kPages; ++page) {
    std::fill(screen.begin() + 7, screen.end(), kBytes[page % 2]);
    written = written && writeFile(pageName(page), screen);
  }
  const std::vector<uint32_t> pixels(size_t{kWidth} * kHeight, 0x00FC0000);
  std::vector<uint8_t> bitmap;
  putBitmap({pixels, kWidth, kHeight}, BitmapHeader::kFile, [&bitmap](std::span<const uint8_t> piece) {
    bitmap.insert(bitmap.end(), piece.begin(), piece.end());
    return std::string();
  });
  return written && writeFile("page.bmp", bitmap);
}

struct Shown {
  PROCESS_INFORMATION process{};
  HWND window = nullptr;
  POINT inside{};
};

COLORREF colourAt(const POINT &point) {
  const HDC screen = GetDC(nullptr);
  const COLORREF colour = GetPixel(screen, point.x, point.y);
  ReleaseDC(nullptr, screen);
  return colour;
}

bool findWindow(Shown &shown, const char *className) {
  HWND window = nullptr;
  while ((window = FindWindowExA(nullptr, window, className, nullptr)) != nullptr) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner != shown.process.dwProcessId || !IsWindowVisible(window)) continue;
    shown.window = window;
    shown.inside = {200, 200};
    ClientToScreen(window, &shown.inside);
    return true;
  }
  return false;
}

// Starts a program with a file; how long until the first picture stood on the screen, or -1.
double start(Shown &shown, const std::string &program, const char *className, const std::string &file) {
  std::string line = "\"" + program + "\" " + file;
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  const double begin = milliseconds();
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &shown.process)) {
    return -1;
  }
  while (milliseconds() - begin < kPatienceMilliseconds) {
    if ((shown.window != nullptr || findWindow(shown, className)) && colourAt(shown.inside) == kColours[0]) {
      return milliseconds() - begin;
    }
    Sleep(1); // to ask all the time would slow the program down
  }
  return -1;
}

void end(const Shown &shown) {
  TerminateProcess(shown.process.hProcess, 0);
  WaitForSingleObject(shown.process.hProcess, kPatienceMilliseconds);
  CloseHandle(shown.process.hProcess);
  CloseHandle(shown.process.hThread);
  Sleep(200); // until its window is gone from the screen
}

double pageDown(const Shown &shown, int page) {
  const double begin = milliseconds();
  PostMessageA(shown.window, WM_KEYDOWN, VK_NEXT, 1);
  while (colourAt(shown.inside) != kColours[page % 2]) {
    if (milliseconds() - begin > kPatienceMilliseconds) return -1;
  }
  return milliseconds() - begin;
}

} // namespace

int main(int argumentCount, char **arguments) {
  if (argumentCount != 3 || !writePictures()) return 2;
  std::vector<double> viewer;
  std::vector<double> minimal;
  for (int i = 0; i < kStarts; ++i) {
    Shown shown;
    viewer.push_back(start(shown, arguments[1], "KorilanMainWindow", pageName(0)));
    end(shown);
    shown = {};
    minimal.push_back(start(shown, arguments[2], "MinimalWindow", "page.bmp"));
    end(shown);
  }
  Shown shown;
  start(shown, arguments[1], "KorilanMainWindow", pageName(0));
  std::vector<double> pages;
  std::vector<double> fullScreenPages;
  for (int page = 1; page <= kPages; ++page) pages.push_back(pageDown(shown, page));
  PostMessageA(shown.window, WM_KEYDOWN, VK_F11, 1);
  Sleep(1000); // until the screen is covered
  shown.inside = {GetSystemMetrics(SM_CXSCREEN) / 2, GetSystemMetrics(SM_CYSCREEN) / 2};
  for (int page = kPages + 1; page <= 2 * kPages; ++page) fullScreenPages.push_back(pageDown(shown, page));
  end(shown);
  std::printf("start to picture: %.1f ms, minimal window %.1f ms, more %.1f ms\n", median(viewer), median(minimal),
              median(viewer) - median(minimal));
  std::printf("PageDown to picture: %.1f ms, in full screen %.1f ms\n", median(pages), median(fullScreenPages));
  return 0;
}
