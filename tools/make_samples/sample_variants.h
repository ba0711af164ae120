#pragma once

// Broken and renamed copies of whole samples.

#include <cstddef>

#include "sample_pictures.h"

namespace samples {

SamplePicture withByte(SamplePicture picture, const std::string &name, std::size_t position, std::uint8_t value);
SamplePicture renamed(SamplePicture picture, const std::string &name);

// The first bytes of the file, or zeros behind all of them.
SamplePicture cutTo(SamplePicture picture, const std::string &name, std::size_t size);

// Refused with the error line of its extension.
SamplePicture refused(const SamplePicture &picture);

// Refused without a word.
SamplePicture ignored(const SamplePicture &picture);

SamplePicture blankFile(const std::string &name);

} // namespace samples
