#include "cli/arguments.h"

#include "base/paths.h"
#include "base/text.h"
#include "core/file_kinds.h"
#include "pixels/thumbnail.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>
#include <string_view>

namespace {

constexpr unsigned kMaxJobs = 256;

struct Format {
  std::string_view letters;
  ImageFormat format;
};

constexpr std::array<Format, 3> kFormats{{
    {"bmp", ImageFormat::kBmp},
    {"png", ImageFormat::kPng},
    {"ppm", ImageFormat::kPpm},
}};

// Returns false if there is no such format.
bool takeLetters(std::string_view letters, ImageFormat &format) {
  const auto row = std::find_if(kFormats.begin(), kFormats.end(),
                                [&](const Format &one) { return upperCased(one.letters) == upperCased(letters); });
  if (row != kFormats.end()) format = row->format;
  return row != kFormats.end();
}

// The letters behind the last dot of a file's name; none for a name that begins with it.
std::string_view endingOf(std::string_view path) {
  const std::string_view name = fileNameOf(path);
  const size_t dot = name.rfind('.');
  return dot == 0 || dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
}

// Parses a whole number from min to max, without trailing characters.
template <typename Number> bool takeNumber(const std::string &text, Number min, Number max, Number &number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() && number >= min && number <= max;
}

// Each stores its option's value in the request and returns an error message, empty if the value is valid.
std::string takeOut(const std::string &value, CliRequest &request) {
  // Opened by its name, a file behind standard output would be written from its start.
  const bool standard = value == "/dev/stdout" || value == "/dev/fd/1";
  request.outPath = standard ? kStandardStream : systemPath(value);
  return value.empty() ? "-o needs a file name" : "";
}

std::string takeDirectory(const std::string &value, CliRequest &request) {
  request.outDirectory = systemPath(value);
  return value.empty() ? "-d needs a folder" : "";
}

std::string takeFormat(const std::string &value, CliRequest &request) {
  return takeLetters(value, request.format) ? "" : "--format takes bmp, png or ppm, not '" + value + "'";
}

std::string takePalette(const std::string &value, CliRequest &request) {
  request.palette = systemPath(value);
  return value.empty() ? "--palette needs a file name" : "";
}

std::string takeType(const std::string &value, CliRequest &request) {
  request.type = value;
  if (findFileKind(upperCased(value)) != nullptr) return "";
  return "--type takes the ending of a kind of file that Korilan opens, as .SC5, not '" + value + "'";
}

std::string takeSize(const std::string &value, CliRequest &request) {
  if (takeNumber(value, 1, kMaxThumbnailSide, request.size)) return "";
  return "--size takes a number from 1 to " + std::to_string(kMaxThumbnailSide) + ", not '" + value + "'";
}

std::string takeJobs(const std::string &value, CliRequest &request) {
  if (takeNumber(value, 1U, kMaxJobs, request.jobs)) return "";
  return "--jobs takes a number from 1 to " + std::to_string(kMaxJobs) + ", not '" + value + "'";
}

std::string takeFrame(const std::string &value, CliRequest &request) {
  if (takeNumber(value, 0, std::numeric_limits<int>::max(), request.frame)) return "";
  return "--frame takes a number from 0 on, not '" + value + "'";
}

// An option takes a value, or sets a flag.
struct Option {
  std::string_view name;
  std::string_view commands; // first letters of its commands
  std::string (*take)(const std::string &value, CliRequest &request);
  bool CliRequest::*flag = nullptr;
};

constexpr std::array<Option, 13> kOptions{{
    {"-o", "cvs", takeOut},
    {"-d", "c", takeDirectory},
    {"--format", "c", takeFormat},
    {"--frame", "ic", takeFrame},
    {"--palette", "ic", takePalette},
    {"--type", "ictvs", takeType},
    {"--size", "t", takeSize},
    {"--jobs", "c", takeJobs},
    {"--all-frames", "c", nullptr, &CliRequest::allFrames},
    {"--no-clobber", "c", nullptr, &CliRequest::noClobber},
    {"--recursive", "ic", nullptr, &CliRequest::recursive},
    {"--shown", "c", nullptr, &CliRequest::shown},
    {"--json", "i", nullptr, &CliRequest::json},
}};

struct Command {
  std::string_view name;
  CliCommand command;
};

constexpr std::array<Command, 5> kCommands{{
    {"info", CliCommand::kInfo},
    {"convert", CliCommand::kConvert},
    {"thumb", CliCommand::kThumb},
    {"video", CliCommand::kVideo},
    {"sound", CliCommand::kSound},
}};

std::string_view nameOf(CliCommand command) {
  const auto row =
      std::find_if(kCommands.begin(), kCommands.end(), [&](const Command &one) { return one.command == command; });
  return row->name;
}

// Whether an argument before "--" is one of these, which then overrides all others.
bool holds(std::span<const std::string> arguments, std::string_view name, std::string_view otherName) {
  const auto end = std::find(arguments.begin(), arguments.end(), "--");
  return std::any_of(arguments.begin(), end,
                     [&](const std::string &text) { return text == name || text == otherName; });
}

const Option *findOption(std::string_view name, char command) {
  const auto row = std::find_if(kOptions.begin(), kOptions.end(), [&](const Option &option) {
    return name == option.name && option.commands.find(command) != std::string_view::npos;
  });
  return row != kOptions.end() ? &*row : nullptr;
}

// An option with its value if that is in the same argument: "--format=png", "-oFILE".
struct SplitOption {
  std::string name;
  std::optional<std::string> value;
};

SplitOption splitOption(const std::string &argument) {
  constexpr size_t kShortName = 2;
  const bool isShort = !argument.starts_with("--");
  const size_t nameEnd = isShort ? kShortName : argument.find('=');
  if (nameEnd >= argument.size()) return {argument, std::nullopt};
  return {argument.substr(0, nameEnd), argument.substr(nameEnd + (isShort ? 0 : 1))};
}

using OptionNames = std::vector<std::string_view>;

bool isGiven(const OptionNames &given, std::string_view name) {
  return std::find(given.begin(), given.end(), name) != given.end();
}

// `arguments` begins with the command.
std::string parseOptions(std::span<const std::string> arguments, CliRequest &request, OptionNames &given) {
  bool onlyFiles = false;
  for (size_t i = 1; i < arguments.size(); ++i) {
    const std::string &argument = arguments[i];
    if (onlyFiles || !argument.starts_with('-') || argument == kStandardStream) {
      request.files.push_back(systemPath(argument));
      continue;
    }
    if (argument == "--") {
      onlyFiles = true;
      continue;
    }
    auto [name, value] = splitOption(argument);
    const Option *option = findOption(name, arguments[0][0]);
    if (option == nullptr) return "unknown option '" + argument + "'";
    if (isGiven(given, option->name)) return name + " is given twice";
    if (option->flag != nullptr) {
      if (value) return name + " takes no value";
      request.*option->flag = true;
    } else {
      if (!value && i + 1 == arguments.size()) return name + " needs a value";
      if (std::string wrong = option->take(value ? *value : arguments[++i], request); !wrong.empty()) return wrong;
    }
    given.push_back(option->name);
  }
  return "";
}

// The ending of the output chooses the format unless one is given.
std::string takeEnding(CliRequest &request, bool formatGiven) {
  const std::string ending(endingOf(request.outPath));
  ImageFormat format = request.format;
  if (ending.empty() || takeLetters(ending, format)) {
    if (!formatGiven) request.format = format;
    return "";
  }
  return "-o takes a name that ends in .bmp, .png or .ppm, not in ." + ending;
}

// Standard input, as a file.
std::string checkStandardInput(const CliRequest &request) {
  const auto count = std::count(request.files.begin(), request.files.end(), kStandardStream);
  if (count > 1) return "standard input is given twice";
  if (count == 1 && request.type.empty()) return "- needs --type .EXT";
  if (count == 0 && !request.type.empty()) return "--type is for standard input, -";
  if (count == 1 && request.allFrames && request.outDirectory.empty()) return "--all-frames of - needs -d";
  return "";
}

// A file that is no picture of a batch keeps its own ending: one with another may be the user's picture or film.
std::string checkEnding(const CliRequest &request) {
  const std::string_view wanted = request.command == CliCommand::kThumb   ? "png"
                                  : request.command == CliCommand::kVideo ? "y4m"
                                  : request.command == CliCommand::kSound ? "wav"
                                                                          : "";
  const std::string ending(endingOf(request.outPath));
  if (wanted.empty() || ending.empty() || upperCased(ending) == upperCased(wanted)) return "";
  return std::string(nameOf(request.command)) + " writes a file that ends in ." + std::string(wanted) + ", not in ." +
         ending;
}

std::string checkOutput(const CliRequest &request) {
  const std::string &out = request.outPath;
  const bool film = request.command == CliCommand::kVideo || request.command == CliCommand::kSound;
  if (film && out.empty()) return std::string(nameOf(request.command)) + " needs -o OUT";
  if (out.empty()) return "";
  if (std::string wrong = checkEnding(request); !wrong.empty()) return wrong;
  if (request.allFrames) return "-o takes one frame; use -d for all";
  if (!request.outDirectory.empty()) return "-o and -d exclude each other";
  const bool itself = out != kStandardStream && out == request.files.front();
  return itself ? "the output is the file itself" : "";
}

} // namespace

std::string lettersOf(ImageFormat format) {
  const auto row =
      std::find_if(kFormats.begin(), kFormats.end(), [&](const Format &one) { return one.format == format; });
  return std::string(row->letters);
}

std::string tooManyFiles(const CliRequest &request, size_t files) {
  if (files <= 1 || request.command == CliCommand::kInfo) return "";
  if (request.command != CliCommand::kConvert) return std::string(nameOf(request.command)) + " takes one file";
  return request.outPath.empty() ? "" : "-o takes one file; use -d for several";
}

std::string parseArguments(std::span<const std::string> arguments, CliRequest &request) {
  request = {};
  if (arguments.empty()) return "no command given; korilan-cli --help lists them";
  const std::string &command = arguments[0];
  if (command == "help" || holds(arguments, "--help", "-h")) return "";
  if (holds(arguments, "--version", "--version")) {
    request.command = CliCommand::kVersion;
    return "";
  }
  if (holds(arguments, "--kinds", "--kinds")) {
    request.command = CliCommand::kKinds;
    return "";
  }
  const auto row =
      std::find_if(kCommands.begin(), kCommands.end(), [&](const Command &one) { return command == one.name; });
  if (row == kCommands.end()) return "unknown command '" + command + "'; korilan-cli --help lists them";
  request.command = row->command;
  OptionNames given;
  if (std::string wrong = parseOptions(arguments, request, given); !wrong.empty()) return wrong;
  std::vector<std::string> &files = request.files;
  if (std::find(files.begin(), files.end(), "") != files.end()) return "an empty file name";
  if (request.command == CliCommand::kThumb) {
    if (request.size == 0) return "thumb needs --size N";
    if (files.size() != 2) return "thumb takes a file and the PNG file to write";
    request.outPath = files.back();
    files.pop_back();
  }
  if (files.empty()) return command + " needs at least one file";
  if (isGiven(given, "--frame") && request.allFrames) return "--frame and --all-frames exclude each other";
  std::string wrong = tooManyFiles(request, files.size());
  if (wrong.empty()) wrong = checkOutput(request);
  if (wrong.empty() && request.command == CliCommand::kConvert) wrong = takeEnding(request, isGiven(given, "--format"));
  return wrong.empty() ? checkStandardInput(request) : wrong;
}
