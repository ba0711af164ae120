#pragma once
#include "support/bytes.h"
