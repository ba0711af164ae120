// Settings in the registry: the default value of a key of file classes; see PlatformOps.
#pragma once

#include <string>

std::string readRegistrySetting(const std::string &key);
void writeRegistrySetting(const std::string &key, const std::string &value);
void deleteRegistrySetting(const std::string &key);
void notifyAssociationsChanged();
