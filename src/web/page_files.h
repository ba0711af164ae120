// The files that the page holds.
#pragma once

#include <cstddef>
#include <string>

// Where the page puts a text: `bytes` bytes, valid until the next call.
char *textRoom(size_t bytes);

// The text.
const std::string &roomText();
