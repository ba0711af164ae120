#include "core/file_kinds.h"

#include "formats/dd_graph.h"
#include "formats/publisher_page.h"
#include "formats/symbos_graphic.h"
#include "formats/vscreen_level.h"
#include "screens/bload_loaders.h"
#include "screens/copy_loaders.h"
#include "screens/g9b_picture.h"
#include "screens/ham_picture.h"
#include "screens/pattern_screen.h"
#include "video/video_mode.h"

#include <algorithm>
#include <cstring>

// clang-format off
constexpr std::array<FileKind, kFileKindCount> kFileKinds{{
    // extension, type description,   loader,                linear bits per pixel
    {".GE5", "DD-Graph BLOAD file",    loadDdGraphScreen,     0},
    {".DAT", "DD-Graph COPY file",     loadDdGraphRectangle,  0},
    {".CMP", "DD-Graph .CMP file",     loadDdGraphCompressed, 0},
    {".PCT", "Dynamic Publisher file", loadPublisherPage,     0},
    {".STP", "Dynamic Publisher file", loadStamp,             2},
    {".PIC", "Designer Plus file",     loadScreen8,           0},
    {".SC2", "Screen 2 BLOAD file",    loadPatternScreen,     0},
    {".SR2", "Screen 2 BLOAD file",    loadPatternScreen,     0},
    {".SC4", "Screen 4 BLOAD file",    loadPatternScreen,     0},
    {".SR4", "Screen 4 BLOAD file",    loadPatternScreen,     0},
    {".SC5", "Screen 5 BLOAD file",    loadScreen5,           0},
    {".SR5", "Screen 5 BLOAD file",    loadScreen5,           0},
    {".GL5", "Screen 5 COPY file ",    loadScreen5Copy,       4},
    {".SCR", "VSCREEN Border file",    loadBorder,            0},
    {".TGS", "VSCREEN Sprite file",    loadSpriteSet,         0},
    {".SC6", "Screen 6 BLOAD file",    loadScreen6,           0},
    {".SR6", "Screen 6 BLOAD file",    loadScreen6,           0},
    {".GL6", "Screen 6 COPY file ",    loadScreen6Copy,       2},
    {".SC7", "Screen 7 BLOAD file",    loadScreen7,           0},
    {".SR7", "Screen 7 BLOAD file",    loadScreen7,           0},
    {".GL7", "Screen 7 COPY file ",    loadScreen7Copy,       4},
    {".SC8", "Screen 8 BLOAD file",    loadScreen8,           0},
    {".SR8", "Screen 8 BLOAD file",    loadScreen8,           0},
    {".GE8", "Screen 8 BLOAD file",    loadScreen8,           0},
    {".GL8", "Screen 8 COPY file ",    loadScreen8Copy,       0},
    {".SCA", "Screen10 BLOAD file",    loadScreen10,          0},
    {".SRA", "Screen10 BLOAD file",    loadScreen10,          0},
    {".S10", "Screen10 BLOAD file",    loadScreen10,          0},
    {".GLA", "Screen10 COPY file ",    loadScreen10Copy,      0},
    {".SCB", "Screen11 BLOAD file",    loadScreen10,          0},
    {".SRB", "Screen11 BLOAD file",    loadScreen10,          0},
    {".S11", "Screen11 BLOAD file",    loadScreen10,          0},
    {".GLB", "Screen11 COPY file ",    loadScreen10Copy,      0},
    {".SCC", "Screen12 BLOAD file",    loadScreen12,          0},
    {".SRC", "Screen12 BLOAD file",    loadScreen12,          0},
    {".S12", "Screen12 BLOAD file",    loadScreen12,          0},
    {".GLC", "Screen12 COPY file ",    loadScreen12Copy,      0},
    {".HAM", "Screen 7 HAM file",      LoadHamPicture,        0},
    {".G9B", "Team Bomba G9B file",    LoadG9bPicture,        0},
    {".SGX", "SymbOS graphic file",    loadSymbosGraphic,     0},
    {".VID", "SymbOS video file",      openVidVideo,          0},
    {".EVA", "EVA YJK video file",     openEvaVideo,          0},
    {".EV8", "EVA RGB video file",     openEvaVideo,          0},
}};
// clang-format on

// A row missing at the end of the table would be empty.
static_assert(kFileKinds.back().extension != nullptr);

static_assert(std::all_of(kFileKinds.begin(), kFileKinds.end(), [](const FileKind &kind) {
  return std::string_view(kind.extension).size() == kExtensionLength;
}));

const FileKind *findFileKind(std::string_view extension) {
  if (extension.size() != kExtensionLength) return nullptr;
  const auto row = std::find_if(kFileKinds.begin(), kFileKinds.end(), [extension](const FileKind &kind) {
    return std::memcmp(kind.extension, extension.data(), kExtensionLength) == 0; // of a known length: one comparison
  });
  return row != kFileKinds.end() ? &*row : nullptr;
}
