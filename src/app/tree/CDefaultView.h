// SPDX-License-Identifier: MIT
#pragma once

#include "CProjView.h"

#include <QListWidget>

/// Shows the children of the selected folder as large icons, if the folder has no view of its own. The user can go into
/// them and back out.
class CDefaultView : public QListWidget, public CView, public IActionTarget, public ITreeListener
{
public:
    /// `projectTree` opens the menus of folders and runs the actions that are chosen there.
    CDefaultView(CResDoc &projectDocument, Selection &folderSelection, CProjView &projectTree);
    ~CDefaultView() override;

    void TreeGoes(const CResFolder &folder) override;
    void OnUpdate(CView *sender, long hint, CView *target) override;
    [[nodiscard]] std::optional<ActionState> StateOf(ActionId id) const override;
    void Run(ActionId id) override;

protected:
    void changeEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void Fill();
    /// Goes to the parent of the shown folder, and selects the row of the folder that was shown.
    void GoOut();
    void FitGrid();
    void SelectRow(const CResFolder *folder);
    /// The selected row, or null.
    [[nodiscard]] QListWidgetItem *SelectedRow() const;

    CResDoc &document;
    Selection &selection;
    CProjView &tree;
    CResFolder *shown = nullptr; // the folder whose subfolders are the rows
    QString hint;                // the text that is shown instead of rows
    bool isFilling = false;
};
