#pragma once

#include <QDialog>

#include <functional>

class QAbstractScrollArea;

/// What the dialogs of check boxes share: the title, the list or tree, and below it a row of buttons that check and
/// uncheck all of it, OK and Cancel.
class CheckDialog : public QDialog
{
protected:
    explicit CheckDialog(QWidget *parent);

    /// Puts the boxes and the buttons into the dialog. `setAll` is called by Select All and Clear All, which are
    /// disabled where `isEmpty`.
    void MakeContent(QAbstractScrollArea &boxes, bool isEmpty, const std::function<void(bool checked)> &setAll);
    /// Gives the dialog the size at which the boxes have this one inside their frame, within the screen. A vertical
    /// scroll bar gets room beside it.
    void FitSize(const QAbstractScrollArea &boxes, const QSize &size);
};
