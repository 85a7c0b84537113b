#pragma once

#include "IDPool.h"

class Environment;

/// The text of one generated C header, gathered in memory, with the line ends of the device's tool chain.
class Header
{
public:
    /// Begins with the banner and the guard, which both come from `fileName`.
    explicit Header(const NarrowText &fileName);

    void Define(const IDRecord &record);
    void EmptyLine() { text += "\r\n"; }
    /// Ends the header and writes it to `path`. False when that failed, which has been explained.
    bool Write(Environment &env, const QString &path);

private:
    NarrowText guard;
    QByteArray text;
};

/// The guard word of a file name: small letters in capitals, and "_" for dots and separators.
[[nodiscard]] NarrowText GuardName(NarrowText fileName);
