// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QLineEdit;

/// Asks for the zoom of a preview in percent. Run it with IViewBoxes::RunDialog.
class CZoomRatioDlg : public QDialog
{
public:
    /// Shows `shownPercent`, which may be any number.
    explicit CZoomRatioDlg(int shownPercent, QWidget *parent = nullptr);

    /// The accepted zoom in percent, from ZoomInput::LOWEST to ZoomInput::HIGHEST. Before the user accepts,
    /// `shownPercent`.
    [[nodiscard]] int Percent() const { return percent; }

    /// OK: closes the dialog, or tells the user which numbers are valid.
    void accept() override;

private:
    int percent;
    QLineEdit *typed;
};
