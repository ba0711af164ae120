// Settings in the registry; see PlatformOps.
#pragma once

#include <optional>
#include <string>

// The default value of a key of file classes.

std::string readRegistrySetting(const std::string &key);
void writeRegistrySetting(const std::string &key, const std::string &value);
void deleteRegistrySetting(const std::string &key);
void notifyAssociationsChanged();

// A text under HKEY_CURRENT_USER\Software\Korilan.
std::optional<std::string> readRegistryValue(const std::string &name);
void writeRegistryValue(const std::string &name, const std::string &value);
