// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

#include <functional>

class QAbstractScrollArea;

/// The base of the dialogs of check boxes: the title, the list or tree, and below it a row of buttons: Select All,
/// Clear All, OK and Cancel.
class CheckDialog : public QDialog
{
protected:
    explicit CheckDialog(QWidget *parent);

    /// Puts the boxes and the buttons into the dialog. Select All and Clear All call `setAll`. They are disabled if
    /// `isEmpty` is set.
    void MakeContent(QAbstractScrollArea &boxes, bool isEmpty, const std::function<void(bool checked)> &setAll);
    /// Sets the dialog's size so that the area of the boxes has this size inside its frame, limited by the screen. A
    /// vertical scroll bar gets additional room.
    void FitSize(const QAbstractScrollArea &boxes, const QSize &size);
};
