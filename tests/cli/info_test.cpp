#include "cli/info.h"
#include "cli/opened_file.h"
#include "encoders.h"
#include "support/test_viewer.h"

#include <gtest/gtest.h>

namespace {

samples::Bytes screen8File() { return samples::bloadFile(samples::Bytes(54272, 0x1C), 0xD3FF); }

TEST(CliInfo, JsonOfAPicture) {
  TestViewer test;
  test.open("folder\\\x01\"\xE5\x9F\x8E\xFF.sc8", screen8File());
  EXPECT_EQ(infoJson(test.viewer),
            "{\"fileExtension\":\".SC8\",\"typeDescription\":\"Screen 8 BLOAD file\",\"fileLoaded\":true,"
            "\"bitsPerPixel\":8,\"colourMode\":64,\"colourCount\":255,\"hasPalette\":false,\"isPacked\":false,"
            "\"spriteMode\":false,\"imageWidth\":256,\"imageHeight\":212,"
            "\"caption\":\"Korilan - \\u0001\\\"\xE5\x9F\x8E\\ufffd.sc8\",\"label1\":\"256x212\",\"label2\":\"8 bpp\","
            "\"label3\":\"256 colors\",\"label4\":\"\",\"doubleHeight\":false,"
            "\"palette\":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],\"mainView\":[516,428],\"target\":[512,424],"
            "\"colourCountShown\":1,\"error\":null,\"shown\":true}");
}

TEST(CliInfo, RefusalsSayWhatIsWrong) {
  const struct {
    const char *path;
    std::vector<uint8_t> bytes;
    const char *refusal;
  } rows[] = {
      {"good.SC8", screen8File(), ""},
      {"cartridge.SC8", {'A', 'B', 0x10, 0x40}, "cartridge.SC8: *** Error: Not a valid .SC8 file."},
      {"letter.TXT", {'H', 'i'}, "letter.TXT: not a kind of file that Korilan opens"},
      {"silent.SC5", {0}, "silent.SC5: holds no picture"},
  };
  for (const auto &row : rows) {
    TestViewer test;
    test.open(row.path, row.bytes);
    EXPECT_EQ(refusal(test.viewer), row.refusal);
    const bool isError = std::string(row.refusal).find("***") != std::string::npos;
    EXPECT_EQ(infoJson(test.viewer).find("\"error\":null") == std::string::npos, isError) << row.path;
  }
}

} // namespace
