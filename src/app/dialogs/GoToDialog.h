#pragma once

#include "Locator.h"

#include <QDialog>

class QLineEdit;
class QListWidget;

/// Finds an ID of a project as the user types: strings, files and layouts, the best first. Run it by
/// IViewBoxes::RunDialog.
class GoToDialog : public QDialog
{
public:
    /// The model must live longer, and stay as it is while the dialog is open.
    explicit GoToDialog(CResModel &projectModel, QWidget *parent = nullptr);

    /// The ID that was chosen; null when there was none to choose.
    [[nodiscard]] const LocatedId *Chosen() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Fill();

    CResModel &model;
    QLineEdit *typed;
    QListWidget *list;
    std::vector<LocatedId> found; // a row each
};
