// The COM object that makes a thumbnail of one file.
#pragma once

#include "state/file_kind.h"

#include <windows.h>

// Creates a provider for files of a kind: IInitializeWithStream, once, and IThumbnailProvider. It copies the stream
// and does not keep it.
HRESULT createThumbnailProvider(const FileKind &kind, REFIID id, void **provider);
