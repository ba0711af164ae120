// Folders of the file system. Paths are UTF-8; messages are the system's, empty on success.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct FolderEntry {
  std::string name;
  bool isFolder; // otherwise a regular file
};

// Lists the files and folders in a folder in the system's order, without hidden ones and links to folders. `folder`
// ends in a separator; if empty, it is the current folder. Returns the message if it cannot be read.
std::string listEntries(const std::string &folder, std::vector<FolderEntry> &entries);

// The files alone; none if the folder cannot be read.
std::vector<std::string> listFiles(const char *folder);

// Whether a path leads to a folder, by whatever links.
bool isFolder(const std::string &path);

// Creates a folder. Returns the message if there is none afterwards.
std::string makeFolder(const std::string &path);

// The same with all parents.
std::string makeFolders(const std::string &path);

// Why openForReading() refuses a path; empty if it does not.
std::string readFailure(const std::string &path);

// The system's message for a file that does not exist.
std::string missingFileWords();

// What the file system compares a name by.
std::string nameKey(std::string_view name);
