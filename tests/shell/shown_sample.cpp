#include "shell/shown_sample.h"

#include "core/menus.h"
#include "core/display_geometry.h"
#include "shell/control_ids.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

std::string lastName(const std::string &name) { return name.substr(name.find_last_of('/') + 1); }

std::string written(const TemporaryFolder &folder, const std::string &name, const std::vector<uint8_t> &bytes) {
  const std::string last = lastName(name);
  return folder.write(std::u8string(last.begin(), last.end()), bytes);
}

} // namespace

const std::vector<samples::SamplePicture> &allSamples() {
  static const std::vector<samples::SamplePicture> all = samples::allSamplePictures();
  return all;
}

const samples::SamplePicture &sampleNamed(const std::string &name) {
  return *std::find_if(allSamples().begin(), allSamples().end(),
                       [&](const auto &sample) { return sample.name == name; });
}

SampleFile::SampleFile(const TemporaryFolder &folder, const samples::SamplePicture &sample)
    : name(lastName(sample.name)), path(written(folder, sample.name, sample.bytes)) {
  for (const samples::CompanionFile &companion : sample.companions) written(folder, companion.name, companion.bytes);
  openFile(*opened, path);
}

void expectTexts(const DrivenWindow &driven, const WindowModel &model) {
  EXPECT_TRUE(waitUntil([&] { return textOf(driven, 0) == model.caption; })) << textOf(driven, 0);
  EXPECT_TRUE(waitUntil([&] { return textOf(driven, kLabel1Id + 3) == model.Label4; }));
  EXPECT_EQ(textOf(driven, kLabel1Id), model.Label1);
  EXPECT_EQ(textOf(driven, kLabel1Id + 1), model.Label2);
  EXPECT_EQ(textOf(driven, kLabel1Id + 2), model.Label3);
}

bool showsPicture(const DrivenWindow &driven, const ViewerState &viewer, int64_t line) {
  const Stretch &stretch = viewer.window.stretch;
  const std::vector<uint32_t> wanted = stretchedPicture(viewer);
  const ScreenPicture shown = shownPicture(driven);
  const int64_t width = std::min(shown.width, stretch.targetWidth);
  const int64_t height = std::min<int64_t>(shown.height, stretch.targetHeight - line);
  for (int64_t y = 0; y < height; ++y) {
    const auto row = wanted.begin() + (line + y) * stretch.targetWidth;
    if (!std::equal(row, row + width, shown.pixels.begin() + y * shown.width)) return false;
  }
  return width > 0 && height > 0;
}

void expectPicture(const DrivenWindow &driven, const ViewerState &viewer) {
  const Stretch &stretch = viewer.window.stretch;
  SIZE size{};
  EXPECT_TRUE(waitUntil([&] {
    size = mainViewSize(driven);
    return size.cx == viewer.window.mainViewWidth && size.cy == viewer.window.mainViewHeight;
  })) << viewer.filePath
      << ": " << size.cx << "x" << size.cy;
  // How a reduced page drops lines and columns is the window system's own business.
  if (stretch.targetWidth < stretch.sourceWidth) return;
  const auto standsOnScreen = [&] {
    const ScreenPicture shown = shownPicture(driven);
    return shown.width >= stretch.targetWidth && shown.height >= stretch.targetHeight && showsPicture(driven, viewer);
  };
  EXPECT_TRUE(waitUntil(standsOnScreen)) << viewer.filePath;
}

bool menusHold(const DrivenWindow &driven, const char *line) {
  return waitUntil([&] { return menusOf(driven).find(line) != std::string::npos; });
}

void chooseInBoth(const DrivenWindow &driven, ViewerState &viewer, const char *caption) {
  choose(driven, caption);
  for (size_t row = 0; row < kMenuRows.size(); ++row) {
    if (kMenuRows[row].caption != nullptr && plainCaption(kMenuRows[row].caption) == caption) runMenuRow(viewer, row);
  }
}
