#pragma once

#include "CheckTree.h"

class CResModel;
class IViewBoxes;

/// The choice of the resolutions that a project is for. A resolution that goes out of use loses its resources, which
/// can't be undone. The folder Default has no item: it is always in use.
class CResoFltr final : public ITreeFltrHelper
{
public:
    /// `firstFolder` and `secondFolder` have the resolutions' folders below them; the second may be null. All others
    /// must live longer.
    CResoFltr(CResModel &document, CResFolder *firstFolder, CResFolder *secondFolder, IViewBoxes &viewBoxes);

    void InitTree(CheckTree &tree) override;
    bool Apply(CheckTree &tree) override;
    void OnCheck(CResFolder *folder, bool checked) override;

private:
    [[nodiscard]] bool Ask() const;
    void ApplyItem(const CheckTree::Item &item);

    CResModel &doc;
    CResFolder *first;
    CResFolder *second;
    IViewBoxes &boxes;
    qint32 added = 0;
    qint32 deleted = 0;
};
