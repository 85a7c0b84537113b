// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

class FileBlocks;

/// The form of a sound in a WAV file.
struct WaveHeader
{
    quint16 codec = 0; ///< the number of the format, such as 1 for PCM
    int channels = 0;
    quint32 rate = 0; ///< samples a second
    int bits = 0;     ///< of a sample
    QString fault;    ///< why the header can't be read; empty if it was read
};

/// Reads the header of a file that begins like a WAV file. The other bytes may be anything.
[[nodiscard]] WaveHeader ReadWaveHeader(FileBlocks &file);

/// Returns the number of a codec that a name or a decimal number means, or -1.
[[nodiscard]] int WaveCodecOf(QStringView name);

/// Returns the names that `WaveCodecOf` knows.
[[nodiscard]] QStringList WaveCodecNames();

/// Returns the name of a codec, or its number where it has no name.
[[nodiscard]] QString WaveCodecName(int codec);
