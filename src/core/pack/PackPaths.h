// SPDX-License-Identifier: MIT
#pragma once

#include "Packer.h"

class Environment;

/// The host paths of the files of a pack. A path is empty if the pack has no such file.
struct PackPaths
{
    QByteArray input;
    QByteArray output;
    QByteArray side; ///< the payload alone; only for an ELF file
    QByteArray depfile;

    /// `info` has the name of the output.
    [[nodiscard]] static PackPaths Of(const Environment &env, const packinfo &info);

    /// Says which two of them are the same file, whatever their names: writing one would destroy the other. Empty if
    /// there are none.
    [[nodiscard]] QString SameFileText() const;
};
