// SPDX-License-Identifier: MIT
#pragma once

#include "CheckSettings.h"
#include "FileSurvey.h"
#include "PictureAlpha.h"

/// What a rule about files looks at. Nothing here leads to the document, so that such a rule can run in another thread
/// while the document is edited.
struct FileCheckInput
{
    const FileSurvey &files;
    const CheckSettings &settings;
    CountAlpha countAlpha; ///< CheckInput::countAlpha
};
