// Functions of user32 that came with Windows 10 1607. They are looked up: imported by name, they would keep older
// systems from starting the program, which then could not say why.
#pragma once

#include <windows.h>

struct ScaleFunctions {
  decltype(GetDpiForWindow) *dpiForWindow;
  decltype(GetSystemMetricsForDpi) *systemMetric;
  decltype(SystemParametersInfoForDpi) *systemParameters;
  decltype(AdjustWindowRectExForDpi) *adjustWindowRect;
  decltype(EnableNonClientDpiScaling) *enableNonClientScaling;
};

const ScaleFunctions &scaleFunctions();

// Whether all of them exist.
bool systemIsSupported();
