// SPDX-License-Identifier: MIT
#pragma once

class CResFolder;
class CView;

/// The folder of a document that is selected in its window. Many operations act on it.
class IFolderSelection
{
public:
    /// Null when no folder is selected.
    [[nodiscard]] virtual CResFolder *SelectedFolder() const = 0;
    /// Selects a folder, which must be in the document's tree.
    virtual void SelectFolder(CResFolder *folder) = 0;
    /// The view in which the user selects a folder; null when there is none.
    [[nodiscard]] virtual CView *ProjView() const = 0;

protected:
    ~IFolderSelection() = default;
};
