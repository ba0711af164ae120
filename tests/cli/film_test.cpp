#include "cli/single_file.h"

#include "support/temporary_folder.h"
#include "video/sound_track.h"
#include "video/video_files.h"

TEST(CliFilm, VideoHoldsEveryFrameInThreePlanes) {
  const TemporaryFolder folder("film_video"); // a rate of 0 counts as 1
  const std::string film = folder.write(u8"a.VID", vidFile({0, 2}, {0x18, 0xFA, 0x71, 0x88}));
  ASSERT_TRUE(writeSingleFile({.command = CliCommand::kVideo, .outPath = folder.path + "out"}, {film}));
  // Black, white, red, green; blue, black, white, white. By BT.601 red is 81.48, 90.20, 240, green
  // 144.55, 53.80, 34.21, blue 40.97, 240, 109.79.
  const std::string expected = "YUV4MPEG2 W4 H1 F1:1 Ip A1:1 C444 XCOLORRANGE=LIMITED\n"
                               "FRAME\n\x10\xEB\x51\x91\x80\x80\x5A\x36\x80\x80\xF0\x22"
                               "FRAME\n\x29\x10\xEB\xEB\xF0\x80\x80\x80\x6E\x80\x80\x80";
  EXPECT_EQ(folder.read(u8"out"), Bytes(expected.begin(), expected.end()));
}

TEST(CliFilm, SoundIsTheWholeTrack) {
  const TemporaryFolder folder("film_sound");
  for (const auto &[rate, frames, format] : {std::tuple(kRate12, 14U, kSound12), {kRate10, 11U, kSound10}}) {
    const std::string path = folder.write(u8"a.EVA", evaFile(frames, rate));
    ASSERT_TRUE(writeSingleFile({.command = CliCommand::kSound, .outPath = folder.path + "out"}, {path}));
    const auto header = waveHeader(format, frames * format.samplesPerFrame);
    Bytes expected(header.begin(), header.end());
    for (uint8_t n = 1; n <= frames; ++n) expected.insert(expected.end(), format.samplesPerFrame, 8 * n);
    expected.resize(expected.size() + expected.size() % 2); // parts of the file have even lengths
    EXPECT_EQ(expected.size(), 8 + header[4] + header[5] * 256U);
    EXPECT_TRUE(folder.read(u8"out") == expected);
  }
}

TEST(CliFilm, WhatIsNoFilmIsRefusedAndLeavesNoFile) {
  const Bytes film = vidFile({}, {});
  for (const auto &[name, file, command, out, wrong] :
       {std::tuple(u8"a.SC8", kScreen8File, CliCommand::kVideo, "out", "is no video"),
        {u8"a.VID", film, CliCommand::kSound, "out", "holds no sound"},
        {u8"a.VID", vidFile({10, 0}, {}), CliCommand::kVideo, "out", "holds no frames"},
        {u8"a.VID", vidFile({10, 1, 0}, {}), CliCommand::kVideo, "out", "holds no frames"},
        {u8"a.VID", film, CliCommand::kVideo, "a.VID", "would be replaced by itself"}}) {
    const TemporaryFolder folder("film_refused");
    const std::string path = folder.write(name, file);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(writeSingleFile({.command = command, .outPath = folder.path + out}, {path}));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), path + ": " + wrong + "\n");
    EXPECT_EQ(folder.fileCount(), 1U);
    EXPECT_EQ(folder.read(name), file);
  }
}
