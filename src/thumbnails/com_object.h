// What every COM object does: it counts its users, finds its interfaces, and keeps the library loaded.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <atomic>

// Objects and server locks for which the library has to stay loaded.
inline std::atomic<long> libraryUses = 0;

// Made with one user by `new`; deleted by its last Release().
template <typename... Interfaces> class ComObject : public Interfaces... {
public:
  ComObject() { ++libraryUses; }
  ComObject(const ComObject &) = delete;
  ComObject &operator=(const ComObject &) = delete;
  virtual ~ComObject() { --libraryUses; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void **object) final {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    // IUnknown is always that of the last interface.
    const auto offer = [&](REFIID offered, auto *self) {
      if (id == offered || id == __uuidof(IUnknown)) *object = self;
    };
    (offer(__uuidof(Interfaces), static_cast<Interfaces *>(this)), ...);
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }

  ULONG STDMETHODCALLTYPE AddRef() final { return ++users; }

  ULONG STDMETHODCALLTYPE Release() final {
    const ULONG left = --users;
    if (left == 0) delete this;
    return left;
  }

private:
  std::atomic<ULONG> users = 1;
};

// The interface of a new object, which `object` may be nullptr for lack of memory; the caller's use of it ends.
template <typename Object> HRESULT takeInterface(Object *object, REFIID id, void **result) {
  if (object == nullptr) return E_OUTOFMEMORY;
  const HRESULT found = object->QueryInterface(id, result);
  object->Release();
  return found;
}
