// A viewer without a window whose files lie in memory, and what it shows as text.
#pragma once

#include "core/commands.h"
#include "core/keys.h"
#include "core/menus.h"
#include "headless/headless_platform.h"
#include "support/bytes.h"
#include "support/memory_files.h"

#include <gtest/gtest.h>
#include <sstream>

inline std::vector<uint8_t> bytesOf(const VideoMemory &memory) { return {memory.begin(), memory.end()}; }

struct TestViewer {
  ViewerState viewer;
  HeadlessPlatform platform;

  // An empty window after start-up, on an empty disk.
  TestViewer() {
    memoryDisk().clear();
    attachHeadless(viewer, platform);
    viewer.platform.files = &memoryFiles();
    startViewer(viewer, "");
    platform.log.clear();
  }

  // Puts `bytes` on the disk as `path` and opens it.
  void open(const std::string &path, std::vector<uint8_t> bytes) {
    memoryDisk()[path] = std::move(bytes);
    openPath(viewer, path);
  }

  void pressCtrl(char letter) { pressKey(viewer, {letter, true}); }
};

// The letters of the keys of the enabled menu items.
inline std::string menuText(const WindowModel &window) {
  std::string keys;
  for (const MenuRow &row : kMenuRows) {
    const bool letter = std::isupper(row.shortcut.code) != 0 && row.shortcut.use != ShortcutUse::kWithCtrlAndShift;
    if (letter && menuRowEnabled(window, row)) keys += static_cast<char>(row.shortcut.code);
  }
  return keys;
}

// Everything of the picture that a refused file must leave as it was, but the check mark of 1:2.
inline std::string pictureText(const ViewerState &viewer) {
  const auto digest = [](const auto &items) {
    const auto *bytes = reinterpret_cast<const char *>(items.data());
    return std::hash<std::string_view>{}({bytes, items.size() * sizeof(items[0])});
  };
  const WindowModel &window = viewer.window;
  return testing::PrintToString(std::tuple(viewer.pictureShown, window.mainViewWidth, window.mainViewHeight,
                                           window.stretch.targetWidth, window.stretch.targetHeight, window.Label1,
                                           window.Label2, window.Label3, menuText(window), digest(viewer.palette),
                                           digest(viewer.vram), digest(viewer.frameBits)));
}

// The words of `list` between blanks.
inline std::vector<std::string> wordsOf(const std::string &list) {
  std::istringstream words(list);
  return {std::istream_iterator<std::string>(words), {}};
}
