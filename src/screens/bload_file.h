// The BLOAD file: a header of 7 bytes and a copy of video memory from address 0.
#pragma once

#include "state/viewer_state.h"

#include <cstdint>

//  offset  size  field              rule
//       0     1  identifier         0xFE; 0xFD marks a packed body
//       1     2  start address      0
//       3     2  end address        a bound for each mode, compared as a signed 16-bit number
//       5     2  execution address  0
//       7        body               video memory from address 0
// Words are little-endian. Positions count from 1.
inline constexpr int32_t kIdentifierPos = 1;
inline constexpr int32_t kStartAddressPos = 2;
inline constexpr int32_t kEndAddressPos = 4;
inline constexpr int32_t kExecutionAddressPos = 6;
inline constexpr int32_t kBodyPos = 8;

inline constexpr uint8_t kPlainIdentifier = 0xFE;
inline constexpr uint8_t kPackedIdentifier = 0xFD;

// A 16-bit address as the signed number that the bounds are compared with.
constexpr int32_t signedAddress(uint16_t address) { return static_cast<int16_t>(address); }

// As signed numbers the addresses from 0x8000 on lie below 0, so a lowest end address of 0x69FF shuts them out, while
// one of 0xD3FF lets everything below 0x8000 in: intended.
inline constexpr int32_t kHighestAddress = signedAddress(0x7FFF);

// Position in the file of the byte that lies at a video memory address.
constexpr int32_t filePositionOf(int32_t address) { return kBodyPos + address; }

// Whether start and execution address are 0 and the end address lies from `endLowest` to `endHighest`, as signed
// numbers.
bool bloadAddressesValid(const ViewerState &viewer, int32_t endLowest, int32_t endHighest);

// Whether start and execution address are 0, whatever the end address.
bool packedBloadAddressesValid(const ViewerState &viewer);
