// What the viewer asks of the window system: a table of functions, filled by the Windows shell, by the command line
// program and by the tests. Each function takes `context` first.
#pragma once

#include "core/file_ops.h"

#include <cstdint>
#include <span>
#include <string>

enum class MessageIcon { kWarning, kInformation };

struct PlatformOps {
  void *context = nullptr;
  const FileOps *files = nullptr;

  // Brings the window up to date and handles the events that wait; returns when none is left.
  // A handled event may run any command of the viewer.
  void (*runPendingEvents)(void *context) = nullptr;

  // Takes over the rendered picture as the one to show: `width` x `height` words 0x00RRGGBB, top row first.
  void (*presentPicture)(void *context, std::span<const uint32_t> frameBits, int32_t width, int32_t height) = nullptr;

  // Puts a device-independent bitmap (header and rows, without the file header) onto the clipboard.
  void (*copyToClipboard)(void *context, std::span<const uint8_t> bitmap) = nullptr;

  // Shows a message with an OK button and waits for it.
  void (*showMessage)(void *context, const std::string &title, const std::string &text, MessageIcon icon) = nullptr;

  // Ends the program; may return before it has ended.
  void (*exitProgram)(void *context) = nullptr;
};
