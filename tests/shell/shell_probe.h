// Questions that a test asks from inside the viewer's process, where menus and dropped files can be reached.
#pragma once

#include <cstddef>

// Registered window messages, sent to the main window.
inline constexpr char kAskMenusMessage[] = "KorilanProbeMenus"; // answer: a line "File/Close grey" for each item
inline constexpr char kDropFileMessage[] = "KorilanProbeDrop";  // drops the file named in the shared text on MainView

// The text that test and probe share.
inline constexpr char kSharedTextName[] = "KorilanProbeText";
inline constexpr size_t kSharedTextBytes = 8192;

// The hook procedure that the probe exports.
inline constexpr char kProbeProcedureName[] = "probeMessage";
