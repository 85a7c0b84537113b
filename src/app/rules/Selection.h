// SPDX-License-Identifier: MIT
#pragma once

#include "FolderSelection.h"
#include "Notifier.h"
#include "ResFolder.h"
#include "TreeListener.h"

/// The folder that is selected in a project's window. It decides which pane is shown and what actions apply to.
///
/// When the selected folder is destroyed, nothing is selected. The next Refresh selects the folder that replaces it.
class Selection final : public IFolderSelection, public ITreeListener
{
public:
    /// The model must exist for as long as folders are selected.
    explicit Selection(CResModel &projectModel);

    // IFolderSelection
    [[nodiscard]] CResFolder *SelectedFolder() const override { return selected; }
    void SelectFolder(CResFolder *folder) override;
    [[nodiscard]] CView *ProjView() const override { return projView; }
    // ITreeListener
    void TreeGoes(const CResFolder &folder) override;

    /// Selects the parent of the selected folder. Returns false if there is none.
    bool GoOut();
    /// Selects a folder of the present tree: the same one as before; if it has been destroyed, the one that replaces
    /// it; if there is none, or it isn't shown, the root.
    void Refresh();

    /// Notifies when another folder is selected, but not when the selected one is destroyed: objects that keep pointers
    /// to nodes are ITreeListeners.
    Notifier<> changed;
    CView *projView = nullptr; ///< set by the view in which the user selects

private:
    /// What distinguishes a folder from its siblings, also after the project was loaded again.
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
