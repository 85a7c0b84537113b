#pragma once

#include "V1ResourceList.h"

#include <QDialog>

class CListGrid;
class IViewBoxes;
class V1ListModel;

/// The list of the resources of version 1.0 of the project that was opened last: files are added to it and taken out.
/// OK writes it; nothing else does. Run it by IViewBoxes::RunDialog, once.
class CZEP10ResDlg : public QDialog
{
public:
    /// Reads the list of that project; empty when none was opened. Files are chosen through `viewBoxes`, which must
    /// live longer, as must the environment.
    CZEP10ResDlg(Environment &environment, const QString &projectPath, IViewBoxes &viewBoxes,
                 QWidget *parent = nullptr);

    /// OK: writes the list and closes the dialog. Does nothing where no project was opened.
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
