// SPDX-License-Identifier: MIT
#pragma once

#include "ActionTarget.h"
#include "CResDoc.h"
#include "FolderKinds.h"
#include "LinedTree.h"
#include "Selection.h"
#include "ViewHost.h"

/// Returns whether a key goes from a folder to its parent: Backspace or Alt+Up.
[[nodiscard]] bool LeadsOut(const QKeyEvent &key);

/// The project tree, on the left of a project's window. It shows the folders in use, and its selection decides which
/// pane is to the right of it.
class CProjView : public LinedTree, public CView, public IActionTarget, public ITreeListener
{
public:
    CProjView(CResDoc &projectDocument, Selection &folderSelection, IViewHost &viewHost);
    ~CProjView() override;

    void OnUpdate(CView *sender, long hint, CView *target) override;
    void TreeGoes(const CResFolder &folder) override;

    [[nodiscard]] std::optional<ActionState> StateOf(ActionId id) const override;
    void Run(ActionId id) override;

    /// The folder of a row.
    [[nodiscard]] static CResFolder *FolderOf(const QTreeWidgetItem *item);
    /// The row of a folder, found by a depth-first search; null if it has none.
    [[nodiscard]] QTreeWidgetItem *ItemOf(const CResFolder *folder) const;
    /// Gives a folder the label that was typed, or tells the user why that isn't possible.
    void EditLabel(CResFolder &folder, const QString &typed);
    /// Opens the menu of a folder, and runs the chosen action on that folder. Returns after the menu has closed and the
    /// action has run.
    void OpenContextMenu(CResFolder &folder, const QPoint &globalPlace);
    /// Lets the user choose the resolutions of the project's root, of its images or of its layouts, and applies the
    /// choice. Returns false without asking for any other folder.
    bool ChooseResolutions(CResFolder &folder);
    /// Sets the folder that following actions apply to; null for the selected folder.
    void SetContextFolder(CResFolder *folder) { contextFolder = folder; }

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void Fill();
    /// Makes the row of the selected folder the current one.
    void ShowSelected();
    QTreeWidgetItem *Insert(QTreeWidgetItem *parent, CResFolder &folder);
    void SelectionChanged();
    void LabelEdited(QTreeWidgetItem *item);
    void Clear(CResFolder &folder);
    void NewLayout(const CResFolder &folder);
    void DeleteLayout(CResFolder &folder);
    [[nodiscard]] CResFolder *TargetFolder() const
    {
        return contextFolder ? contextFolder : selection.SelectedFolder();
    }
    void UpdatePanes();
    [[nodiscard]] QPoint MiddleOfText(const QTreeWidgetItem *item) const;

    CResDoc &document;
    Selection &selection;
    IViewHost &host;
    Notifier<>::Listener selectionChanged;
    CResFolder *contextFolder = nullptr;
    bool isFilling = false;
};
