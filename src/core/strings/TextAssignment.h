// SPDX-License-Identifier: MIT
#pragma once

#include "StringTable.h"

/// A text for a language of a row.
struct NewText
{
    qint32 language;
    QString text;
};

/// The result of AssignTexts.
struct AssignedTexts
{
    int code = EDIT_DONE; ///< EDIT_DONE or the StringEditCode of the failure
    QString id;           ///< as the table has it
    bool isNew = false;   ///< the row was made
    QStringList before;   ///< the earlier texts, in the order of the new ones
};

/// Sets texts of the row with an ID. Makes the row, at the end, if the ID doesn't exist; a new ID is converted to upper
/// case. The project must have the languages.
[[nodiscard]] AssignedTexts AssignTexts(CResModel &model, const QString &id, const std::vector<NewText> &texts);
