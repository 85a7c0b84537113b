#pragma once

#include "CheckList.h"

#include <map>

class CResFolder;
class CResModel;
class IViewBoxes;
class StringTable;

/// The choice of a project's languages among those of the language table.
class CLangFltr final : public IListFltrHelper
{
public:
    /// All must live longer. `stringsFolder` is the project's folder of strings.
    CLangFltr(StringTable &stringTable, CResModel &document, CResFolder &stringsFolder, IViewBoxes &viewBoxes);

    bool InitList(CheckList &list) override;
    bool Apply(CheckList &list) override;
    void OnCheck(qint32 number, bool checked) override;
    [[nodiscard]] int Compare(qint32 a, qint32 b, int column) const override;

private:
    StringTable &table;
    CResModel &doc;
    CResFolder &strings;
    IViewBoxes &boxes;
    qint32 added = 0;
    qint32 deleted = 0;
    std::map<qint32, QString> names;
};
