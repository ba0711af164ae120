// korilan-thumbnails.dll: what COM and regsvr32 call.
#include "base/windows_text.h"
#include "thumbnails/class_ids.h"
#include "thumbnails/com_object.h"
#include "thumbnails/registration.h"
#include "thumbnails/thumbnail_provider.h"

#include <windows.h>

#include <olectl.h>

#include <new>

namespace {

class ClassFactory final : public ComObject<IClassFactory> {
public:
  explicit ClassFactory(const FileKind &ofKind) : kind(ofKind) {}

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown *outer, REFIID id, void **object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    return outer == nullptr ? createThumbnailProvider(kind, id, object) : CLASS_E_NOAGGREGATION;
  }

  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    libraryUses += lock != FALSE ? 1 : -1;
    return S_OK;
  }

private:
  const FileKind &kind;
};

std::wstring libraryPath() {
  HMODULE library = nullptr;
  constexpr DWORD kFlags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  GetModuleHandleExW(kFlags, reinterpret_cast<LPCWSTR>(&libraryUses), &library);
  return modulePath(library);
}

} // namespace

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void **factory) {
  if (factory == nullptr) return E_POINTER;
  *factory = nullptr;
  const FileKind *kind = kindOfClass(classId);
  if (kind == nullptr) return CLASS_E_CLASSNOTAVAILABLE;
  return takeInterface(new (std::nothrow) ClassFactory(*kind), id, factory);
}

STDAPI DllCanUnloadNow() { return libraryUses == 0 ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() { return registerProviders(libraryPath()) ? S_OK : SELFREG_E_CLASS; }

STDAPI DllUnregisterServer() { return unregisterProviders() ? S_OK : SELFREG_E_CLASS; }
