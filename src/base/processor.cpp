#include "base/processor.h"

#if !defined(__x86_64__)

bool hasSsse3() { return false; }
bool hasAvx2() { return false; }
bool hasAvx512() { return false; }

#elif __has_include(<sys/platform/x86.h>) && !defined(__clang__)

// The C library has asked the processor already. To ask again would take long where a virtual machine answers. Its
// header is no C++ to clang.
#include <sys/platform/x86.h>

bool hasSsse3() { return CPU_FEATURE_ACTIVE(SSSE3); }
bool hasAvx2() { return CPU_FEATURE_ACTIVE(AVX2); }
bool hasAvx512() { return CPU_FEATURE_ACTIVE(AVX512F); }

#else

bool hasSsse3() { return __builtin_cpu_supports("ssse3"); }
bool hasAvx2() { return __builtin_cpu_supports("avx2"); }
bool hasAvx512() { return __builtin_cpu_supports("avx512f"); }

#endif
