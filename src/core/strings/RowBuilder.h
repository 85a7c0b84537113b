// SPDX-License-Identifier: MIT
#pragma once

#include "ResModel.h"

/// Builds the records of one string row in the tree: the head first, then the cells. All records share the row's ID.
///
///     RowBuilder row(model, "ID_HELLO");
///     if (CStringRes *head = row.Add(descriptions, u"a greeting"_s))   // null: the ID is taken
///         row.Add(english, u"Hello"_s);
class RowBuilder
{
public:
    /// Begins a new row with that ID; `Add` makes the ID with the first record.
    RowBuilder(CResModel &document, NarrowText idName) : model(document), name(std::move(idName)) {}
    /// Continues the row of `record`.
    RowBuilder(CResModel &document, CStringRes &record) : model(document), last(&record) {}

    /// Makes a record of the folder's language with that text, before `before` in the folder, or at its end. When the
    /// ID of a new row is taken, returns null and makes nothing.
    CStringRes *Add(CResFolder &folder, QStringView text, CBaseRes *before = nullptr);
    /// Continues the row of `record`: `Add` makes no new ID.
    void Continue(CStringRes &record) { last = &record; }
    /// The record that was made or given last; null before the first.
    [[nodiscard]] CStringRes *Last() const { return last; }

private:
    CResModel &model;
    NarrowText name;
    CStringRes *last = nullptr;
};
