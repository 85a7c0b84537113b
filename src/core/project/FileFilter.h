#pragma once

#include <QString>

class CResModel;

/// The entries of a file dialog.
struct FileFilter
{
    QString text;  ///< in the form that IUserInterface::OpenFileDialog takes, without its end
    int count = 0; ///< of the entries
};

/// An entry for each kind of file in `mask`, with the patterns that the settings have for it.
[[nodiscard]] FileFilter FileFilterOf(const CResModel &model, quint32 mask);
