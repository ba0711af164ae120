#include "shell/scale_functions.h"

#include "shell/system_library.h"

namespace {

template <typename Function> Function *user32Function(const char *name) {
  return libraryFunction<Function>(GetModuleHandleW(L"user32.dll"), name);
}

} // namespace

const ScaleFunctions &scaleFunctions() {
  static const ScaleFunctions functions = {
      .dpiForWindow = user32Function<decltype(GetDpiForWindow)>("GetDpiForWindow"),
      .systemMetric = user32Function<decltype(GetSystemMetricsForDpi)>("GetSystemMetricsForDpi"),
      .systemParameters = user32Function<decltype(SystemParametersInfoForDpi)>("SystemParametersInfoForDpi"),
      .adjustWindowRect = user32Function<decltype(AdjustWindowRectExForDpi)>("AdjustWindowRectExForDpi"),
      .enableNonClientScaling = user32Function<decltype(EnableNonClientDpiScaling)>("EnableNonClientDpiScaling"),
  };
  return functions;
}

bool systemIsSupported() {
  const ScaleFunctions &functions = scaleFunctions();
  return functions.dpiForWindow != nullptr && functions.systemMetric != nullptr &&
         functions.systemParameters != nullptr && functions.adjustWindowRect != nullptr &&
         functions.enableNonClientScaling != nullptr;
}
