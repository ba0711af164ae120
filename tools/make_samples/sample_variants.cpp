#include "sample_variants.h"

namespace samples {

SamplePicture withByte(SamplePicture picture, const std::string &name, std::size_t position, std::uint8_t value) {
  picture.name = name;
  picture.bytes[position] = value;
  return picture;
}

SamplePicture renamed(SamplePicture picture, const std::string &name) {
  picture.name = name;
  return picture;
}

SamplePicture refused(const SamplePicture &picture) {
  std::string extension = picture.name.substr(picture.name.size() - 4);
  for (char &letter : extension) {
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  }
  return {picture.name, picture.bytes, 0, 0, {}, "*** Error: Not a valid " + extension + " file."};
}

SamplePicture ignored(const SamplePicture &picture) { return {picture.name, picture.bytes, 0, 0, {}, ""}; }

SamplePicture blankFile(const std::string &name) { return {name, {}, 0, 0, {}, ""}; }

SamplePicture cutTo(SamplePicture picture, const std::string &name, std::size_t size) {
  picture.name = name;
  picture.bytes.resize(size);
  return picture;
}

} // namespace samples
