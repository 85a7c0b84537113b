// SPDX-License-Identifier: MIT
#pragma once

#include "CheckTree.h"

class CResModel;
class IViewBoxes;

/// The choice of a project's resolutions. When a resolution goes out of use, its resources are deleted, which can't be
/// undone. The folder Default has no item, because it is always in use.
class CResoFltr final : public ITreeFltrHelper
{
public:
    /// `firstFolder` and `secondFolder` contain the folders of the resolutions; the second may be null. All other
    /// arguments must outlive this object.
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
