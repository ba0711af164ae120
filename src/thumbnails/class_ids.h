// The COM class of each kind of file. The host gives a provider a stream without a name, so the class says what kind
// it is.
#pragma once

#include "state/file_kind.h"

#include <windows.h>

#include <string>

// {5D5C1B7E-93F0-4E4C-8A26-6B6F72xxxxxx}, whose last three bytes are the letters of the extension.
CLSID classIdOf(const FileKind &kind);

// The kind of a class; nullptr if it is none of ours.
const FileKind *kindOfClass(REFCLSID id);

// In braces, as in the registry.
std::wstring textOf(REFGUID id);
