// SPDX-License-Identifier: MIT
#include "Subcommands.h"

std::unique_ptr<ISubcommand> MakeSubcommand(StringsArguments &&arguments)
{
    return MakeChosen(arguments.parts);
}
