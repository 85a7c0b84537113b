// SPDX-License-Identifier: MIT
#pragma once

#include "FileView.h"
#include "PayloadReader.h"

class Environment;
class PackNames;

/// The contents of a packed file.
struct InspectResult
{
    QByteArray kind; ///< "elf", "res" or "dll"
    FileView file;   ///< its bytes; the payload's views point into them
    quint64 payloadOffset = 0;
    quint64 payloadSize = 0;
    Payload payload;
    bool isSelection = false; ///< the payload has only some of the contents (KeepOnly)
};

/// Reads the payload back from a grown ELF file (the newest section if there are several), a side file or a DLL-side
/// file. Returns an empty text, or what is wrong with the file. Reads only the tables and the strings of the file; the
/// rest is read when a view is used (FileView).
[[nodiscard]] QString InspectFile(const QString &path, InspectResult &result);

/// Returns what is wrong if the file could not be read to its end after `InspectFile`, otherwise an empty text. Call it
/// after the views have been used: what couldn't be read is zeros there.
[[nodiscard]] QString WhyCutShort(const InspectResult &result);

/// Does the same with bytes in memory, which are moved into the result.
[[nodiscard]] QString InspectBytes(QByteArray bytes, InspectResult &result);

/// A listing for people, UTF-8, with the names of the items and strings.
[[nodiscard]] QByteArray InspectText(const Environment &env, const InspectResult &result, const PackNames &names);

/// The same as one JSON object: `version`, `kind`, `base`, `entries` (`name`, `offset`, `size`), `block` (`key`,
/// `offset`, `size`, `id` if it has a name), `strings` (language number to ID value to text), and with names
/// `string_ids` (ID value to name). Offsets are those of the file.
[[nodiscard]] QByteArray InspectJson(const Environment &env, const InspectResult &result, const PackNames &names);

/// Writes every entry, item and language to a file of its own below `folder`, which is made if necessary. Never writes
/// outside of `folder`, whatever the names are, and follows no link below it. `written` gets the paths relative to
/// `folder`. Returns an empty text, or what went wrong.
[[nodiscard]] QString ExtractAll(const Environment &env, const InspectResult &result, const QString &folder,
                                 std::vector<QByteArray> &written);
