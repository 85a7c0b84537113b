// SPDX-License-Identifier: MIT
#pragma once

#include "CheckDialog.h"
#include "CheckList.h"
#include "ListSettings.h"

class CheckListModel;
class CListGrid;

/// A dialog in which the user chooses, from a fixed set, what a project uses. A helper defines the set and applies the
/// choice. Run it with IViewBoxes::RunDialog, once.
///
///     CLangFltr helper(table, document, strings, boxes);
///     CListFltrDlg dialog(helper, settings, window());
///     (void)boxes.RunDialog(dialog);
class CListFltrDlg : public CheckDialog
{
public:
    /// Lets the helper fill the list. Helper and settings must outlive the dialog.
    CListFltrDlg(IListFltrHelper &listHelper, Settings &programSettings, QWidget *parent = nullptr);

    /// OK: closes the dialog if the helper has applied the choice.
    void accept() override;
    /// Stores the widths of the columns and the sort state.
    void done(int result) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void MakeGrid();
    void FitRows();
    void Sort();
    void SortBy(int column);
    /// Inverts the check of the row with the focus, and gives the other selected rows the same state.
    void Toggle();

    IListFltrHelper &helper;
    ListSettings stored;
    CheckList list;
    CheckListModel *model;
    CListGrid *grid;
    int sortState;
};
