// What the viewer asks of the window system: a table of functions, filled by the Windows shell, by the command line
// program and by the tests. Each function takes `context` first.
#pragma once

#include "base/file_ops.h"

#include <cstdint>
#include <span>
#include <string>

enum class MessageIcon { kNone, kWarning, kInformation };

struct PlatformOps {
  void *context = nullptr;
  const FileOps *files = nullptr;

  // Brings the window up to date and handles the events that wait; returns when none is left.
  // A handled event may run any command of the viewer.
  void (*runPendingEvents)(void *context) = nullptr;

  // Milliseconds since some moment; wraps after 49.7 days.
  uint32_t (*tickCount)(void *context) = nullptr;

  // Sleeps until an event waits, but no longer than that.
  void (*waitForEvents)(void *context, uint32_t milliseconds) = nullptr;

  // Takes over the rendered picture as the one to show: `width` x `height` words 0x00RRGGBB, top row first.
  void (*presentPicture)(void *context, std::span<const uint32_t> frameBits, int32_t width, int32_t height) = nullptr;

  // Puts a device-independent bitmap onto the clipboard (header and rows, without the file header), with the plain
  // header and with the version 5 one. Returns false when another program holds the clipboard or memory is lacking.
  bool (*copyToClipboard)(void *context, std::span<const uint8_t> bitmap, std::span<const uint8_t> bitmapV5) = nullptr;

  // Asks for a file to open; `filter` holds pairs of description and pattern, each closed by a NUL, and one NUL more.
  // Returns its full path, or an empty text when the user cancels or the dialog fails.
  std::string (*askOpenFileName)(void *context, const std::string &filter,
                                 const std::string &initialDirectory) = nullptr;

  // Shows a message with an OK button and waits for it.
  void (*showMessage)(void *context, const std::string &title, const std::string &text, MessageIcon icon) = nullptr;

  // Shows a text that can be selected and copied, lines ended by "\n" and columns parted by tabs, and waits until the
  // user has closed it.
  void (*showText)(void *context, const std::string &title, const std::string &text) = nullptr;

  // Shows the Preferences dialog, which starts from storedPreferences() and runs menuSavePreferences_Click(), and waits
  // until the user has closed it.
  void (*showPreferences)(void *context) = nullptr;

  // Settings: one text for each key of the store of file classes. A key that is missing reads as an empty text; a
  // failed write changes nothing and is not reported.
  std::string (*readSetting)(void *context, const std::string &key) = nullptr;
  void (*writeSetting)(void *context, const std::string &key, const std::string &value) = nullptr;
  void (*deleteSetting)(void *context, const std::string &key) = nullptr;

  // Tells the desktop that file associations have changed.
  void (*notifyAssociations)(void *context) = nullptr;

  // Full path of the running program.
  std::string (*programPath)(void *context) = nullptr;

  // Plays a WAVE file over and over, from where it stands in memory: it stays there, and is written meanwhile.
  // Without a sound device nothing happens.
  void (*startSound)(void *context, std::span<const uint8_t> image) = nullptr;

  // Plays a WAVE file to its end, which ends the one that plays.
  void (*stopSound)(void *context, std::span<const uint8_t> silence) = nullptr;

  // Ends the program; may return before it has ended.
  void (*exitProgram)(void *context) = nullptr;
};
