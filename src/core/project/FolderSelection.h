#pragma once

class CResFolder;
class CView;

/// Which folder of a document is selected in its window. Many operations act on it.
class IFolderSelection
{
public:
    /// Null when none is.
    [[nodiscard]] virtual CResFolder *SelectedFolder() const = 0;
    /// `folder` is one of the document's tree.
    virtual void SelectFolder(CResFolder *folder) = 0;
    /// The view in which the user selects it; null when there is none.
    [[nodiscard]] virtual CView *ProjView() const = 0;

protected:
    ~IFolderSelection() = default;
};
