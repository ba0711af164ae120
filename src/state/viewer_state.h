// The one record of a window: the current file, its picture, and the window as data. There is no other mutable state.
#pragma once

#include "base/buffers.h"
#include "state/input_file.h"
#include "base/numbers.h"
#include "state/platform_ops.h"
#include "state/video_players.h"
#include "state/window_model.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

// Bytes of `vram` and of `packedData`; video memory of the machines holds 128 KB, the V9990 512 KB.
inline constexpr size_t kVideoMemoryBytes = size_t{1024} * 1024;

inline constexpr size_t kPaletteEntries = 256;

// Extensions that the program can be registered for.
inline constexpr size_t kAssociationCount = 25;

// The check boxes of the Preferences dialog.
struct Preferences {
  std::array<Flag16, kAssociationCount> Check1{}; // extensions, in the order of kAssociatedExtensions
  Flag16 Check2 = kFalse;                         // "Always center window"
  Flag16 Check3 = kFalse;                         // "ESC key exits program"
  Flag16 Check4 = kFalse;                         // "Shortcuts without CTRL"
  Flag16 Check5 = kFalse;                         // "Disable auto aspect ratio"
};

// Where a part of a SymbOS graphic goes.
struct SymbosTile {
  uint8_t bytesPerLine = 0;
  uint8_t width = 0;  // pixels
  int32_t height = 0; // lines
  int32_t x = 0;      // pixels
  int32_t y = 0;      // lines
};

// The blocks of a HAM picture; page 0 holds the even lines, page 1 the odd ones. Layout: screens/ham_picture.cpp.
struct HamPage {
  std::vector<uint8_t> palette; // start palette and the changes line by line
  std::vector<uint8_t> pixels;
};

struct ViewerState {
  ViewerState() = default;

  // Like a new one, in the memory of one that is gone. All of that memory is zero.
  ViewerState(VideoMemory &&oldVram, VideoMemory &&oldPackedData, std::vector<uint32_t> &&oldFrame);

  // The current file. Texts are UTF-8.
  std::string filePath;
  std::string fileName;        // filePath without its folder
  std::string folderPath;      // filePath without fileName; ends in the separator
  std::string fileExtension;   // last 4 characters of filePath, upper case: ".SC5"
  std::string typeDescription; // type text of the file's FileKind
  Flag16 fileLoaded = kFalse;  // from the opening of a file to the reset
  InputFile inputFile;

  // Description of the picture.
  uint8_t bitsPerPixel = 0;   // 1, 2, 3, 4, 8 or 16; chooses the renderer
  uint8_t colourMode = 0;     // encoding of 8 bits per pixel, see screens/byte_pixels.h
  uint8_t colourCount = 0;    // palette entries in use; 255 in the fixed 256-colour mode, 0 without a palette
  Flag16 hasPalette = kFalse; // drawn through `palette`
  Flag16 isPacked = kFalse;   // the file's body was packed
  Flag16 spriteMode = kFalse; // 1 bit per pixel is drawn as a tile set; other loaders than those leave it: intended
  int32_t paletteFilePos = 0; // 1-based position of the next palette byte in the file
  int32_t imageWidth = 0;     // pixels
  int32_t imageHeight = 0;    // lines
  int32_t vramPos = 0;        // next byte of `vram` that a renderer reads

  // Video memory from address 0, and the packed body that it is unpacked from. Zero where no file has filled them.
  VideoMemory vram{kVideoMemoryBytes};
  VideoMemory packedData{kVideoMemoryBytes};

  // Tiles of a SymbOS graphic in the order of the file; those from the 257th on overwrite the first.
  std::array<SymbosTile, 256> symbosTiles{};
  int32_t symbosTileCount = 0; // entries in use, 0 to 256

  std::array<HamPage, 2> hamPages;

  // Colour words 0x00RRGGBB.
  std::array<uint32_t, kPaletteEntries> palette{};
  std::array<uint32_t, kPaletteEntries> storedPalette{};
  uint8_t storedPaletteCount = 0; // entries that Store Palette kept
  Flag16 paletteDialog = kFalse;  // the open dialog asks for a palette file

  // The rendered picture: frameWidth x frameHeight words 0x00RRGGBB, top row first. The size is kept apart from
  // imageWidth x imageHeight, which a loader that fails midway may already have changed.
  std::vector<uint32_t> frameBits;
  int32_t frameWidth = 0;
  int32_t frameHeight = 0;
  std::string picturePath;      // the file that it is from; a bitmap is saved beside that, also after another file was
                                // opened and refused, so that no other picture's bitmap is written over
  Flag16 pictureShown = kFalse; // MainView shows the rendered picture

  // The picture once more in palette entries, for the read-out under the mouse; see core/colour_readout.cpp.
  std::vector<uint32_t> entryBits;
  uint32_t entryBitsSerial = 0; // pictureSerial that `entryBits` belongs to; 0: none

  // Paging through the folder of the current file.
  std::vector<std::string> folderFiles;
  int16_t folderFileCount = 0;
  int16_t folderIndex = 0; // 1-based
  std::string folderPrefix;

  uint8_t zoomMode = 1; // 0 normal, 1 zoomed

  Preferences preferences;
  EvaPlayer evaPlayer;
  VidPlayer vidPlayer;
  SoundImages soundImages;

  WindowModel window;
  PlatformOps platform;

  bool loadUnderWay = false;  // commands that arrive meanwhile are ignored
  bool runUnderWay = false;   // a video plays; to open, to close or to exit ends it first and is then carried out
  uint32_t heldTicks = 0;     // when the run was held
  bool exitRequested = false; // during a load or a run
  bool closeRequested = false;
  std::string pathRequested;
};

// Pixels of a picture of imageWidth x imageHeight, which are not negative.
size_t pixelCountOf(const ViewerState &viewer);

// The file that was last opened. `filePath` may since name one of an unknown kind.
std::string openedPath(const ViewerState &viewer);

bool videoOpen(const ViewerState &viewer);
bool videoPlaying(const ViewerState &viewer);

// Clears `playing`; the run ends at its next event pass.
void stopPlayback(ViewerState &viewer);
