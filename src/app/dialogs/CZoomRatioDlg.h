#pragma once

#include <QDialog>

class QLineEdit;

/// Asks for the zoom of a preview in percent. Run it by IViewBoxes::RunDialog.
class CZoomRatioDlg : public QDialog
{
public:
    /// Shows `shownPercent`, which may be any number.
    explicit CZoomRatioDlg(int shownPercent, QWidget *parent = nullptr);

    /// What the user has accepted, from ZoomInput::LOWEST to ZoomInput::HIGHEST; before that what is shown first.
    [[nodiscard]] int Percent() const { return percent; }

    /// OK: closes the dialog, or says which numbers it takes.
    void accept() override;

private:
    int percent;
    QLineEdit *typed;
};
