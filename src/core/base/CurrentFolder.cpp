// SPDX-License-Identifier: MIT
#include "CurrentFolder.h"

#include <climits>
#include <unistd.h>

std::string CurrentFolderBytes()
{
    char path[PATH_MAX];
    return getcwd(path, sizeof path) ? path : "";
}
