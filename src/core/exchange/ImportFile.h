// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// A file that is imported.
struct ImportFile
{
    QString path; ///< absolute; its extension is the format
    QString name; ///< as messages show it
    /// The content, if it doesn't come from a file: of the path, only the extension counts then.
    std::optional<QByteArray> content = {};
};
