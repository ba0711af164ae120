#include "core/file_kinds.h"

#include "base/paths.h"
#include "base/text.h"
#include "formats/dd_graph.h"
#include "formats/publisher_page.h"
#include "formats/symbos_graphic.h"
#include "formats/vscreen_level.h"
#include "screens/bload_loaders.h"
#include "screens/copy_loaders.h"
#include "screens/g9b_picture.h"
#include "screens/ham_picture.h"
#include "video/eva_player.h"
#include "video/vid_player.h"

#include <algorithm>

namespace {

constexpr KindTraits kPatternCells = {.patternCells = true};
constexpr KindTraits kScreen2 = {.patternCells = true, .ownPalette = "PL2"};
constexpr KindTraits kScreen4 = {.patternCells = true, .ownPalette = "PL4"};
constexpr KindTraits kScreen6 = {.ownPalette = "PL6"};
constexpr KindTraits kScreen7 = {.ownPalette = "PL7"};

// A tile set has the extension of a pattern screen, none of its own.
constexpr FileKind kTileSet = {"", "VSCREEN TileSet file", loadTileSet, kPatternCells};

bool loadAsTileSet(ViewerState &viewer) {
  takeKind(viewer, kTileSet);
  return loadTileSet(viewer);
}

bool loadScreen2File(ViewerState &viewer) { return holdsTileSet(viewer) ? loadAsTileSet(viewer) : loadScreen2(viewer); }
bool loadScreen4File(ViewerState &viewer) { return holdsTileSet(viewer) ? loadAsTileSet(viewer) : loadScreen4(viewer); }

} // namespace

// clang-format off
constexpr std::array<FileKind, kFileKindCount> kFileKinds{{
    // extension, type description,  loader,                traits
    {".GE5", "DD-Graph BLOAD file",     loadDdGraphScreen,     {}},
    {".DAT", "DD-Graph COPY file",      loadDdGraphRectangle,  {.sharedExtension = true}},
    {".CMP", "DD-Graph .CMP file",      loadDdGraphCompressed, {}},
    {".PCT", "Dynamic Publisher file",  loadPublisherPage,     {.reducedView = true}},
    {".STP", "Dynamic Publisher file",  loadStamp,             {.runOnBits = 2}},
    {".PIC", "Designer Plus file",      loadScreen8,           {}},
    {".SC2", "Screen 2 BLOAD file",     loadScreen2File,       kScreen2},
    {".SR2", "Screen 2 BLOAD file",     loadScreen2File,       kScreen2},
    {".SC4", "Screen 4 BLOAD file",     loadScreen4File,       kScreen4},
    {".SR4", "Screen 4 BLOAD file",     loadScreen4File,       kScreen4},
    {".SC5", "Screen 5 BLOAD file",     loadScreen5,           {}},
    {".SR5", "Screen 5 BLOAD file",     loadPackedScreen5,     {}},
    {".GL5", "Screen 5 COPY file ",     loadScreen5Copy,       {.runOnBits = 4}},
    {".SCR", "VSCREEN Border file",     loadBorder,            {.sharedExtension = true, .ownPalette = "PL4"}},
    {".TGS", "VSCREEN Sprite file",     loadSpriteSet,         {.companion = "tcs", .ownPalette = "PL4"}},
    {".SC6", "Screen 6 BLOAD file",     loadScreen6,           kScreen6},
    {".SR6", "Screen 6 BLOAD file",     loadScreen6,           kScreen6},
    {".GL6", "Screen 6 COPY file ",     loadScreen6Copy,       {.runOnBits = 2, .ownPalette = "PL6"}},
    {".SC7", "Screen 7 BLOAD file",     loadScreen7,           kScreen7},
    {".SR7", "Screen 7 BLOAD file",     loadPackedScreen7,     kScreen7},
    {".GL7", "Screen 7 COPY file ",     loadScreen7Copy,       {.runOnBits = 4, .ownPalette = "PL7"}},
    {".SC8", "Screen 8 BLOAD file",     loadScreen8,           {}},
    {".SR8", "Screen 8 BLOAD file",     loadScreen8,           {}},
    {".GE8", "Screen 8 BLOAD file",     loadScreen8,           {}},
    {".GL8", "Screen 8 COPY file ",     loadScreen8Copy,       {}},
    {".SCA", "Screen10 BLOAD file",     loadScreen10,          {}},
    {".SRA", "Screen10 BLOAD file",     loadScreen10,          {}},
    {".S10", "Screen10 BLOAD file",     loadScreen10,          {}},
    {".GLA", "Screen10 COPY file ",     loadScreen10Copy,      {}},
    {".SCB", "Screen11 BLOAD file",     loadScreen10,          {}},
    {".SRB", "Screen11 BLOAD file",     loadScreen10,          {}},
    {".S11", "Screen11 BLOAD file",     loadScreen10,          {}},
    {".GLB", "Screen11 COPY file ",     loadScreen10Copy,      {}},
    {".SCC", "Screen12 BLOAD file",     loadScreen12,          {}},
    {".SRC", "Screen12 BLOAD file",     loadScreen12,          {}},
    {".S12", "Screen12 BLOAD file",     loadScreen12,          {}},
    {".GLC", "Screen12 COPY file ",     loadScreen12Copy,      {}},
    {".HAM", "Screen 7 HAM file",       LoadHamPicture,        {.linePalettes = true, .details = hamDetails}},
    {".G9B", "Team Bomba G9B file",     LoadG9bPicture,        {.details = g9bDetails}},
    {".SGX", "SymbOS graphic file",     loadSymbosGraphic,     {.tiles = true}},
    {".VID", "SymbOS video file",       loadVid,               {.countsBorder = true, .player = &kVidPlayer}},
    {".EVA", "EVA YJK video file",      loadEva,               {.player = &kEvaPlayer}},
    {".EV8", "EVA RGB video file",      loadEva,               {.player = &kEvaPlayer}},
}};
// clang-format on

// A row missing at the end of the table would be empty.
static_assert(kFileKinds.back().extension != nullptr);

const FileKind *findFileKind(std::string_view extension) {
  const auto row = std::find_if(kFileKinds.begin(), kFileKinds.end(),
                                [extension](const FileKind &kind) { return extension == kind.extension; });
  return row != kFileKinds.end() ? &*row : nullptr;
}

bool isOpened(std::string_view path) {
  return findFileKind(upperCased(lastCharacters(path, kExtensionLength))) != nullptr;
}

void takeKind(ViewerState &viewer, const FileKind &kind) {
  viewer.kind = &kind;
  viewer.typeDescription = kind.typeDescription;
}
