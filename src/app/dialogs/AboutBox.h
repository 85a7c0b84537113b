// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

/// Shows the program's name, its version, and when it was built.
void ShowAboutBox(QWidget *parent);
