// The output of `korilan-cli --help`.
#pragma once

extern const char *const kCliHelp;
