// SPDX-License-Identifier: MIT
#pragma once

#include "CheckDialog.h"
#include "CheckTree.h"

class LinedTree;
class QTreeWidgetItem;

/// Like CListFltrDlg, but with a tree instead of the list: when the user changes a check, all items below it get the
/// same state. Run it with IViewBoxes::RunDialog, once.
class CTreeFltrDlg : public CheckDialog
{
public:
    /// Lets the helper fill the tree. The helper must outlive the dialog.
    explicit CTreeFltrDlg(ITreeFltrHelper &treeHelper, QWidget *parent = nullptr);

    /// OK: closes the dialog if the helper has applied the choice.
    void accept() override;

private:
    void Insert(QTreeWidgetItem *parent, CheckTree::Item &item);
    void FitRows();
    /// Called when the user has changed a check.
    void Turned(QTreeWidgetItem *row);
    /// Shows the checks as they are in `tree`.
    void ShowChecks();

    ITreeFltrHelper &helper;
    CheckTree tree;
    LinedTree *boxes;
    bool isFilling = false;
};
