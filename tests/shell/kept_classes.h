// The store of file classes, as tests read and write it without the viewer's own code.
#pragma once

#include <string>

// The classes that Preferences write and delete are taken away while this lives, and put back at its end.
struct KeptClasses {
  KeptClasses();
  ~KeptClasses();
  KeptClasses(const KeptClasses &) = delete;
  KeptClasses &operator=(const KeptClasses &) = delete;
};

// Text of a key under HKEY_CLASSES_ROOT; "(none)" where there is none.
std::string classText(const std::string &key);

// Registers a text for the user, as an installer would.
void writeClass(const std::string &key, const std::string &text);

// A line "key = text" for each key that Preferences may write.
std::string classLines();
