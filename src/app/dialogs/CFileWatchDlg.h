// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QCheckBox;
class QVBoxLayout;

/// Asks whether to reload a file that another program has changed. The dialog is accepted by Yes. Run it with
/// IViewBoxes::RunDialog, once.
class CFileWatchDlg : public QDialog
{
public:
    /// The flags mean "reload without asking"; Yes stores them. A null flag has no check box. With `hasUnsavedChanges`
    /// a line says that reloading discards the changes, and No is the default.
    CFileWatchDlg(const QString &path, qint32 *fileFlag, qint32 *typeFlag, bool hasUnsavedChanges,
                  QWidget *parent = nullptr);

    void accept() override;

private:
    void AddText(QVBoxLayout &column, const QString &path, bool hasUnsavedChanges);
    [[nodiscard]] QCheckBox *AddCheckBox(QVBoxLayout &column, const QString &text, const qint32 *flag);
    [[nodiscard]] QLayout *MakeButtons(bool isNoDefault);

    qint32 *autoReloadFile;
    qint32 *autoReloadType;
    QCheckBox *fileBox = nullptr;
    QCheckBox *typeBox = nullptr;
};
