// What the viewer asks of Windows.
#pragma once

#include "state/platform_ops.h"
#include "shell/main_window.h"

// The table for that window, which must outlive every call.
PlatformOps windowsPlatform(MainWindow &main);
