#pragma once

#include "ActionTarget.h"
#include "CResDoc.h"
#include "FolderKinds.h"
#include "ViewHost.h"

#include <QTreeWidget>

#include <span>
#include <vector>

/// Says whether a key leads out of a folder, to the one above it: Backspace and Alt+Up.
[[nodiscard]] bool LeadsOut(const QKeyEvent &key);

/// The project tree, left in a project's window: the folders in use, whose selection decides what stands right of it.
class CProjView : public QTreeWidget, public IProjView, public IActionTarget, public ITreeListener
{
public:
    CProjView(CResDoc &projectDocument, IViewHost &viewHost);
    ~CProjView() override;

    [[nodiscard]] CResFolder *SelectedFolder() const override { return selectedFolder; }
    void SelectFolder(CResFolder *folder) override;
    void OnUpdate(CView *sender, long hint, CView *target) override;
    void TreeGoes(const CResFolder &folder) override;

    [[nodiscard]] std::optional<ActionState> StateOf(ActionId id) const override;
    void Run(ActionId id) override;

    /// What tells a folder from its siblings, also after it was loaded anew.
    struct PathStep
    {
        quint32 kind;
        qint32 index;
        QString title; // of a layout

        bool operator==(const PathStep &) const = default;
    };

    /// The folder of a row.
    [[nodiscard]] static CResFolder *FolderOf(const QTreeWidgetItem *item);
    /// The row of a folder, searched depth first; null when it has none.
    [[nodiscard]] QTreeWidgetItem *ItemOf(const CResFolder *folder) const;
    /// Gives a row the label that was typed, or leaves it and says why.
    void EditLabel(QTreeWidgetItem *item, const QString &typed);
    /// Opens the menu of a row's folder, and runs the action that is chosen there on that folder. Returns when the
    /// menu is closed and the action has run.
    void OpenContextMenu(QTreeWidgetItem *item, const QPoint &globalPlace);
    /// Selects the folder above the selected one. False when there is none.
    bool GoOut();
    /// Makes the actions to come act on that folder; null: on the selected one.
    void SetContextFolder(CResFolder *folder) { contextFolder = folder; }

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void drawBranches(QPainter *painter, const QRect &rect, const QModelIndex &index) const override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                                       const QEvent *event) const override;

private:
    void Fill();
    void Empty();
    /// The row that a path from the selected folder up to the root leads to; null when there is none.
    [[nodiscard]] QTreeWidgetItem *ItemAt(std::span<const PathStep> path) const;
    QTreeWidgetItem *Insert(QTreeWidgetItem *parent, CResFolder &folder);
    void SelectionChanged();
    void LabelEdited(QTreeWidgetItem *item);
    void Clear(CResFolder &folder);
    void NewLayout(const CResFolder &folder);
    void DeleteLayout(CResFolder &folder);
    [[nodiscard]] CResFolder *TargetFolder() const { return contextFolder ? contextFolder : selectedFolder; }
    void UpdatePanes();
    void FitColumn();
    [[nodiscard]] QPoint MiddleOfText(const QTreeWidgetItem *item) const;

    CResDoc &document;
    IViewHost &host;
    CResFolder *contextFolder = nullptr;
    CResFolder *selectedFolder = nullptr;
    std::vector<PathStep> selectedPath; // of what was selected when the folders went, without the root
    bool isFilling = false;
};
