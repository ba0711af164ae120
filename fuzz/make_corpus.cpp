// Writes the seeds of each fuzz target, made from the samples, into folders of their own. Usage: make_corpus FOLDER
#include "core/file_kinds.h"
#include "base/text.h"
#include "disk_image_maker.h"
#include "sample_pictures.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

using Bytes = std::vector<uint8_t>;

struct Corpus {
  std::filesystem::path folder;
  size_t count = 0;

  void add(const char *target, const Bytes &start, const Bytes &bytes, size_t from = 0) {
    std::filesystem::create_directories(folder / target);
    std::ofstream file(folder / target / ("seed-" + std::to_string(count++)), std::ios::binary);
    file.write(reinterpret_cast<const char *>(start.data()), std::ssize(start));
    if (from < bytes.size()) {
      file.write(reinterpret_cast<const char *>(bytes.data()) + from,
                 std::ssize(bytes) - static_cast<std::ptrdiff_t>(from));
    }
  }
};

// A target that takes the samples of some kinds, from a byte of the file on, behind bytes of its own.
struct SeedRow {
  const char *target;
  std::string_view extensions;
  size_t from;
  Bytes start;
};

// NOLINTNEXTLINE(cert-err58-cpp): without memory there is no corpus to make
const SeedRow kRows[] = {
    {"depack_bload", ".SR5 .SR7", 7, {}},
    {"depack_page", ".PCT", 0, {}},
    {"depack_cmp", ".CMP", 0, {}},
    {"depack_g9b", ".G9B", 16, {}},
    {"players", ".EVA", 0, {0, 6, 1, 0, 7, 0, 0, 3, 2, 0, 1, 0, 5, 1}},
    {"players", ".EV8", 0, {1, 4, 1, 0, 7, 0, 4, 0, 3, 0}},
    {"players", ".VID", 0, {2, 5, 1, 0, 7, 0, 5, 3, 6, 34, 0, 2}},
};

constexpr size_t kLargestSeed = 40000; // libFuzzer gets slow with long inputs

} // namespace

int main(int argumentCount, char **arguments) {
  if (argumentCount != 2) return 2;
  Corpus corpus{.folder = arguments[1]};
  for (const samples::SamplePicture &sample : samples::allSamplePictures()) {
    const std::string extension = upperCased(lastCharacters(sample.name, 4));
    const FileKind *kind = findFileKind(extension);
    if (kind == nullptr) continue;
    const Bytes bytes(sample.bytes.begin(),
                      sample.bytes.begin() + static_cast<std::ptrdiff_t>(std::min(sample.bytes.size(), kLargestSeed)));
    const auto kindByte = static_cast<uint8_t>(kind - kFileKinds.data());
    corpus.add("open_any_file", {kindByte}, bytes);
    corpus.add("thumbnail", {kindByte, 95}, bytes);
    for (const SeedRow &row : kRows) {
      if (row.extensions.find(extension) != std::string_view::npos) corpus.add(row.target, row.start, bytes, row.from);
    }
  }
  for (const Bytes &colours : {Bytes{2}, Bytes{4}, Bytes{16}}) {
    for (const Bytes &entries : {Bytes(32), Bytes(32, 0x07), Bytes(32, 0x80), Bytes(31)}) {
      corpus.add("palette_file", colours, entries);
    }
  }
  const std::vector<samples::FileOnDisk> files{
      {"A.SC5", Bytes(3000, 1)}, {"F/B.SC7", Bytes(2000, 2)}, {"F/C.SC8", Bytes(9)}};
  for (const samples::DiskForm &form : {samples::DiskForm{.sectors = 32, .sectorsOfFat = 1},
                                        {.media = 0xFA, .sectors = 32, .sectorsOfFat = 1, .hasBootSector = false},
                                        {.sectors = 48, .sectorsOfFat = 2, .step = 5}}) {
    corpus.add("disk_image", {}, samples::makeDiskImage(form, files));
  }
  for (const std::string line : {"C:\\pics\\a.SC5", "\"C:\\my pics\\a.SC5\"", "\"a.SC5\" \"b.SC5\"", "a.SC5 C:\\b.SC5",
                                 "convert\n--frame\n3\n-d\nout\na.EVA", "info\n--json\na.SC5", "video\na.EVA\n-o\n-"}) {
    corpus.add("command_line", {}, Bytes(line.begin(), line.end()));
  }
}
