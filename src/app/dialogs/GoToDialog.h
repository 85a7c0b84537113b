// SPDX-License-Identifier: MIT
#pragma once

#include "Locator.h"

#include <QDialog>

class QLineEdit;
class QListWidget;

/// Finds IDs of a project as the user types: strings, files and layouts, the best match first. Run it with
/// IViewBoxes::RunDialog.
class GoToDialog : public QDialog
{
public:
    /// The model must outlive the dialog, and must not change while the dialog is open.
    explicit GoToDialog(CResModel &projectModel, QWidget *parent = nullptr);

    /// The chosen ID; null if there was none to choose.
    [[nodiscard]] const LocatedId *Chosen() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Fill();

    CResModel &model;
    QLineEdit *typed;
    QListWidget *list;
    std::vector<LocatedId> found; // one for each row
};
