#include "cli/info.h"

#include "cli/opened_file.h"
#include "video/video_files.h"

TEST(CliInfo, Json) {
  TestViewer test;
  // Each kind of byte that begins or goes on a character, just inside and just outside of its bounds.
  const std::string good = "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF";
  const std::string wrong = "\xC1\xBF-\xC2\xC0-\xE0\x9F\xBF-\xED\xA0\x80-\xF0\x8F\xBF\xBF-\xF4\x90\x80\x80-\xEF\xBF";
  std::string marks;
  for (const char byte : wrong) marks += byte == '-' ? "-" : "\\ufffd";
  test.open("\x0F\x10\x1F\"" + good + wrong + ".sc8", kScreen8File);
  // The hash is worked out apart from the program, of sizes 256 and 212 and the words FC0000 and 54271 times 0.
  EXPECT_EQ(infoJson(test.viewer),
            "{\"path\":\"\\u000f\\u0010\\u001f\\\"" + good + marks +
                ".sc8\",\"fileExtension\":\".SC8\",\"typeDescription\":\"Screen 8 BLOAD file\",\"fileLoaded\":true,"
                "\"bitsPerPixel\":8,\"colourMode\":64,\"colourCount\":255,\"hasPalette\":false,\"isPacked\":false,"
                "\"spriteMode\":false,\"imageWidth\":256,\"imageHeight\":212,"
                "\"caption\":\"Korilan - \\u000f\\u0010\\u001f\\\"" +
                good + marks +
                ".sc8\",\"label1\":\"256x212\",\"label2\":\"8 bpp\","
                "\"label3\":\"256 colors\",\"label4\":\"\",\"doubleHeight\":false,"
                "\"palette\":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0],\"mainView\":[516,428],\"target\":[512,424],"
                "\"colourCountShown\":2,\"pixels\":\"9d744e2c1e361a82\",\"error\":null,\"shown\":true}");
}

TEST(CliInfo, TextOrRefusal) {
  using Row = std::tuple<const char *, Bytes, const char *, const char *>;
  for (const auto &[path, bytes, refused, text] :
       {Row{"a.VID", vidFile({0, 3}, {}), "", "4x1, 4 bpp, 16 colors, shown 8x2, 3 frames, 1 a second{"},
        Row{"a.EV8", evaFile(3), "", "\"frameCount\":3,\"framesPerSecond\":12,\"isRgb\":true,\"currentFrame\":2,"},
        Row{"b.SC8", {1}, "b.SC8: *** Error: Not a valid .SC8 file.", "\"error\":\"*** Error: Not a valid"},
        Row{"a.TXT", {1}, "a.TXT: not a kind of file that Korilan opens", "\"error\":null"},
        Row{"a.SC5", {0}, "a.SC5: holds no picture", "\"colourCountShown\":0,\"pixels\":null,\"error\":null"},
        Row{"a.GL8", {8, 0, 8, 0}, "", "a.GL8: Screen 8 COPY file, 8x8, "}}) {
    TestViewer test;
    test.open(path, bytes);
    HScroll1_Change(test.viewer, 2);
    EXPECT_EQ(refusal(test.viewer), refused);
    EXPECT_NE((infoText(test.viewer) + infoJson(test.viewer)).find(text), std::string::npos) << infoJson(test.viewer);
  }
}
