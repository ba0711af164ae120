#include "pixel_art.h"

#include <string>

#include "bytes.h"

#include "font.h"

namespace samples {

namespace {

constexpr std::uint8_t kBlack = 1, kBlue = 4, kRed = 8, kYellow = 10, kGrey = 14, kWhite = 15; // default palette

void drawWindow(IndexedPicture &picture, int left, int top, int width, int height, std::string_view title) {
  const int unit = picture.width / 256; // pixels of 512 a line are half as wide
  fillBox(picture, left + 3 * unit, top + 3, width, height, kBlack);
  fillBox(picture, left, top, width, height, kWhite);
  fillBox(picture, left, top, width, 12, kBlue);
  fillBox(picture, left + width - 10 * unit, top + 2, 8 * unit, 8, kRed);
  drawText(picture, left + 4 * unit, top + 2, title, kWhite, unit);
  fillBox(picture, left, top + 12, width, 1, kBlack);
}

} // namespace

IndexedPicture paletteChart() {
  IndexedPicture chart(256, 212, kBlack);
  drawText(chart, 32, 8, "THE SIXTEEN COLOURS", kWhite);
  fillBox(chart, 8, 20, 240, 2, kBlue);
  for (int i = 0; i < 16; ++i) {
    const int left = 8 + i % 4 * 61, top = 30 + i / 4 * 45;
    fillBox(chart, left, top, 57, 41, kGrey);
    fillBox(chart, left + 1, top + 1, 55, 39, byteOf(i));
    drawText(chart, left + 5, top + 5, std::to_string(i), i == kWhite || i == 11 || i == 3 ? kBlack : kWhite);
  }
  return chart;
}

IndexedPicture desk(int width, int height) {
  constexpr std::array<std::uint8_t, 8> kIcons = {2, 5, 6, 7, 9, 10, 12, 13};
  const int unit = width / 256;
  IndexedPicture picture(width, height, 5);
  for (int y = 0; y < height; y += 2) {
    for (int x = y / 2 % 2; x < width; x += 2) picture.at(x, y) = kBlue;
  }
  fillBox(picture, 0, 0, width, 12, kWhite);
  drawText(picture, 6 * unit, 2, "DESK  FILE  VIEW", kBlack, unit);
  drawWindow(picture, 16 * unit, 26, width * 3 / 5, height / 2, "PICTURES");
  for (int i = 0; i < 8; ++i) {
    const int left = (28 + i % 4 * 35) * unit, top = 46 + i / 4 * (height / 5);
    fillBox(picture, left, top, 24 * unit, 20, kIcons[static_cast<std::size_t>(i)]);
    for (int y = 0; y < 12; ++y) fillBox(picture, left + (12 - y) * unit, top + 8 + y, 2 * y * unit, 1, kBlack);
    fillBox(picture, left + 17 * unit, top + 3, 4 * unit, 4, kYellow);
    drawText(picture, left + 4 * unit, top + 22, "A" + std::to_string(i), kBlack, unit);
  }
  drawWindow(picture, width - 122 * unit, height - 84, 110 * unit, 64, "CLOCK");
  drawText(picture, width - 107 * unit, height - 60, "12:34", kBlack, 2 * unit, 3);
  fillBox(picture, 0, height - 12, width, 12, kGrey);
  drawText(picture, 6 * unit, height - 10, "8 PICTURES", kBlack, unit);
  return picture;
}

IndexedPicture listing() {
  constexpr std::array<std::string_view, 20> kLines = {"10 REM SUNSET",
                                                       "20 COLOR 15,4,7",
                                                       "30 SCREEN 2",
                                                       "40 FOR Y=0 TO 191",
                                                       "50 C=8: IF Y.100 THEN C=4",
                                                       "60 LINE -255,Y",
                                                       "70 NEXT Y",
                                                       "80 CIRCLE 168,112",
                                                       "90 PAINT 168,112",
                                                       "100 GOTO 100",
                                                       "OK",
                                                       "RUN",
                                                       "",
                                                       "BREAK IN 100",
                                                       "OK",
                                                       "SAVE \"SUNSET.BAS\"",
                                                       "OK",
                                                       "BSAVE \"COAST.SC2\",0,=37FF",
                                                       "OK",
                                                       "LOAD \"DESK.BAS\""};
  constexpr std::array<std::uint8_t, 5> kInks = {15, 7, 3, 11, 9};
  IndexedPicture screen(256, 192, kBlue);
  fillBox(screen, 0, 0, 256, 16, kRed);
  drawText(screen, 64, 4, "BASIC VERSION 2.0", kWhite);
  for (std::size_t line = 0; line < kLines.size(); ++line) {
    drawText(screen, 8, 24 + 8 * static_cast<int>(line), kLines[line], kInks[line % kInks.size()]);
  }
  fillBox(screen, 8, 184, 8, 8, kWhite);
  return screen;
}

IndexedPicture caption(int width, int height, std::string_view text) {
  IndexedPicture overlay(width, height, kSeeThrough);
  const int length = static_cast<int>(text.size()) * 8, left = (width - length) / 2;
  fillBox(overlay, left - 8, height - 34, length + 16, 22, kBlack);
  fillBox(overlay, left - 7, height - 33, length + 14, 1, kYellow);
  fillBox(overlay, left - 7, height - 14, length + 14, 1, kYellow);
  drawText(overlay, left + 1, height - 26, text, kBlue);
  drawText(overlay, left, height - 27, text, kWhite);
  for (int i = 0; i < 16; ++i) fillBox(overlay, 6 + i * 8, 6, 7, 7, byteOf(i));
  return overlay;
}

IndexedPicture page(std::string_view title, const TruePicture &picture) {
  IndexedPicture paper(512, 704);
  drawText(paper, 256 - static_cast<int>(title.size()) * 20, 16, title, 1, 5, 6);
  fillBox(paper, 24, 72, 464, 4, 1);
  const Colours inks = {{255, 255, 255}, {0, 0, 0}};
  const IndexedPicture printed = dithered(tinted(picture, {0, 0, 0}, {255, 255, 255}), inks);
  for (int y = 0; y < printed.height; ++y) {
    for (int x = 0; x < printed.width; ++x) paper.at((512 - printed.width) / 2 + x, 92 + y) = printed.at(x, y);
  }
  constexpr std::array<std::string_view, 6> kWords = {"A NEW DAY",    "ENDS AT THE", "COAST, WHERE",
                                                      "THE SUN SETS", "IN SIXTEEN",  "COLOURS."};
  for (int line = 0; line * 14 + 116 + printed.height < 690; ++line) {
    const std::string_view words = kWords[static_cast<std::size_t>(line) % kWords.size()];
    for (int column = 0; column < 4; ++column)
      drawText(paper, 28 + column * 118, 110 + printed.height + line * 14, words, 1, 1, 1);
  }
  return paper;
}

} // namespace samples
