#include "cli/target_names.h"

#include "base/disk_files.h"
#include "base/file_ops.h"
#include "base/folders.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/bitmap_export.h"
#include "core/file_kinds.h"

#include <algorithm>
#include <set>

namespace {

// Where an input's pictures go, in parts.
struct Place {
  std::string root;      // folder, with a separator or empty
  std::string folder;    // below it
  std::string name;      // of the input, without its extension
  std::string extension; // of the input, with the dot
  std::string frame;     // number of a video's frame, as its pictures' names hold it
};

std::string pathOf(const Place &place) { return place.root + place.folder + place.name; }

bool isOpened(const Place &place) { return !place.extension.empty(); }

// What names are compared by.
struct NameKeys {
  std::string letters;                                // of all pictures, with the dot
  std::map<std::string, std::string> identities = {}; // of folders
};

std::string keyOf(NameKeys &keys, const std::string &folder, const std::string &name) {
  const auto [entry, isNew] = keys.identities.emplace(folder, "");
  if (isNew) entry->second = fileIdentity(folder.empty() ? "." : folder);
  return entry->second + "/" + nameKey(name);
}

std::string keyOf(NameKeys &keys, const Place &place) {
  return keyOf(keys, place.root, place.folder + place.name + place.frame + keys.letters);
}

// Empty for an input that Korilan does not open.
Place placeOf(const CliRequest &request, const CliInput &input) {
  const FileKind *kind = findFileKind(upperCased(lastCharacters(input.path, kExtensionLength)));
  if (kind == nullptr) return {};
  const std::string path = savingPath(input.path);
  const size_t folderEnd = folderLength(path);
  const size_t nameEnd = path.size() - kExtensionLength;
  Place place;
  if (request.outDirectory.empty()) {
    place.root = path.substr(0, folderEnd);
  } else {
    place.root = asFolder(request.outDirectory);
    place.folder = input.folder;
  }
  place.name = path.substr(folderEnd, nameEnd - std::min(nameEnd, folderEnd));
  place.extension = path.substr(nameEnd);
  if (kind->traits.player != nullptr) place.frame = frameEnding(request.frame);
  return place;
}

// Whether another input wants a name that may be that of some frame of a video.
bool otherBeginsLikeFrames(NameKeys &keys, const std::map<std::string, int> &wishes, const Place &video) {
  const std::string own = keyOf(keys, video);
  const std::string start = keyOf(keys, video.root, video.folder + video.name + " - ");
  for (auto wish = wishes.lower_bound(start); wish != wishes.end() && wish->first.starts_with(start); ++wish) {
    if (wish->first != own) return true;
  }
  return false;
}

} // namespace

std::vector<std::string> nameTargets(const CliRequest &request, std::span<const CliInput> inputs) {
  NameKeys keys{.letters = "." + lettersOf(request.format)};
  std::set<std::string> taken;
  std::map<std::string, int> wishes; // how many inputs would take a name
  std::vector<Place> places;
  for (const CliInput &input : inputs) {
    const size_t folderEnd = folderLength(input.path);
    taken.insert(keyOf(keys, input.path.substr(0, folderEnd), input.path.substr(folderEnd)));
    places.push_back(placeOf(request, input));
    ++wishes[keyOf(keys, places.back())];
  }
  std::vector<std::string> names;
  for (const Place &place : places) {
    const std::string key = keyOf(keys, place);
    const bool meetsFrames = request.allFrames && !place.frame.empty() && otherBeginsLikeFrames(keys, wishes, place);
    const bool alone = isOpened(place) && !meetsFrames && wishes[key] == 1 && taken.insert(key).second;
    names.push_back(alone ? pathOf(place) : "");
  }
  std::map<std::string, int> numbers; // the last one of a name
  for (size_t i = 0; i < places.size(); ++i) {
    if (!names[i].empty() || !isOpened(places[i])) continue;
    Place place = places[i];
    const std::string name = place.name + place.extension;
    place.name = name;
    int &number = numbers[keyOf(keys, place)];
    do place.name = ++number == 1 ? name : name + " (" + std::to_string(number) + ")";
    while (!taken.insert(keyOf(keys, place)).second);
    names[i] = pathOf(place);
  }
  return names;
}

void keepInputs(Targets &targets, const CliRequest &request, std::span<const CliInput> inputs) {
  for (const CliInput &input : inputs) targets.holders.emplace(identityOf(input), Targets::Holder{input.path, false});
  if (request.palette.empty()) return;
  targets.holders.emplace(fileIdentity(systemFileOf(request.palette)), Targets::Holder{request.palette, false});
}

std::string takeTarget(Targets &targets, const std::string &target, const std::string &input) {
  const std::string identity = fileIdentity(target);
  const std::scoped_lock lock(targets.mutex);
  const Targets::Holder &holder = targets.holders.emplace(identity, Targets::Holder{input, true}).first->second;
  if (holder.written && holder.input == input) return "";
  if (holder.written) return "its picture would replace that of " + holder.input;
  return "its picture would replace " + (holder.input == input ? "the file itself" : holder.input);
}

void keepTarget(Targets &targets, const std::string &target, const std::string &input) {
  const std::string identity = fileIdentity(target);
  const std::scoped_lock lock(targets.mutex);
  targets.holders.emplace(identity, Targets::Holder{input, true});
}
