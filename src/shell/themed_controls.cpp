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
  if (cookie != 0) DeactivateActCtx(0, cookie);
}
