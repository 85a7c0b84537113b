#pragma once

#include "IDPool.h"

/// A generated header and the places that it can be written to.
struct GeneratedHeader
{
    QString path; ///< where a save writes it
    QString name; ///< its path in the folder of the headers; a setting may give an absolute one
    QByteArray text;
};

/// The text of one generated C header, gathered in memory, with the line ends of the device's tool chain.
class Header
{
public:
    /// Begins with the banner and the guard, which both come from `fileName`.
    explicit Header(const NarrowText &fileName);

    void Define(const IDRecord &record);
    void EmptyLine() { text += "\r\n"; }
    /// Ends the header: its whole text.
    [[nodiscard]] QByteArray Finish();

private:
    NarrowText guard;
    QByteArray text;
};

/// The path of a header that the settings call `name` in a folder of its own: below it, whatever the name is.
[[nodiscard]] QString HeaderIn(const QString &folder, const QString &name);

/// The guard word of a file name: small letters in capitals, and "_" for dots and separators.
[[nodiscard]] NarrowText GuardName(NarrowText fileName);
