// The least that a program with a window does: one that reads a bitmap file and paints it, twice as large.
// Usage: minimal_window FILE
#include <windows.h>

#include <array>
#include <cstdio>
#include <cstring>

namespace {

std::array<char, size_t{1} << 20> file;

LRESULT CALLBACK handle(HWND window, UINT message, WPARAM word, LPARAM value) {
  if (message == WM_PAINT) {
    BITMAPFILEHEADER header;
    BITMAPINFO info{};
    std::memcpy(&header, file.data(), sizeof header);
    std::memcpy(&info.bmiHeader, file.data() + sizeof header, sizeof info.bmiHeader);
    const int width = info.bmiHeader.biWidth;
    const int height = info.bmiHeader.biHeight;
    PAINTSTRUCT paint;
    const HDC context = BeginPaint(window, &paint);
    StretchDIBits(context, 0, 0, 2 * width, 2 * height, 0, 0, width, height, file.data() + header.bfOffBits, &info,
                  DIB_RGB_COLORS, SRCCOPY);
    EndPaint(window, &paint);
    return 0;
  }
  return DefWindowProcA(window, message, word, value);
}

} // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR commandLine, int) {
  std::FILE *from = std::fopen(commandLine, "rb");
  if (from == nullptr || std::fread(file.data(), 1, file.size(), from) == 0) return 1;
  WNDCLASSA kind{};
  kind.lpfnWndProc = handle;
  kind.hInstance = instance;
  kind.lpszClassName = "MinimalWindow";
  RegisterClassA(&kind);
  CreateWindowA("MinimalWindow", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100, 640, 540, nullptr, nullptr, instance,
                nullptr);
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
  return 0;
}
