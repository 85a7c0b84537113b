// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// An entry of the list of file types in a file dialog.
struct FileFilter
{
    QString name;         ///< as shown to the user
    QStringList patterns; ///< such as "*.png"; "*" matches every file, also one without a dot in its name

    /// The name filter for QFileDialog. With the option HideNameFilterDetails the dialog shows only the name.
    [[nodiscard]] QString NameFilter() const;
    /// The extension of the first pattern, such as "png"; empty if it has none.
    [[nodiscard]] QString Suffix() const;
};

/// Returns the entries of a filter of the form "Name|*.a; *.b|...||".
[[nodiscard]] QList<FileFilter> ParseFileFilter(const QString &filter);
