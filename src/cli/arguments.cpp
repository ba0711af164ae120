#include "cli/arguments.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <string_view>

const char *const kCliHelp =
    "korilan-cli: pictures and videos of MSX home computers, without a window\n"
    "\n"
    "  korilan-cli info    [--json] [--frame N] FILE...\n"
    "      what the window would show; with --json an object a line\n"
    "  korilan-cli convert [-o OUT | -d DIR] [--format bmp|ppm] [--frame N | --all-frames] [--shown] [--jobs N] "
    "FILE...\n"
    "      writes each picture at its own size beside its file, to DIR, or to OUT (- is standard output);\n"
    "      of a video frame N, from 0 on, or all; --shown applies zoom and aspect as the window does\n"
    "  korilan-cli video   FILE -o OUT.y4m|-\n"
    "      writes all frames of a video as YUV4MPEG2\n"
    "  korilan-cli sound   FILE -o OUT.wav|-\n"
    "      writes the whole sound of a video as a WAVE file\n"
    "\n"
    "Exit status: 0 all files shown, 1 some file not, 2 wrong usage.\n";

namespace {

constexpr unsigned kMaxJobs = 256;

bool endsIn(std::string_view text, std::string_view ending) {
  return text.size() >= ending.size() && text.substr(text.size() - ending.size()) == ending;
}

// Parses a whole number from min to max, without trailing characters.
template <typename Number> bool takeNumber(const std::string &text, Number min, Number max, Number &number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() && number >= min && number <= max;
}

// Each stores its option's value in the request and returns an error message, empty if the value is valid.
std::string takeOut(const std::string &value, CliRequest &request) {
  request.outPath = value;
  return value.empty() ? "-o needs a file name" : "";
}

std::string takeDirectory(const std::string &value, CliRequest &request) {
  request.outDirectory = value;
  return value.empty() ? "-d needs a folder" : "";
}

std::string takeFormat(const std::string &value, CliRequest &request) {
  request.format = value == "ppm" ? ImageFormat::kPpm : ImageFormat::kBmp;
  return value == "ppm" || value == "bmp" ? "" : "--format takes bmp or ppm, not '" + value + "'";
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
  const char *name;
  std::string_view commands; // first letters of its commands
  std::string (*take)(const std::string &value, CliRequest &request);
  bool CliRequest::*flag = nullptr;
};

constexpr std::array<Option, 8> kOptions{{
    {"-o", "cvs", takeOut},
    {"-d", "c", takeDirectory},
    {"--format", "c", takeFormat},
    {"--frame", "ic", takeFrame},
    {"--jobs", "c", takeJobs},
    {"--all-frames", "c", nullptr, &CliRequest::allFrames},
    {"--shown", "c", nullptr, &CliRequest::shown},
    {"--json", "i", nullptr, &CliRequest::json},
}};

struct Command {
  std::string_view name;
  CliCommand command;
};

constexpr std::array<Command, 4> kCommands{{
    {"info", CliCommand::kInfo},
    {"convert", CliCommand::kConvert},
    {"video", CliCommand::kVideo},
    {"sound", CliCommand::kSound},
}};

// Help before "--" overrides all other arguments.
bool wantsHelp(std::span<const std::string> arguments) {
  const auto options =
      arguments.first(static_cast<size_t>(std::find(arguments.begin(), arguments.end(), "--") - arguments.begin()));
  return std::any_of(options.begin(), options.end(),
                     [](const std::string &text) { return text == "--help" || text == "-h"; });
}

const Option *findOption(const std::string &name, char command) {
  const auto row = std::find_if(kOptions.begin(), kOptions.end(), [&](const Option &option) {
    return name == option.name && option.commands.find(command) != std::string_view::npos;
  });
  return row != kOptions.end() ? &*row : nullptr;
}

// `arguments` begins with the command.
std::string parseOptions(std::span<const std::string> arguments, CliRequest &request) {
  std::vector<std::string_view> given;
  const auto isGiven = [&given](std::string_view name) {
    return std::find(given.begin(), given.end(), name) != given.end();
  };
  bool onlyFiles = false;
  for (size_t i = 1; i < arguments.size(); ++i) {
    const std::string &argument = arguments[i];
    if (onlyFiles || argument.empty() || argument[0] != '-') {
      request.files.push_back(argument);
      continue;
    }
    if (argument == "--") {
      onlyFiles = true;
      continue;
    }
    const Option *option = findOption(argument, arguments[0][0]);
    if (option == nullptr) return "unknown option '" + argument + "'";
    if (isGiven(option->name)) return argument + " is given twice";
    if (option->flag != nullptr) {
      request.*option->flag = true;
    } else {
      if (i + 1 == arguments.size()) return argument + " needs a value";
      if (std::string wrong = option->take(arguments[++i], request); !wrong.empty()) return wrong;
    }
    given.push_back(option->name);
  }
  if (isGiven("--frame") && isGiven("--all-frames")) return "--frame and --all-frames exclude each other";
  if (!isGiven("--format") && endsIn(request.outPath, ".ppm")) request.format = ImageFormat::kPpm;
  return "";
}

} // namespace

std::string parseArguments(std::span<const std::string> arguments, CliRequest &request) {
  request = {};
  if (arguments.empty()) return "no command given; korilan-cli --help lists them";
  const std::string &command = arguments[0];
  if (command == "help" || wantsHelp(arguments)) return "";
  const auto row =
      std::find_if(kCommands.begin(), kCommands.end(), [&](const Command &one) { return command == one.name; });
  if (row == kCommands.end()) return "unknown command '" + command + "'; korilan-cli --help lists them";
  request.command = row->command;
  if (std::string wrong = parseOptions(arguments, request); !wrong.empty()) return wrong;
  if (request.files.empty()) return command + " needs at least one file";
  if (std::find(request.files.begin(), request.files.end(), "") != request.files.end()) return "an empty file name";
  if (request.command == CliCommand::kVideo || request.command == CliCommand::kSound) {
    if (request.files.size() > 1) return command + " takes one file";
    if (request.outPath.empty()) return command + " needs -o OUT";
  }
  if (!request.outPath.empty() && request.allFrames) return "-o takes one frame; use -d for all";
  if (!request.outPath.empty() && !request.outDirectory.empty()) return "-o and -d exclude each other";
  if (!request.outPath.empty() && request.files.size() > 1) return "-o takes one file; use -d for several";
  if (std::find(request.files.begin(), request.files.end(), request.outPath) != request.files.end()) {
    return "-o names the file itself";
  }
  return "";
}
