// A huge picture is not drawn a second time for the entries under the mouse.
#include "core/colour_readout.h"
#include "core/commands.h"
#include "headless/headless_platform.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>

TEST(HugePicture, TheReadOutDoesWithoutTheEntry) {
  for (const auto &[height, text] : {std::pair{4096, "0, 0   color 0   #394A5A"}, std::pair{4097, "0, 0   #394A5A"}}) {
    const std::string path = testing::TempDir() + "huge.G9B";
    const char header[] = {'G', '9', 'B', 11, 0, 4, 0, 2, 0, 16, static_cast<char>(height), 16, 0, 0, 0, 0, 7, 9, 11};
    std::ofstream(path, std::ios::binary).write(header, sizeof header);
    ViewerState viewer;
    HeadlessPlatform headless;
    attachHeadless(viewer, headless);
    openPath(viewer, path);
    moveMouse(viewer, 0, 0);
    EXPECT_EQ(viewer.window.readout.text, text);
    std::remove(path.c_str());
  }
}
