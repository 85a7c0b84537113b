// SPDX-License-Identifier: MIT
#pragma once

#include "V1ResourceList.h"

#include <QDialog>

class CListGrid;
class IViewBoxes;
class V1ListModel;

/// Edits the list of version 1.0 resources of the project that was opened last. The user adds and removes files. Only
/// OK writes the list. Run it with IViewBoxes::RunDialog, once.
class CZEP10ResDlg : public QDialog
{
public:
    /// Reads the list of the project; it is empty if no project was opened. The user chooses files through `viewBoxes`.
    /// This and the environment must outlive the dialog.
    CZEP10ResDlg(Environment &environment, const QString &projectPath, IViewBoxes &viewBoxes,
                 QWidget *parent = nullptr);

    /// OK: writes the list and closes the dialog. Does nothing if no project was opened.
    void accept() override;

private:
    [[nodiscard]] QWidget *MakeList();
    [[nodiscard]] QLayout *MakeButtons();
    void Add();
    void Remove();

    IViewBoxes &boxes;
    V1ResourceList list;
    V1ListModel *model;
    CListGrid *grid;
};
