// Samples on the disk, and what the core over the headless platform makes of them, held against the window.
#pragma once

#include "cli/opened_file.h"
#include "sample_pictures.h"
#include "shell/driven_window.h"
#include "support/temporary_folder.h"

#include <memory>
#include <string>
#include <vector>

const std::vector<samples::SamplePicture> &allSamples();

const samples::SamplePicture &sampleNamed(const std::string &name);

// A sample in a folder, opened by the core.
struct SampleFile {
  std::string name; // without the sample's folder
  std::string path;
  std::unique_ptr<OpenedFile> opened = std::make_unique<OpenedFile>();
  ViewerState &viewer = opened->viewer;
  const WindowModel &model = viewer.window;

  SampleFile(const TemporaryFolder &folder, const samples::SamplePicture &sample);
};

// Caption and labels become those of the model.
void expectTexts(const DrivenWindow &driven, const WindowModel &model);

// Whether the picture area shows the stretched picture from `line` on, pixel for pixel, as far as there is room.
bool showsPicture(const DrivenWindow &driven, const ViewerState &viewer, int64_t line = 0);

// The picture area has its size, and the whole stretched picture stands in its top left corner.
void expectPicture(const DrivenWindow &driven, const ViewerState &viewer);

// Whether the menus come to hold that line.
bool menusHold(const DrivenWindow &driven, const char *line);

// Runs the same command in the window and in the core.
void chooseInBoth(const DrivenWindow &driven, ViewerState &viewer, const char *caption);
