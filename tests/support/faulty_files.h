#pragma once
#include "support/memory_files.h"
