// A viewer without a window whose files lie in memory.
#pragma once

#include "core/commands.h"
#include "headless/headless_platform.h"
#include "support/memory_files.h"

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
};
