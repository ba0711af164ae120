// The window system as a table of functions, each with `context` first; filled by the shell and the headless platform.
#pragma once

#include "base/file_ops.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>

// A form of the picture for the clipboard: its length, and what writes it into that many bytes.
struct ClipboardForm {
  size_t bytes;
  std::function<void(std::span<uint8_t> into)> write;
};

struct ClipboardPicture {
  ClipboardForm bitmap; // device-independent: header and rows, without the file header
  ClipboardForm bitmapV5;
  ClipboardForm png; // of no bytes if the picture is empty
};

enum class MessageIcon { kNone, kWarning, kInformation };

struct PlatformOps {
  void *context = nullptr;
  const FileOps *files = nullptr;

  // Repaints the window and handles all pending events. An event may run any command of the viewer.
  void (*runPendingEvents)(void *context) = nullptr;

  // Milliseconds since an arbitrary start; wraps after 49.7 days.
  uint32_t (*tickCount)(void *context) = nullptr;

  // Sleeps until an event is pending, at most `milliseconds`.
  void (*waitForEvents)(void *context, uint32_t milliseconds) = nullptr;

  // Play returns at once, and the platform calls stepVideo() until the run has ended: one that must not wait.
  bool stepsVideos = false;

  // The rendered picture is complete: `width` x `height` words 0x00RRGGBB, top row first.
  void (*presentPicture)(void *context, std::span<const uint32_t> frameBits, int32_t width, int32_t height) = nullptr;

  // Puts the picture onto the clipboard. Returns false if another program holds the clipboard or memory runs out.
  bool (*copyToClipboard)(void *context, const ClipboardPicture &picture) = nullptr;

  // Asks for a file to open; `filter` is a list of description and pattern, each ended by a NUL, and a final NUL.
  // Returns its full path; empty if the user cancels or the dialog fails.
  std::string (*askOpenFileName)(void *context, const std::string &filter,
                                 const std::string &initialDirectory) = nullptr;

  // Has the desktop's file manager show the folder of a file, given by its full path, with the file selected.
  bool (*showInFolder)(void *context, const std::string &path) = nullptr;

  // Shows a modal message with an OK button.
  void (*showMessage)(void *context, const std::string &title, const std::string &text, MessageIcon icon) = nullptr;

  // Asks a question with Yes and No; No is the answer if the user leaves it.
  bool (*askYesNo)(void *context, const std::string &title, const std::string &text) = nullptr;

  // Shows a selectable text in a modal dialog; lines end in "\n", columns are separated by tabs.
  void (*showText)(void *context, const std::string &title, const std::string &text) = nullptr;

  // Shows the modal Preferences dialog: starts from storedPreferences(), saves by menuSavePreferences_Click().
  void (*showPreferences)(void *context) = nullptr;

  // Settings: one text per key of the store of file classes. A missing key reads as an empty text; a failed write
  // changes nothing and is not reported.
  std::string (*readSetting)(void *context, const std::string &key) = nullptr;
  void (*writeSetting)(void *context, const std::string &key, const std::string &value) = nullptr;
  void (*deleteSetting)(void *context, const std::string &key) = nullptr;

  // Values of the program's own key of the user's settings. A missing one, or one of another type, reads as nothing.
  std::optional<std::string> (*readValue)(void *context, const std::string &name) = nullptr;
  void (*writeValue)(void *context, const std::string &name, const std::string &value) = nullptr;

  // Tells the desktop that file associations have changed.
  void (*notifyAssociations)(void *context) = nullptr;

  // Full path of the running program.
  std::string (*programPath)(void *context) = nullptr;

  // Loops a WAVE file from its first sample on. The file is read in place and written meanwhile; it must not move.
  // Returns when the device is open. Without a sound device nothing happens.
  void (*startSound)(void *context, std::span<const uint8_t> image) = nullptr;

  // Pauses the loop; resumes it at the same sample.
  void (*holdSound)(void *context) = nullptr;
  void (*resumeSound)(void *context) = nullptr;

  // Ends the loop at once; a device that ends only by another sound plays `silence`, a WAVE file.
  void (*stopSound)(void *context, std::span<const uint8_t> silence) = nullptr;

  // Requests the program's end; may return.
  void (*exitProgram)(void *context) = nullptr;
};
