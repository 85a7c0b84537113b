// SPDX-License-Identifier: MIT
#pragma once

#include "Pictures.h"
#include "SampleWindow.h"

/// Takes the frames of the animated picture in README.md: a project is opened, edited and saved. Their names are in the
/// order of the frames.
void TakeFirstSession(SampleWindow &window, Pictures &pictures);
