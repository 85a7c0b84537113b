// SPDX-License-Identifier: MIT
#pragma once

#include "ResModel.h"

#include <unordered_map>
#include <vector>

/// Makes the text of a string file, a row at a time.
///
///     StringFileText text(model);
///     text.PutHeader();
///     for (const CBaseRes *row = text.Rows()->First(); row; row = row->NextInFolder()) text.PutRow(*row);
///     text.PutEnd();
class StringFileText
{
public:
    /// The model must outlive this object, and its languages must stay the same.
    explicit StringFileText(const CResModel &model);
    StringFileText(const StringFileText &) = delete;
    StringFileText &operator=(const StringFileText &) = delete;

    /// The rows, as their records in the Description folder; null if the model has no folder of strings.
    [[nodiscard]] const ResourceList *Rows() const;
    /// Appends the mark and the first two lines.
    void PutHeader();
    /// Appends the line of a row, given its record in the Description folder.
    void PutRow(const CBaseRes &head);
    /// Appends the last line, unless the model has no folder of strings.
    void PutEnd();

    QString out; ///< what was appended; the caller may take it away

private:
    void CollectRow(const CStringRes &head);
    void Put(QStringView first, QStringView second) { out.append(first).append(second); }

    const CResModel &document;
    const std::vector<std::unique_ptr<CResFolder>> none;
    const std::vector<std::unique_ptr<CResFolder>> &folders;
    std::unordered_map<qint32, std::vector<size_t>> columnsOf; // by language; a language may have several folders
    std::vector<const CStringRes *> row;                       // the records of one row, by folder; null: no cell
};
