// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>
#include <vector>

class CResDoc;
class IDRecord;
class IdNumbers;
class PackNames;
class Session;

// The numbers of IDs, from a header or from a project.

/// An open project whose IDs have their numbers.
struct NumberedProject
{
    CResDoc *document = nullptr;
    std::vector<IDRecord *> sorted; ///< its IDs, as SortedIds returns them
};

/// Opens a project and numbers its IDs. `shown` is its path for messages. Returns nothing, with a message, if it can't
/// be opened, if a layout file that has IDs is missing, or if there are more IDs than numbers.
[[nodiscard]] std::optional<NumberedProject> OpenNumbered(Session &session, const QString &path, const QString &shown);

/// Reads a generated header (absolute path). Returns false, with a message that begins with the option, if it can't be
/// read or has no ID.
[[nodiscard]] bool ReadHeaderOfIds(const char *option, const QString &path, IdNumbers &numbers);

/// Returns the names of the IDs of a header, or of a project if the file (absolute path) is a .vcproj file. Returns
/// nothing, with a message, if it can't be read.
[[nodiscard]] std::optional<PackNames> NamesOfIds(Session &session, const char *option, const QString &path);
