// SPDX-License-Identifier: MIT
#pragma once

#include "IDPool.h"

/// A generated header and its paths.
struct GeneratedHeader
{
    QString path; ///< the path that a save writes to
    QString name; ///< its path within the folder of the headers; a setting may make it absolute
    QByteArray text;
};

/// The text of one generated C header, gathered in memory, with the line ends of the device's tool chain.
class Header
{
public:
    /// Begins with the banner and the include guard, which are both made from `fileName`.
    explicit Header(const NarrowText &fileName);

    /// Reserves memory for the lines of so many IDs.
    void Reserve(size_t ids);
    void Define(const IDRecord &record);
    void EmptyLine() { text += "\r\n"; }
    /// Ends the header and returns its whole text.
    [[nodiscard]] QByteArray Finish();

private:
    NarrowText guard;
    QByteArray text;
};

/// The path in `folder` of a header that the settings call `name`. It is always below `folder`, whatever the name is.
[[nodiscard]] QString HeaderIn(const QString &folder, const QString &name);

/// The include guard of a file name: lower case becomes upper case, and dots and separators become "_".
[[nodiscard]] NarrowText GuardName(NarrowText fileName);
