// PlatformOps for Windows.
#pragma once

#include "shell/main_window.h"
#include "state/platform_ops.h"

// The table for `main`, which must outlive every call.
PlatformOps windowsPlatform(MainWindow &main);
