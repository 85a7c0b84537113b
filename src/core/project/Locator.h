// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

class CBaseRes;
class CResFolder;
class CResModel;

/// An ID of a project that the user can go to.
struct LocatedId
{
    QString id;
    CBaseRes *resource; ///< the resource with the ID; for a string the description, which represents its row
    CResFolder *folder; ///< the folder whose pane shows it; for a string the Strings folder, else the resource's own
};

/// Finds the IDs of strings, files and layouts that match a typed text. Returns the best first, at most `most`.
///
/// The IDs that begin with the text are first. The IDs whose words, separated by "_", begin with the typed words in the
/// same order are next: "str ok" finds ID_STRING_MENU_OK. Blanks and "_" separate typed words, and case is ignored.
/// Each of the two groups is in the order of names (NameOrder). An empty text matches all IDs. The time is proportional
/// to the number of IDs.
[[nodiscard]] std::vector<LocatedId> LocateIds(const CResModel &model, const QString &typed, size_t most = 50);

/// Finds the resources with exactly this ID: at most one, or one for each resolution that has it, the oldest first.
[[nodiscard]] std::vector<LocatedId> LocateId(const CResModel &model, const QString &id);
