// The providers in the registry: for the user alone, without rights of an administrator.
#pragma once

#include <string>

// Registers the library at `libraryPath` for each kind that has thumbnails, but for no extension that already has a
// provider of another program. Returns false, with nothing registered, on failure.
bool registerProviders(const std::wstring &libraryPath);

// Deletes what registerProviders() wrote, and keys that are empty then. Returns false if anything is left.
bool unregisterProviders();
