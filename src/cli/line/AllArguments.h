// SPDX-License-Identifier: MIT
#pragma once

#include "CheckArguments.h"
#include "PackArguments.h"
#include "ProjectArguments.h"
#include "StringsArguments.h"
#include "ToolArguments.h"

/// The options and arguments of every command, in the order of the help. `help` itself follows them.
using AllArguments =
    CommandChoice<InitArguments, AddArguments, LoadArguments, SaveArguments, HeadersArguments, PackArguments,
                  CheckArguments, ExplainArguments, IdsArguments, InspectArguments, StringsArguments, MergeArguments,
                  GitArguments, LayoutsArguments, KeptArguments, CacheArguments, ResolutionsArguments, ServeArguments>;
