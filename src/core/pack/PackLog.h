#pragma once

#include "Environment.h"

/// A line for both logs.
#define PACK_LOG_BOTH(env, ...)                                                                                        \
    do {                                                                                                               \
        (env).WriteOutput(__VA_ARGS__);                                                                                \
        (env).DebugTrace(__VA_ARGS__);                                                                                 \
    } while (false)
