#pragma once

#include "CProjView.h"

#include <QListWidget>

/// The children of the selected folder as large icons, for a folder that has no view of its own. Leads into them and
/// out again.
class CDefaultView : public QListWidget, public CView, public IActionTarget, public ITreeListener
{
public:
    /// The menus of folders, and what is chosen there, are `projectTree`'s.
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
    /// Shows the folder above the one that is shown, with the row of the latter selected.
    void GoOut();
    void FitGrid();
    void SelectRow(const CResFolder *folder);
    /// The row that is selected, or null.
    [[nodiscard]] QListWidgetItem *SelectedRow() const;

    CResDoc &document;
    Selection &selection;
    CProjView &tree;
    CResFolder *shown = nullptr; // whose subfolders the rows are
    QString hint;                // in the place of rows
    bool isFilling = false;
};
