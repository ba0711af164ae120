// What an extension means: one row per kind of file.
#pragma once

#include <cstdint>
#include <string>

struct VideoPlayer;
struct ViewerState;

// Properties of a kind that the picture's description does not hold.
struct KindTraits {
  uint8_t runOnBits = 0;               // depth at which a line may begin inside a byte; 0: none
  bool tiles = false;                  // drawn tile by tile
  bool linePalettes = false;           // drawn again, with a palette that changes from line to line
  bool reducedView = false;            // shown at a reduced size
  bool countsBorder = false;           // its view counts the border colour too
  bool patternCells = false;           // at most 16 colours at any depth
  bool sharedExtension = false;        // other programs use the extension, too: no thumbnails in file managers
  const char *companion = nullptr;     // extension letters of a second file that the picture needs
  const VideoPlayer *player = nullptr; // nullptr: a picture
  const char *ownPalette = nullptr;    // letters of the screen's palette files, "PL7"
  std::string (*details)(const ViewerState &viewer) = nullptr; // Image Info lines from the open file's header
};

struct FileKind {
  const char *extension;       // upper case, with the dot
  const char *typeDescription; // as shown; COPY texts end in a space
  // Loads the open file. Returns whether there is a picture to show; if not, shows the error, or ignores the file.
  bool (*load)(ViewerState &viewer);
  KindTraits traits = {};
};

// Before any file was opened.
extern const FileKind kNoKind;
