// The record of a window: the current file, its picture, and the window as data. There is no other mutable state.
#pragma once

#include "base/buffers.h"
#include "base/numbers.h"
#include "state/display_settings.h"
#include "state/file_kind.h"
#include "state/following.h"
#include "state/input_file.h"
#include "state/picture_settings.h"
#include "state/platform_ops.h"
#include "state/video_players.h"
#include "state/window_model.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

// Initial size of `vram` and `packedData`; the V9938 and V9958 have 128 KB, the V9990 512 KB.
inline constexpr size_t kVideoMemoryBytes = size_t{1024} * 1024;

inline constexpr size_t kPaletteEntries = 256;

// Values of `colourMode`.
inline constexpr uint8_t ColourModePalette = 0x00; // index into `palette`
inline constexpr uint8_t ColourModeGrb332 = 0x40;  // GGGRRRBB
inline constexpr uint8_t ColourModeYjk = 0x80;     // groups of four pixels with common J and K
inline constexpr uint8_t ColourModeYuv = 0xC0;     // the same, green and blue exchanged
inline constexpr uint8_t ColourModeYae = 0xFF;     // YJK; a pixel with its attribute bit set is a palette entry

// Extensions that the program can be registered for.
inline constexpr size_t kAssociationCount = 25;

// The check boxes of the Preferences dialog.
struct Preferences {
  std::array<Flag16, kAssociationCount> Check1{}; // extensions, in the order of kAssociations
  Flag16 Check2 = kFalse;                         // "Always center window"
  Flag16 Check3 = kFalse;                         // "ESC key exits program"
  Flag16 Check4 = kFalse;                         // "Shortcuts without CTRL"
  Flag16 Check5 = kFalse;                         // "Disable auto aspect ratio"
};

// Position and size of a SymbOS graphic's tile.
struct SymbosTile {
  uint8_t bytesPerLine = 0;
  int32_t height = 0; // lines
  int32_t x = 0;      // pixels
  int32_t y = 0;      // lines
};

// The blocks of a HAM picture; page 0 holds the even lines, page 1 the odd ones. Layout: screens/ham_picture.cpp.
struct HamPage {
  std::vector<uint8_t> palette; // start palette and the changes of each line
  std::vector<uint8_t> pixels;
};

// What the viewer is busy with.
enum class Activity {
  kIdle,
  kLoading, // commands that would load, draw or close are ignored
  kPlaying, // a video is playing: Open, Close and Exit stop it first, then run
};

// A command requested during an activity; runs when that ends. A later request replaces any earlier one but Exit.
struct Request {
  enum Kind { kNone, kStop, kOpen, kClose, kExit };
  Kind kind = kNone;
  std::string path = {}; // of kOpen
};

struct ViewerState {
  ViewerState() = default;

  // A new viewer that reuses the memory of an old one, which must be zero.
  ViewerState(VideoMemory &&oldVram, VideoMemory &&oldPackedData, std::vector<uint32_t> &&oldFrame);

  // The current file. Texts are UTF-8.
  std::string filePath;
  std::string fileName;            // filePath without its folder
  std::string folderPath;          // filePath without fileName; ends in the separator
  std::string fileExtension;       // last 4 characters of filePath, upper case: ".SC5"
  std::string typeDescription;     // type text of `kind`
  const FileKind *kind = &kNoKind; // of the file opened last
  Flag16 fileLoaded = kFalse;      // from opening a file to the reset
  InputFile inputFile;             // open during a load, and while its video is open
  Following following;
  std::string loadError; // why the last file is not shown; empty if it is, or was ignored

  // Description of the picture that is loaded.
  uint8_t bitsPerPixel = 0;   // 1, 2, 3, 4, 8 or 16; chooses the renderer
  uint8_t colourMode = 0;     // encoding of 8 bits per pixel
  uint8_t colourCount = 0;    // palette entries in use; 255 in the fixed 256-colour mode, 0 without a palette
  Flag16 hasPalette = kFalse; // pixels are entries of `palette`
  Flag16 isPacked = kFalse;   // the file's body was packed
  Flag16 spriteMode = kFalse; // 1 bit per pixel is a tile set; only loaders of 1 bit per pixel change it:
                              // intended, no other renderer reads it
  int32_t paletteFilePos = 0; // 1-based position of the next palette byte in the file
  int32_t imageWidth = 0;     // pixels
  int32_t imageHeight = 0;    // lines
  int32_t vramPos = 0;        // next byte of `vram` to be drawn

  // Video memory from address 0, and the packed body of the file. Zero where nothing was loaded.
  VideoMemory vram{kVideoMemoryBytes};
  VideoMemory packedData{kVideoMemoryBytes};

  // Tiles of a SymbOS graphic in file order; the 257th overwrites the first, and so on.
  std::array<SymbosTile, 256> symbosTiles{};
  int32_t symbosTileCount = 0; // entries in use, 0 to 256

  std::array<HamPage, 2> hamPages;

  // Colour words 0x00RRGGBB.
  std::array<uint32_t, kPaletteEntries> palette{};
  std::array<uint32_t, kPaletteEntries> storedPalette{};
  uint8_t storedPaletteCount = 0; // entries that Store Palette has stored

  // The rendered picture: frameWidth x frameHeight words 0x00RRGGBB, top row first. Commands on the shown picture use
  // the fields below: a file that was refused or ignored later may have changed those above.
  std::vector<uint32_t> frameBits;
  int32_t frameWidth = 0;
  int32_t frameHeight = 0;
  const FileKind *pictureKind = &kNoKind;
  PictureSettings picture; // its description
  std::string picturePath; // its file; a bitmap is saved beside it
  std::vector<std::string>
      savedFiles;               // PNG files written since the start: Save as PNG replaces them without a question
  Flag16 pictureShown = kFalse; // MainView shows the rendered picture

  // The picture in palette entries, for the read-out under the mouse; see core/colour_readout.cpp.
  std::vector<uint32_t> entryBits;
  uint32_t entryBitsSerial = 0; // pictureSerial of `entryBits`; 0: none

  // Paging through the folder of the current file.
  std::vector<std::string> folderFiles;
  int16_t folderFileCount = 0;
  int16_t folderIndex = 0; // 1-based
  std::string folderPrefix;

  std::vector<std::string> recentFiles; // full paths, the latest one first

  // Pixel of the picture area under the mouse; -1 while the mouse is elsewhere.
  int32_t mouseX = -1;
  int32_t mouseY = -1;

  uint8_t zoomMode = 1; // 0 normal, 1 zoomed

  Preferences preferences;
  DisplaySettings display;

  const VideoPlayer *player = nullptr; // of the open video; nullptr if none is open
  VideoRun run;
  EvaPlayer evaPlayer;
  VidPlayer vidPlayer;
  SoundImages soundImages;

  WindowModel window;
  PlatformOps platform;

  Activity activity = Activity::kIdle;
  Request request;
};

// imageWidth x imageHeight, neither negative.
size_t pixelCountOf(const ViewerState &viewer);

// The last opened file; `filePath` may name a later one of an unknown kind.
std::string openedPath(const ViewerState &viewer);

// Makes the loaded picture the shown one.
void takePicture(ViewerState &viewer);

// Makes the whole frame black.
void blacken(ViewerState &viewer);

// A run is under way and its end was not requested.
bool videoPlaying(const ViewerState &viewer);

// Stores a request for the end of the activity; a run ends at its next event pass.
void requestAfterwards(ViewerState &viewer, const Request &request);
