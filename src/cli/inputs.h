// The files that a command line names.
#pragma once

#include "cli/arguments.h"

#include <string>
#include <string_view>
#include <vector>

struct CliInput {
  std::string path;
  std::string folder = {}; // of the file below the folder that was named, with separators; empty if a file was named
  bool standardInput = false;
  std::string failure = {}; // why there is nothing to be opened, without the path
};

// In the order given; those of a folder or pattern in the order of their names, the pictures of a disk image in that of
// the disk. Reads standard input if it is named.
std::vector<CliInput> findInputs(const CliRequest &request);

// fileIdentity() of the file that is read, which may be a disk image.
std::string identityOf(const CliInput &input);

// Whether a name fits a pattern: * fits any text, ? any character, other characters fit as the file system compares.
bool fitsPattern(std::string_view name, std::string_view pattern);
