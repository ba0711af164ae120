#include "copy_encoders.h"

#include "encoders.h"

namespace samples {

Bytes copyFile(int width, int height, const Bytes &pixels) {
  Bytes file;
  appendWord(file, width);
  appendWord(file, height);
  file.insert(file.end(), pixels.begin(), pixels.end());
  return file;
}

Bytes packRunningNibbles(Bytes indexes) {
  indexes.resize((indexes.size() + 1) / 2 * 2);
  return packNibbles(indexes);
}

Bytes packRunningCrumbs(Bytes indexes) {
  indexes.resize((indexes.size() + 3) / 4 * 4);
  return packCrumbs(indexes);
}

} // namespace samples
