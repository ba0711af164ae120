#include "cli/single_file.h"

#include "cli/film.h"
#include "cli/opened_file.h"
#include "cli/output.h"
#include "cli/picture_writer.h"

#include <memory>

namespace {

std::string putFile(OpenedFile &file, const CliRequest &request, const PutBytes &put) {
  switch (request.command) {
  case CliCommand::kVideo: return putVideo(file, put);
  case CliCommand::kSound: return putSound(file, put);
  default: return putThumbnail(file.viewer, request, put);
  }
}

// Returns what went wrong, or an empty text.
std::string writeFile(const CliRequest &request, const CliInput &input) {
  const auto file = std::make_unique<OpenedFile>();
  openInput(*file, input);
  if (std::string failure = refusal(file->viewer); !failure.empty()) return failure;
  if (request.command != CliCommand::kThumb) {
    const std::string failure = refusalOfFilm(file->viewer, request.command);
    if (!failure.empty()) return input.path + ": " + failure;
  }
  if (fileIdentity(request.outPath) == identityOf(input)) {
    return input.path + ": would be replaced by itself";
  }
  return writeCliOutput(request.outPath, [&](const PutBytes &put) { return putFile(*file, request, put); });
}

} // namespace

bool writeSingleFile(const CliRequest &request, const CliInput &input) {
  const std::string failure = writeFile(request, input);
  if (!failure.empty()) printError(failure);
  return failure.empty();
}
