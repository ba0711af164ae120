#include "shell/themed_controls.h"

#include "shell/control_ids.h"

namespace {

HANDLE createContext() {
  ACTCTXW request{};
  request.cbSize = sizeof request;
  request.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  request.hModule = GetModuleHandleW(nullptr);
  request.lpResourceName = MAKEINTRESOURCEW(kThemedControlsManifest);
  return CreateActCtxW(&request);
}

} // namespace

ThemedControls::ThemedControls() {
  static const HANDLE context = createContext();
  if (context == INVALID_HANDLE_VALUE || !ActivateActCtx(context, &cookie)) cookie = 0;
}

ThemedControls::~ThemedControls() {
  // A shell extension in the open dialog may have left a context of its own active: without the flag that would raise
  // an exception.
  if (cookie != 0) DeactivateActCtx(DEACTIVATE_ACTCTX_FLAG_FORCE_EARLY_DEACTIVATION, cookie);
}
