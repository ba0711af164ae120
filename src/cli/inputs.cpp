#include "cli/inputs.h"

#include "base/disk_files.h"
#include "base/file_ops.h"
#include "base/folders.h"
#include "base/paths.h"
#include "base/text.h"
#include "cli/standard_input.h"
#include "core/file_kinds.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

#ifdef _WIN32
constexpr bool kExpandsPatterns = true; // no shell has done so
#else
constexpr bool kExpandsPatterns = false;
#endif

constexpr char kSeparator = kFolderSeparators.back();

// The paths of the pictures on a disk image or in a folder on it; none for another file.
std::vector<std::string> picturesOn(const std::string &path) {
  std::vector<std::string> paths;
  const std::string folder = asFolder(path);
  const size_t diskEnd = isOpened(path) ? 0 : diskLength(folder);
  if (diskEnd == 0) return paths;
  for (const std::string &name : listDiskImage(systemFileOf(folder)).value_or(std::vector<std::string>())) {
    const std::string picture = folder.substr(0, diskEnd) + name;
    if (picture.starts_with(folder) && isOpened(name)) paths.push_back(picture);
  }
  return paths;
}

// A disk image without pictures is an input itself, and refused.
void addFile(const std::string &path, const std::string &folder, std::vector<CliInput> &inputs) {
  const std::vector<std::string> onDisk = picturesOn(path);
  if (onDisk.empty()) inputs.emplace_back(CliInput{.path = path, .folder = folder});
  for (const std::string &picture : onDisk) inputs.emplace_back(CliInput{.path = picture, .folder = folder});
}

// The entries of a folder by name, the last one first.
std::string listBackwards(const std::string &folder, std::vector<FolderEntry> &entries) {
  std::string failure = listEntries(folder, entries);
  std::sort(entries.begin(), entries.end(),
            [](const FolderEntry &one, const FolderEntry &other) { return one.name > other.name; });
  return failure;
}

std::vector<CliInput> inputsOfFolder(const std::string &folder) {
  std::vector<CliInput> inputs;
  std::vector<std::string> pending{""}; // paths below `folder`, the next one last; those of folders end in a separator
  std::vector<FolderEntry> entries;
  while (!pending.empty()) {
    const std::string below = std::move(pending.back());
    pending.pop_back();
    const std::string path = folder + below;
    if (!below.empty() && !below.ends_with(kSeparator)) {
      const size_t folderEnd = below.rfind(kSeparator) + 1;
      addFile(path, below.substr(0, folderEnd), inputs);
      continue;
    }
    if (std::string failure = listBackwards(path, entries); !failure.empty()) {
      inputs.push_back({.path = path, .failure = std::move(failure)});
    }
    for (const FolderEntry &entry : entries) {
      if (entry.isFolder) pending.push_back(below + entry.name + kSeparator);
      if (!entry.isFolder && (isOpened(entry.name) || isDiskImageName(entry.name)))
        pending.push_back(below + entry.name);
    }
  }
  return inputs;
}

void addFolder(const std::string &path, std::vector<CliInput> &inputs) {
  std::vector<CliInput> found = inputsOfFolder(asFolder(path));
  if (found.empty()) found.push_back({.path = path, .failure = "holds no file that Korilan opens"});
  std::move(found.begin(), found.end(), std::back_inserter(inputs));
}

void addPath(const std::string &path, bool recursive, std::vector<CliInput> &inputs) {
  if (!isFolder(path)) {
    addFile(path, "", inputs);
  } else if (recursive) {
    addFolder(path, inputs);
  } else {
    inputs.push_back({.path = path, .failure = "is a folder; --recursive takes what is in it"});
  }
}

bool isPattern(const std::string &path) {
  return kExpandsPatterns && fileNameOf(path).find_first_of("*?") != std::string_view::npos;
}

void addPattern(const std::string &path, bool recursive, std::vector<CliInput> &inputs) {
  const std::string folder = path.substr(0, folderLength(path));
  const size_t before = inputs.size();
  std::vector<FolderEntry> entries;
  std::string failure = listBackwards(folder, entries);
  for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
    if (fitsPattern(entry->name, fileNameOf(path))) addPath(folder + entry->name, recursive, inputs);
  }
  if (inputs.size() != before) return;
  inputs.push_back({.path = path, .failure = failure.empty() ? missingFileWords() : failure});
}

} // namespace

std::vector<CliInput> findInputs(const CliRequest &request) {
  std::vector<CliInput> inputs;
  for (const std::string &path : request.files) {
    if (path == kStandardStream) {
      const std::string name = path + request.type;
      inputs.push_back({.path = name, .standardInput = true, .failure = readStandardInput(name)});
    } else if (isPattern(path)) {
      addPattern(path, request.recursive, inputs);
    } else {
      addPath(path, request.recursive, inputs);
    }
  }
  return inputs;
}

std::string identityOf(const CliInput &input) {
  return fileIdentity(input.standardInput ? "/dev/stdin"
                                          : systemFileOf(input.path)); // a name that Windows does not have
}

bool fitsPattern(std::string_view name, std::string_view pattern) {
  const std::string text = nameKey(name);
  const std::string wanted = nameKey(pattern);
  const auto isInside = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }; // of a character
  size_t at = 0;
  size_t star = std::string::npos; // the last * met, which takes the text from `taken` on until all else fits
  size_t taken = 0;
  size_t i = 0;
  while (at < text.size()) {
    if (i < wanted.size() && wanted[i] == '*') {
      star = i++;
      taken = at;
    } else if (i < wanted.size() && wanted[i] == '?') {
      ++i;
      do ++at;
      while (at < text.size() && isInside(text[at]));
    } else if (i < wanted.size() && wanted[i] == text[at]) {
      ++i;
      ++at;
    } else if (star != std::string::npos) {
      i = star + 1;
      at = ++taken;
    } else {
      return false;
    }
  }
  return wanted.find_first_not_of('*', i) == std::string::npos;
}
