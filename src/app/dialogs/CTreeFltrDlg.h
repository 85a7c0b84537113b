#pragma once

#include "CheckDialog.h"
#include "CheckTree.h"

class LinedTree;
class QTreeWidgetItem;

/// CListFltrDlg with a tree in the place of the list: a check that the user changes is given to all below it as well.
/// Run it by IViewBoxes::RunDialog, once.
class CTreeFltrDlg : public CheckDialog
{
public:
    /// Has the helper fill the tree. It must live longer.
    explicit CTreeFltrDlg(ITreeFltrHelper &treeHelper, QWidget *parent = nullptr);

    /// OK: closes the dialog when the helper has applied the choice.
    void accept() override;

private:
    void Insert(QTreeWidgetItem *parent, CheckTree::Item &item);
    void FitRows();
    /// The user has changed a check.
    void Turned(QTreeWidgetItem *row);
    /// Shows the checks as they are in `tree`.
    void ShowChecks();

    ITreeFltrHelper &helper;
    CheckTree tree;
    LinedTree *boxes;
    bool isFilling = false;
};
