// SPDX-License-Identifier: MIT
#pragma once

#include "CheckList.h"
#include "NameOrder.h"

#include <map>

class CResFolder;
class CResModel;
class IViewBoxes;
class StringTable;

/// The choice of a project's languages from the language table. Languages that are not in the table are left alone.
/// Applying the choice can't be undone.
class CLangFltr final : public IListFltrHelper
{
public:
    /// All arguments must outlive this object. `stringsFolder` is the project's folder of strings.
    CLangFltr(StringTable &stringTable, CResModel &document, CResFolder &stringsFolder, IViewBoxes &viewBoxes);

    bool InitList(CheckList &list) override;
    bool Apply(CheckList &list) override;
    void OnCheck(qint32 number, bool checked) override;
    [[nodiscard]] int Compare(qint32 a, qint32 b, int column) const override;

private:
    /// The project's folder for a language, or null.
    [[nodiscard]] CResFolder *FolderOf(qint32 number) const;
    [[nodiscard]] bool Ask() const;
    void Add(qint32 number, const QString &name);

    StringTable &table;
    CResModel &doc;
    CResFolder &strings;
    IViewBoxes &boxes;
    qint32 added = 0;
    qint32 deleted = 0;
    std::map<qint32, QString> names;
    NameOrder order;
};
