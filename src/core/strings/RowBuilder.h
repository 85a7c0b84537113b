#pragma once

#include "ResModel.h"

/// Builds the records of one string row in the tree: the head first, then the cells. All share the row's ID, and each
/// is linked into the chain behind the record before it.
///
///     RowBuilder row(model, "ID_HELLO");
///     if (CStringRes *head = row.Add(descriptions, u"a greeting"_s))   // null: the ID is taken
///         row.Add(english, u"Hello"_s);
class RowBuilder
{
public:
    /// A new row of that ID; `Add` makes the ID with the first record.
    RowBuilder(CResModel &document, NarrowText idName) : model(document), name(std::move(idName)) {}
    /// A row that is there; `Add` links the next record behind `record`.
    RowBuilder(CResModel &document, CStringRes &record) : model(document), last(&record) {}

    /// Makes a record of the folder's language with that text, in front of `before` in the folder, or at its end.
    /// Null, and nothing made, when the ID of a new row is taken.
    CStringRes *Add(CResFolder &folder, QString text, CBaseRes *before = nullptr);
    /// Links the next record behind `record`, which is in the row already.
    void ContinueBehind(CStringRes &record) { last = &record; }
    /// The record made or named last; null before the first.
    [[nodiscard]] CStringRes *Last() const { return last; }

private:
    CResModel &model;
    NarrowText name;
    CStringRes *last = nullptr;
};
