// The boxes and dialogs of the main frame.
#include "AboutBox.h"
#include "Boxes.h"
#include "CMainFrame.h"
#include "CSizingControlBar.h"
#include "Environment.h"
#include "Paths.h"

#include <QFileDialog>

/// While a box is open, commands of the channel wait.
class CMainFrame::ModalBox
{
public:
    explicit ModalBox(CMainFrame &mainFrame) : frame(mainFrame)
    {
        if (frame.openBoxes++ == 0 && frame.pauseCommands)
            frame.pauseCommands(true);
        if (QGuiApplication::overrideCursor())
            pointer.emplace(Qt::ArrowCursor); // the box waits for the user, whatever waits for the box
    }
    ~ModalBox()
    {
        if (--frame.openBoxes == 0 && frame.pauseCommands)
            frame.pauseCommands(false);
    }
    ModalBox(const ModalBox &) = delete;
    ModalBox &operator=(const ModalBox &) = delete;

private:
    CMainFrame &frame;
    std::optional<WaitCursor> pointer;
};

void CMainFrame::ChooseProject()
{
    QString path;
    {
        const ModalBox box(*this);
        const CChildFrame *const child = ActiveChild();
        const QString last = child ? child->Document().PathName() : recentFiles.Paths().value(0);
        path =
            QFileDialog::getOpenFileName(this, QStringLiteral("Open"), last.isEmpty() ? QString() : DirectoryOf(last),
                                         QStringLiteral("Project Files (*.vcproj)"));
    }
    if (!path.isEmpty())
        (void)OpenProject(CanonicalPath(path));
}

void CMainFrame::MessageBox(const QString &text)
{
    ++messages;
    if (busyCommand != 0)
        return AfterCommand([this, text] { MessageBox(text); }); // there may be nobody to answer it
    const ModalBox box(*this);
    const QString reason = isVisible() && !outputBar->isHidden() ? QString() : told.Text();
    (void)ShowBox(this, QMessageBox::Warning, reason.isEmpty() ? text : text + QStringLiteral("\n\n") + reason);
}

bool CMainFrame::AskYesNo(const QString &question)
{
    if (busyCommand != 0)
        return false;
    const ModalBox box(*this);
    return ShowBox(this, QMessageBox::Question, question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
           QMessageBox::Yes;
}

Answer CMainFrame::AskYesNoCancel(const QString &question)
{
    if (busyCommand != 0)
        return Answer::Cancel;
    const ModalBox box(*this);
    switch (ShowBox(this, QMessageBox::Question, question, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                    QMessageBox::Yes)) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}

QStringList CMainFrame::OpenFileDialog(const QString &filter, int selectedFilter, bool multiSelect,
                                       const QString &initialName)
{
    QStringList filters;
    const QStringList parts = filter.split(u'|', Qt::SkipEmptyParts);
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts[i + 1];
        filters.append(parts[i].section(QStringLiteral(" ("), 0, 0) + QStringLiteral(" (") +
                       patterns.replace(u';', u' ') + u')');
    }
    const ModalBox box(*this);
    QFileDialog dialog(this, QStringLiteral("Open"));
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(selectedFilter - 1));
    dialog.setFileMode(multiSelect ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    if (!initialName.isEmpty())
        dialog.selectFile(initialName);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles() : QStringList();
}

void CMainFrame::ShowAbout()
{
    const ModalBox box(*this);
    ShowAboutBox(this);
}
