// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The record of LOAD and SAVE.
///
///     offset  size  field
///          0   520  project path, 260 characters of UTF-16LE
///
/// A text ends at its first null character, or at the end of its field. Bytes after the last field are ignored.
struct CommandRecord
{
    QString projectPath; ///< full path of the ".vcproj" file
};

/// The record of PACK.
///
///     offset  size  field
///          0   520  project path, 260 characters
///        520   520  input file, 260 characters
///       1040   520  output file, 260 characters; empty: the input's name and ".pkd"
///       1560    64  resolution, 32 characters, such as 240x320
///       1624    64  target kind, 32 characters, "dll" or "axf"
///       1688     4  image conversion, signed
///       1692     4  version, signed
struct PackCommandRecord
{
    QString projectPath;
    QString inputFile;
    QString outputFile;
    QString resolution;
    QString targetKind;
    qint32 imageConvert = 0;
    qint32 version = 0;
};

constexpr qsizetype COMMAND_RECORD_SIZE = 520;
constexpr qsizetype PACK_COMMAND_RECORD_SIZE = 1696;

/// Returns nothing if there are fewer bytes than the record has.
[[nodiscard]] std::optional<CommandRecord> ParseCommandRecord(QByteArrayView bytes);
[[nodiscard]] std::optional<PackCommandRecord> ParsePackCommandRecord(QByteArrayView bytes);

/// Returns the bytes to send. Returns nothing, and `error` says why, if a text doesn't fit into its field with a
/// terminator (259 or 31 characters) or contains a null character.
[[nodiscard]] std::optional<QByteArray> BuildRecord(const CommandRecord &record, QString &error);
[[nodiscard]] std::optional<QByteArray> BuildRecord(const PackCommandRecord &record, QString &error);
