// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class CResModel;

/// The entries of a file dialog.
struct DialogFilter
{
    QString text;  ///< in the form that IUserInterface::OpenFileDialog takes, without the end
    int count = 0; ///< number of entries
};

/// Returns an entry for each kind of file in `mask`, with the patterns that the settings have for it.
[[nodiscard]] DialogFilter DialogFilterOf(const CResModel &model, quint32 mask);
