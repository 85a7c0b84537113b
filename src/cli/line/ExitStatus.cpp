// SPDX-License-Identifier: MIT
#include "ExitStatus.h"

namespace
{

bool isMerge = false; // the command is `merge`

} // namespace

void SetMergeStatus()
{
    isMerge = true;
}

int FinalStatus(int status)
{
    return isMerge ? int(EXIT_NOT_MERGED) : status;
}
