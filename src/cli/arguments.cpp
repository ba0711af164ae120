#include "cli/arguments.h"

#include <algorithm>
#include <charconv>
#include <string_view>

const char *const kCliHelp =
    "korilan-cli: pictures of MSX home computers, without a window\n"
    "\n"
    "  korilan-cli info    [--json] FILE...\n"
    "      what the window would show; with --json an object a line\n"
    "  korilan-cli convert [-o OUT | -d DIR] [--format bmp|ppm] [--shown] [--jobs N] FILE...\n"
    "      writes each picture at its own size beside its file, to DIR, or to OUT (- is standard output);\n"
    "      --shown applies zoom and aspect as the window does\n"
    "\n"
    "Exit status: 0 all files shown, 1 some file not, 2 wrong usage.\n";

namespace {

constexpr unsigned kMostJobs = 256;

bool endsIn(std::string_view text, std::string_view ending) {
  return text.size() >= ending.size() && text.substr(text.size() - ending.size()) == ending;
}

// What an option of convert takes from its value; returns what is wrong.
std::string takeValue(const std::string &option, const std::string &value, CliRequest &request) {
  if (option == "-o") {
    request.outPath = value;
    return value.empty() ? "-o needs a file name" : "";
  }
  if (option == "-d") {
    request.outDirectory = value;
    return value.empty() ? "-d needs a folder" : "";
  }
  if (option == "--format") {
    request.format = value == "ppm" ? ImageFormat::kPpm : ImageFormat::kBmp;
    return value == "ppm" || value == "bmp" ? "" : "--format takes bmp or ppm, not '" + value + "'";
  }
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), request.jobs);
  const bool whole = error == std::errc() && end == value.data() + value.size();
  if (whole && request.jobs >= 1 && request.jobs <= kMostJobs) return "";
  return "--jobs takes a number from 1 to " + std::to_string(kMostJobs) + ", not '" + value + "'";
}

bool takesValue(const std::string &option) {
  return option == "-o" || option == "-d" || option == "--format" || option == "--jobs";
}

// Asked for anywhere in front of "--", help outranks all else.
bool wantsHelp(std::span<const std::string> arguments) {
  const auto options =
      arguments.first(static_cast<size_t>(std::find(arguments.begin(), arguments.end(), "--") - arguments.begin()));
  return std::any_of(options.begin(), options.end(),
                     [](const std::string &text) { return text == "--help" || text == "-h"; });
}

std::string parseOptions(std::span<const std::string> arguments, CliRequest &request) {
  const bool convert = request.command == CliCommand::kConvert;
  bool formatGiven = false;
  bool onlyFiles = false;
  for (size_t i = 0; i < arguments.size(); ++i) {
    const std::string &argument = arguments[i];
    if (onlyFiles || argument.empty() || argument[0] != '-') {
      request.files.push_back(argument);
    } else if (argument == "--") {
      onlyFiles = true;
    } else if (argument == "--json" && !convert) {
      request.json = true;
    } else if (argument == "--shown" && convert) {
      request.shown = true;
    } else if (takesValue(argument) && convert) {
      if (i + 1 == arguments.size()) return argument + " needs a value";
      if (std::string wrong = takeValue(argument, arguments[++i], request); !wrong.empty()) return wrong;
      formatGiven = formatGiven || argument == "--format";
    } else {
      return "unknown option '" + argument + "'";
    }
  }
  if (!formatGiven && endsIn(request.outPath, ".ppm")) request.format = ImageFormat::kPpm;
  return "";
}

} // namespace

std::string parseArguments(std::span<const std::string> arguments, CliRequest &request) {
  request = {};
  if (arguments.empty()) return "no command given; korilan-cli --help lists them";
  const std::string &command = arguments[0];
  if (command == "help" || wantsHelp(arguments)) return "";
  if (command == "info") {
    request.command = CliCommand::kInfo;
  } else if (command == "convert") {
    request.command = CliCommand::kConvert;
  } else {
    return "unknown command '" + command + "'; korilan-cli --help lists them";
  }
  if (std::string wrong = parseOptions(arguments.subspan(1), request); !wrong.empty()) return wrong;
  if (request.files.empty()) return command + " needs at least one file";
  if (!request.outPath.empty() && !request.outDirectory.empty()) return "-o and -d exclude each other";
  if (!request.outPath.empty() && request.files.size() > 1) return "-o takes one file; use -d for several";
  if (std::find(request.files.begin(), request.files.end(), request.outPath) != request.files.end()) {
    return "-o names the file itself";
  }
  return "";
}
