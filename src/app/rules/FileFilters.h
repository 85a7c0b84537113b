#pragma once

#include <QStringList>

/// An entry of the list of file types in a file dialog.
struct FileFilter
{
    QString name;         ///< as the user sees it
    QStringList patterns; ///< such as "*.png"; "*" takes every file, also one without a dot in its name

    /// What QFileDialog is given for it. The dialog shows the name alone with the option HideNameFilterDetails.
    [[nodiscard]] QString NameFilter() const;
    /// The extension of the first pattern, such as "png"; empty where it has none.
    [[nodiscard]] QString Suffix() const;
};

/// The entries of a filter of the form "Name|*.a; *.b|...||".
[[nodiscard]] QList<FileFilter> ParseFileFilter(const QString &filter);
