// SPDX-License-Identifier: MIT
#pragma once

#include "NewProjectForm.h"

#include <QDialog>

#include <functional>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

/// Asks for the name, the folder, the screens and the languages of a new project, and makes it. Run it with
/// IViewBoxes::RunDialog, once.
class NewProjectDialog : public QDialog
{
public:
    /// OK calls `makeProject`, which returns why the project couldn't be made; the dialog then shows that and stays
    /// open. The form must outlive the dialog.
    NewProjectDialog(NewProjectForm &projectForm, std::function<QString(const NewProjectChoice &)> makeProject,
                     QWidget *parent = nullptr);

    void accept() override;

private:
    [[nodiscard]] QLayout *MakeFolder();
    [[nodiscard]] QLayout *MakeLists();
    [[nodiscard]] QLayout *MakeList(const QString &title, const QStringList &texts,
                                    const std::function<void(size_t index, bool isChecked)> &check);
    [[nodiscard]] QLayout *MakeOptions();
    void Browse();
    void ShowState();

    NewProjectForm &form;
    std::function<QString(const NewProjectChoice &)> make;
    QLineEdit *name;
    QLineEdit *folder;
    QLabel *state;
    QPushButton *ok = nullptr;
};
