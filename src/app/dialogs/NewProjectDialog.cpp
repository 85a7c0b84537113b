// SPDX-License-Identifier: MIT
#include "NewProjectDialog.h"

#include "Boxes.h"
#include "OkCancel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace
{

constexpr int LONGEST_NAME = 100; // more than a name may have, so that the message about it is shown
constexpr int ROWS = 12;          // of a list
constexpr int WIDTH = 76;         // average characters

} // namespace

NewProjectDialog::NewProjectDialog(NewProjectForm &projectForm,
                                   std::function<QString(const NewProjectChoice &)> makeProject, QWidget *parent)
    : QDialog(parent), form(projectForm), make(std::move(makeProject)), name(new QLineEdit(this)),
      folder(new QLineEdit(form.Folder(), this)), state(new QLabel(this))
{
    setWindowTitle(u"New Project"_s);
    name->setMaxLength(LONGEST_NAME);
    state->setWordWrap(true);
    state->setTextFormat(Qt::PlainText);
    state->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    state->setMinimumHeight(4 * state->fontMetrics().lineSpacing()); // so that the dialog keeps its size
    auto *const rows = new QVBoxLayout(this);
    auto *const fields = new QFormLayout;
    fields->addRow(u"&Name:"_s, name);
    auto *const folderLabel = new QLabel(u"&Folder:"_s, this);
    folderLabel->setBuddy(folder);
    fields->addRow(folderLabel, MakeFolder());
    rows->addLayout(fields);
    rows->addLayout(MakeLists(), 1);
    rows->addLayout(MakeOptions());
    rows->addWidget(state);
    QDialogButtonBox *const buttons = MakeOkCancel(*this);
    ok = buttons->button(QDialogButtonBox::Ok);
    rows->addWidget(buttons);
    connect(name, &QLineEdit::textChanged, this, [this](const QString &text) {
        form.SetName(text);
        folder->setText(form.Folder());
        ShowState();
    });
    connect(folder, &QLineEdit::textEdited, this, [this](const QString &text) {
        form.SetFolder(text);
        ShowState();
    });
    ShowState();
    resize(WIDTH * fontMetrics().averageCharWidth(), sizeHint().height());
    name->setFocus();
}

QLayout *NewProjectDialog::MakeFolder()
{
    auto *const browse = new QPushButton(u"&Browse..."_s, this);
    connect(browse, &QPushButton::clicked, this, &NewProjectDialog::Browse);
    auto *const row = new QHBoxLayout;
    row->addWidget(folder, 1);
    row->addWidget(browse);
    return row;
}

QLayout *NewProjectDialog::MakeLists()
{
    QStringList screens;
    for (const ScreenSize &size : form.Screens())
        screens.append(u"%1x%2"_s.arg(size.width).arg(size.height));
    QStringList languages;
    for (const KnownLanguage &language : form.Languages())
        languages.append(language.name);
    auto *const lists = new QHBoxLayout;
    lists->addLayout(MakeList(u"&Screens:"_s, screens, [this](size_t i, bool isOn) { form.CheckScreen(i, isOn); }), 1);
    lists->addLayout(
        MakeList(u"&Languages:"_s, languages, [this](size_t i, bool isOn) { form.CheckLanguage(i, isOn); }), 2);
    return lists;
}

QLayout *NewProjectDialog::MakeList(const QString &title, const QStringList &texts,
                                    const std::function<void(size_t index, bool isChecked)> &check)
{
    auto *const list = new QListWidget(this);
    for (const QString &text : texts) {
        auto *const item = new QListWidgetItem(text, list);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
    }
    list->setCurrentRow(0);
    list->setMinimumHeight(ROWS * list->sizeHintForRow(0) + 2 * list->frameWidth());
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored); // begins with whole rows
    connect(list, &QListWidget::itemChanged, this, [this, list, check](const QListWidgetItem *item) {
        check(size_t(list->row(item)), item->checkState() == Qt::Checked);
        ShowState();
    });
    auto *const label = new QLabel(title, this);
    label->setBuddy(list);
    auto *const column = new QVBoxLayout;
    column->addWidget(label);
    column->addWidget(list, 1);
    return column;
}

QLayout *NewProjectDialog::MakeOptions()
{
    auto *const build = new QCheckBox(u"&CMake build, with a small application"_s, this);
    connect(build, &QCheckBox::toggled, this, [this](bool isOn) {
        form.SetBuild(isOn);
        ShowState();
    });
    auto *const git = new QComboBox(this);
    git->addItem(u"Keep the bytes of the string file"_s, int(GitForm::Safe));
    git->addItem(u"Store the string file as text"_s, int(GitForm::Text));
    git->addItem(u"No files for git"_s, int(GitForm::None));
    connect(git, &QComboBox::currentIndexChanged, this,
            [this, git](int index) { form.SetGit(GitForm(git->itemData(index).toInt())); });
    auto *const options = new QFormLayout;
    options->addRow(build);
    options->addRow(u"&Git:"_s, git);
    return options;
}

void NewProjectDialog::Browse()
{
    const QString chosen = QFileDialog::getExistingDirectory(this, u"Folder of the Project"_s, form.Folder());
    if (chosen.isEmpty())
        return;
    form.SetFolder(chosen);
    folder->setText(form.Folder());
    ShowState();
}

void NewProjectDialog::ShowState()
{
    const QString problem = form.Problem();
    state->setText(problem.isEmpty() ? form.Summary() : problem);
    if (ok)
        ok->setEnabled(problem.isEmpty());
}

void NewProjectDialog::accept()
{
    const QString problem = make(form.Choice());
    if (problem.isEmpty())
        return QDialog::accept();
    (void)ShowBox(this, QMessageBox::Warning, problem.left(1).toUpper() + problem.sliced(1) + u'.');
}
