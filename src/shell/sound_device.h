// The sound device; see PlatformOps.
#pragma once

#include <cstdint>
#include <span>

void playLooping(std::span<const uint8_t> image);
void playOnce(std::span<const uint8_t> silence);
