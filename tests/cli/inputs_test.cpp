#include "cli/inputs.h"

#include "base/paths.h"
#include "cli/target_names.h"
#include "disk_image_maker.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace {

TEST(CliInputs, AreFoundInFoldersByName) {
  const TemporaryFolder folder("inputs");
  const char separator = folder.path.back();
  for (const char *name : {"b", "b/c", "a.SC5", "empty"}) std::filesystem::create_directories(folder.path + name);
  for (const char8_t *name : {u8"b.SC5", u8"b/z.sc8", u8"b/c/y.EVA", u8"b/x.TXT", u8".SC5", u8"a.SC5/a.SC6"})
    folder.write(name, {});
  folder.write(u8"b/d.DSK", samples::makeDiskImage({}, {{"F/2.SC5", {}}, {"1.SC5", {}}, {"X.TXT", {}}}));
  folder.write(u8"b/e.360", {});
  std::error_code error; // a system may not allow links
  std::filesystem::create_directory_symlink(folder.path, folder.path + "again", error);
  std::string found;
  const std::string missing = folder.path + "missing.SC5", empty = folder.path + "empty";
  for (const CliInput &input : findInputs({.recursive = true, .files = {missing, folder.path, empty}})) {
    EXPECT_EQ(input.path.substr(0, folder.path.size()), folder.path);
    found += input.path.substr(folder.path.size()) + "(" + input.folder + input.failure + ") ";
  }
  std::replace(found.begin(), found.end(), separator, '/');
  EXPECT_EQ(found, "missing.SC5() a.SC5/a.SC6(a.SC5/) b/c/y.EVA(b/c/) b/d.DSK/1.SC5(b/) b/d.DSK/F/2.SC5(b/) "
                   "b/e.360(b/) b/z.sc8(b/) b.SC5() "
                   "empty(holds no file that Korilan opens) ");
}

TEST(CliInputs, FitPatterns) {
  using Row = std::tuple<const char *, const char *, bool>;
  for (const auto &[name, pattern, fits] :
       {Row{"a.SC5", "*.SC5", true}, Row{"a.SC5", "*", true}, Row{"a.SC5", "?.SC?", true},
        Row{"a.SC5", "?.SC??", false}, Row{"a.SC5", "a.SC5**", true}, Row{"a.SC5.SC5", "*.SC5", true},
        Row{"aXbXc", "a*X?", true}, Row{"aXbXc", "a*Xd", false}, Row{"\u57CE.SC5", "?.SC5", true},
        Row{"\u57CE.SC5", "??.SC5", false}, Row{"", "?", false}}) {
    EXPECT_EQ(fitsPattern(name, pattern), fits) << name << " " << pattern;
  }
}

// The names for files of the folder "x", or to be written to it.
std::string namesOf(const CliRequest &request, const std::vector<std::string> &files) {
  std::vector<CliInput> inputs;
  const std::string folder = systemPath("x/");
  for (const std::string &file : files) inputs.push_back({.path = systemPath(file[0] == 'y' ? file : "x/" + file)});
  std::string names;
  for (const std::string &name : nameTargets(request, inputs)) {
    names += (name.starts_with(folder) ? name.substr(folder.size()) : name) + ", ";
  }
  return names;
}

TEST(CliTargetNames, AreUniqueAndDependOnTheInputsAlone) {
  const CliRequest beside, png{.format = ImageFormat::kPng}, toX{.outDirectory = "x"};
  using Row = std::tuple<CliRequest, std::vector<std::string>, const char *>;
  for (const auto &[request, files, names] :
       {Row{beside, {"A.SC4", "B.SC5", "A.SC5", "a.txt", "."}, "A.SC4, B, A.SC5, , , "},
        Row{beside, {"A.SC5", "A.bmp"}, "A.SC5, , "}, Row{png, {"A.SC5", "A.bmp"}, "A, , "},
        Row{beside, {"A.EVA", "A.EV8", "A.VID", "A.SC5", "A - 0000.SC5"}, "A.EVA, A.EV8, A.VID, A, A - 0000.SC5, "},
        Row{beside, {"B.EVA", "B - 0000.SC5"}, "B.EVA, B - 0000.SC5, "},
        Row{beside, {"A.SC4.SC5", "A.SC4", "A.SC4", "A.SC5"}, "A.SC4, A.SC4 (2), A.SC4 (3), A.SC5, "},
        Row{beside, {"A.SC4", "y/A.SC4"}, "A, y/A, "},
        Row{toX, {"A.SC4", "y/A.SC4", "y/z/A.SC4", "y/A.bmp"}, "A.SC4, A.SC4 (2), A.SC4 (3), , "},
        Row{toX, {"A.SC4", "A.bmp"}, "A.SC4, , "}}) {
    EXPECT_EQ(namesOf(request, files), systemPath(names));
  }
#ifdef _WIN32
  EXPECT_EQ(namesOf(beside, {"CASTLE.SC4", "castle.sc8"}), "CASTLE.SC4, castle.sc8, ");
#else
  EXPECT_EQ(namesOf(beside, {"CASTLE.SC4", "castle.sc8"}), "CASTLE, castle, ");
#endif
}

} // namespace
