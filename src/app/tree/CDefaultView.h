#pragma once

#include "CProjView.h"

#include <QListWidget>

/// The children of the selected folder as large icons, for a folder that has no view of its own. Leads into them and
/// out again.
class CDefaultView : public QListWidget, public CView, public IActionTarget
{
public:
    CDefaultView(CResDoc &projectDocument, CProjView &projectTree);
    ~CDefaultView() override;

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
    [[nodiscard]] QTreeWidgetItem *TreeItemOf(const QListWidgetItem *row) const;
    /// The row that is selected, or null.
    [[nodiscard]] QListWidgetItem *SelectedRow() const;

    CResDoc &document;
    CProjView &tree;
    QString hint; // in the place of rows
    bool isFilling = false;
};
