#pragma once

#include "Text.h"

#include <QStringList>

/// What a document asks of the window it is shown in.
class IUserInterface
{
public:
    virtual void MessageBox(const QString &text) = 0;
    /// A dialog for existing files. `filter` has the form "Name|*.a; *.b|...||"; the entry `selectedFilter` (from 1) is
    /// chosen. `initialName` is absolute, in any spelling of paths, or empty; the file need not be there.
    virtual QStringList OpenFileDialog(const QString &filter, int selectedFilter, bool multiSelect,
                                       const QString &initialName) = 0;

protected:
    ~IUserInterface() = default;
};
