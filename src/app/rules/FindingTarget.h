// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"
#include "Text.h"

class CBaseRes;
class CResDoc;
class CResFolder;

/// The place in a project that a finding is about.
struct FindingTarget
{
    CBaseRes *resource = nullptr; ///< of a string, its description; null if the project has no resource of that ID
    CResFolder *folder = nullptr; ///< the folder whose pane shows it
    qint32 language = -1;         ///< of the text; -1 for the row
    NarrowText component = {};    ///< the name of the component of a layout; may be empty
};

/// Returns what a finding is about in a project as it is now. If several resolutions have the ID, the file and the line
/// of the finding decide, and the files of the project are read for that.
[[nodiscard]] FindingTarget TargetOf(CResDoc &document, const Finding &finding);
