// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QStringList>

/// What a document needs from the window that shows it.
class IUserInterface
{
public:
    virtual void MessageBox(const QString &text) = 0;
    /// Shows a dialog for existing files and returns the chosen files. `filter` has the form "Name|*.a; *.b|...||"; the
    /// entry `selectedFilter` (from 1) is selected. `initialName` is an absolute path in any spelling, or empty; the
    /// file need not exist.
    virtual QStringList OpenFileDialog(const QString &filter, int selectedFilter, bool multiSelect,
                                       const QString &initialName) = 0;

protected:
    ~IUserInterface() = default;
};
