// SPDX-License-Identifier: MIT
#pragma once

class CResModel;

/// Makes the fixed folders of a project in an empty tree. `ownResolution` is the index of the project's own screen
/// size, the only resolution that is in use at first; it is below 0 when the list of sizes lacks that size.
void MakeProjectFolders(CResModel &model, int ownResolution);
