#pragma once

#include "FolderSelection.h"
#include "Notifier.h"
#include "ResFolder.h"
#include "TreeListener.h"

/// The folder that is selected in a project's window: which pane is shown, and what actions act on.
///
/// It lets go of a folder that is destroyed. With the next Refresh the folder that has come into its place is selected.
class Selection final : public IFolderSelection, public ITreeListener
{
public:
    /// The model must live as long as folders are selected.
    explicit Selection(CResModel &projectModel);

    // IFolderSelection
    [[nodiscard]] CResFolder *SelectedFolder() const override { return selected; }
    void SelectFolder(CResFolder *folder) override;
    [[nodiscard]] CView *ProjView() const override { return projView; }
    // ITreeListener
    void TreeGoes(const CResFolder &folder) override;

    /// Selects the folder above the selected one. False when there is none.
    bool GoOut();
    /// Selects a folder of the tree as it is now: the same one; when that has been destroyed, the one in its place;
    /// when there is none, or it isn't shown, the root.
    void Refresh();

    /// Tells when another folder is selected. Not when the selected one is destroyed: who holds nodes is an
    /// ITreeListener.
    Notifier<> changed;
    CView *projView = nullptr; ///< set by the view in which the user selects

private:
    /// What tells a folder from its siblings, also after it was loaded anew.
    struct Step
    {
        quint32 kind;
        qint32 index;
        QString title; // of a layout

        bool operator==(const Step &) const = default;
    };
    [[nodiscard]] static Step StepTo(const CResFolder &folder);
    [[nodiscard]] CResFolder *FolderInPlace() const;

    CResModel &model;
    CResFolder *selected = nullptr;
    std::vector<Step> place; // of the selected folder that was destroyed, from below the root down
};
