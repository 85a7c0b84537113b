// SPDX-License-Identifier: MIT
#pragma once

#include "Pictures.h"
#include "SampleWindow.h"

/// Takes the pictures of docs/window.md: every view of the window, with the sample.
void TakeManualViews(SampleWindow &window, Pictures &pictures);
