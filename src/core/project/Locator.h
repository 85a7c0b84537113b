#pragma once

#include <QString>

#include <vector>

class CBaseRes;
class CResFolder;
class CResModel;

/// An ID of a project as a user finds it.
struct LocatedId
{
    QString id;
    CBaseRes *resource; ///< that has it; of a string the description, which stands for its row
    CResFolder *folder; ///< whose pane shows the resource; of a string the Strings folder, else the resource's own
};

/// The IDs of strings, files and layouts that a typed text may mean, the best first, at most `most`.
///
/// First come the IDs that begin with the text, then those with words, divided by "_", that begin with the typed words
/// in their order: "str ok" finds ID_STRING_MENU_OK. Blanks and "_" divide typed words, case has no weight. Each of
/// both groups is in the order of names (NameOrder). An empty text finds all. Takes time in the number of IDs.
[[nodiscard]] std::vector<LocatedId> LocateIds(const CResModel &model, const QString &typed, size_t most = 50);
