// Settings in the registry of file classes. Each is the unnamed value of a key; see PlatformOps.
#pragma once

#include <string>

std::string readRegistrySetting(const std::string &key);
void writeRegistrySetting(const std::string &key, const std::string &value);
void deleteRegistrySetting(const std::string &key);
void notifyAssociationsChanged();
