// SPDX-License-Identifier: MIT
#pragma once

#include "Environment.h"

/// Writes a line to both logs.
#define PACK_LOG_BOTH(env, ...)                                                                                        \
    do {                                                                                                               \
        (env).WriteOutput(__VA_ARGS__);                                                                                \
        (env).DebugTrace(__VA_ARGS__);                                                                                 \
    } while (false)
