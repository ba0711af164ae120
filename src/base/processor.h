// What the processor can do beyond what the program is compiled for.
#pragma once

bool hasSsse3();
bool hasAvx2();
bool hasAvx512(); // its foundation: 16 words at a time
