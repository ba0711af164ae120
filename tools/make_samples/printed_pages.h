#pragma once

// Pages of 512 x 704 pixels, twice as tall as wide, in white (0) and black (1).

#include "sample_builders.h"

namespace samples {

IndexedPicture newsPage(Gallery &gallery);
IndexedPicture posterPage(Gallery &gallery);

} // namespace samples
