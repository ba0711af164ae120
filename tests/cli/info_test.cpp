#include "cli/info.h"

#include "cli/opened_file.h"
#include "video/video_files.h"

#include <gtest/gtest.h>

namespace {

TEST(CliInfo, Json) {
  TestViewer test;
  // Each kind of byte that begins or goes on a character, just inside and just outside of its bounds.
  const std::string good = "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF";
  test.open("\x0F\x10\x1F\"" + good +
                "\xC1\xBF-\xC2\xC0-\xC2\x7F-\xE0\x9F\xBF-\xED\xA0\x80-\xF0\x8F\xBF\xBF-\xF4\x90\x80\x80-\xEF\xBF.sc8",
            kScreen8File);
  const std::string bad = "\\ufffd", bad2 = bad + bad, bad3 = bad2 + bad, bad4 = bad3 + bad;
  EXPECT_EQ(infoJson(test.viewer),
            "{\"fileExtension\":\".SC8\",\"typeDescription\":\"Screen 8 BLOAD file\",\"fileLoaded\":true,"
            "\"bitsPerPixel\":8,\"colourMode\":64,\"colourCount\":255,\"hasPalette\":false,\"isPacked\":false,"
            "\"spriteMode\":false,\"imageWidth\":256,\"imageHeight\":212,"
            "\"caption\":\"Korilan - \\u000f\\u0010\\u001f\\\"" +
                good + bad2 + "-" + bad2 + "-" + bad + "\x7F-" + bad3 + "-" + bad3 + "-" + bad4 + "-" + bad4 + "-" +
                bad2 +
                ".sc8\",\"label1\":\"256x212\",\"label2\":\"8 bpp\","
                "\"label3\":\"256 colors\",\"label4\":\"\",\"doubleHeight\":false,"
                "\"palette\":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],\"mainView\":[516,428],\"target\":[512,424],"
                "\"colourCountShown\":2,\"error\":null,\"shown\":true}");
  test.open("a.EVA", evaFile(3));
  HScroll1_Change(test.viewer, 2);
  EXPECT_TRUE(infoJson(test.viewer)
                  .ends_with(R"("shown":true,"frameCount":3,"framesPerSecond":12,"isRgb":false,)"
                             R"("currentFrame":2,"statusLine":"Frame: 2"})"));
}

TEST(CliInfo, TextOrRefusal) {
  const std::tuple<const char *, Bytes, const char *, const char *> rows[] = {
      {"a.SC8", kScreen8File, "", "Screen 8 BLOAD file, 256x212, 8 bpp, 256 colors, shown 512x424"},
      {"a.VID", vidFile({0, 3}, {}), "", "SymbOS video file, 4x1, 4 bpp, 16 colors, shown 8x2, 3 frames, 1 a second"},
      {"b.SC8",
       {'A', 'B'},
       "b.SC8: *** Error: Not a valid .SC8 file.",
       "\"error\":\"*** Error: Not a valid .SC8 file.\","},
      {"a.TXT", {'H', 'i'}, "a.TXT: not a kind of file that Korilan opens", "\"error\":null"},
      {"a.SC5", {0}, "a.SC5: holds no picture", "\"colourCountShown\":0,\"error\":null"}};
  for (const auto &[path, bytes, refused, text] : rows) {
    TestViewer test;
    test.open(path, bytes);
    EXPECT_EQ(refusal(test.viewer), refused);
    EXPECT_NE((infoText(test.viewer) + infoJson(test.viewer)).find(text), std::string::npos) << infoText(test.viewer);
  }
}

} // namespace
