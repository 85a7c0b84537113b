// SPDX-License-Identifier: MIT
#include "FrameBars.h"

#include "BarPages.h"
#include "CInfoPane.h"
#include "CSizingControlBar.h"
#include "Environment.h"
#include "FindingsPane.h"
#include "ToolboxList.h"

#include <QCryptographicHash>
#include <QFontDatabase>
#include <QMainWindow>
#include <QStatusBar>
#include <QTimer>

namespace
{

constexpr int TOOLBOX_NUMBER = 1;
constexpr int OUTPUT_NUMBER = 2;
constexpr QSize TOOLBOX_SIZE(150, 400);
constexpr QSize OUTPUT_SIZE(400, 150);
constexpr int DOCK_STATE_VERSION = 1;
constexpr char FINDINGS_SECTION[] = "Findings";
constexpr char FINDINGS_KEY[] = "show";

QString CheckOf(const QByteArray &state)
{
    return QString::fromLatin1(QCryptographicHash::hash(state, QCryptographicHash::Md5).toHex());
}

} // namespace

FrameBars::FrameBars(QMainWindow &mainWindow, Environment &environment) : window(mainWindow), env(environment)
{
    MakeToolbox();
    MakeOutput();
    for (CSizingControlBar *bar : {toolboxBar, outputBar}) {
        bar->ReadSizes(env.settings);
        bar->toggleViewAction()->setVisible(false); // the View menu has its own entry
    }
    sizes = std::make_unique<BarSizes>(window, QList{toolboxBar, outputBar});
}

void FrameBars::MakeToolbox()
{
    const QSize size = ParseSize(env.settings.String("Toolbox", "size", "150,400"), TOOLBOX_SIZE);
    toolboxBar = new CSizingControlBar(QStringLiteral("Toolbox"), TOOLBOX_NUMBER, size, &window);
    toolbox = new ToolboxList(toolboxBar);
    toolboxBar->SetContent(toolbox);
    toolboxBar->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    window.addDockWidget(Qt::LeftDockWidgetArea, toolboxBar);
}

void FrameBars::MakeOutput()
{
    const QSize size = ParseSize(env.settings.String("Output", "size", "400,150"), OUTPUT_SIZE);
    outputBar = new CSizingControlBar(QStringLiteral("Output"), OUTPUT_NUMBER, size, &window);
    pages = new BarPages(outputBar);
    output = new CInfoPane(pages);
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPointSize(10);
    output->setFont(font);
    pages->Append(*output, outputBar->windowTitle());
    findings = new FindingsPane(env.settings, pages);
    findings->hide();
    outputBar->SetContent(pages);
    window.addDockWidget(Qt::RightDockWidgetArea, outputBar);
}

bool FrameBars::IsOutputShown() const
{
    return !outputBar->isHidden();
}

void FrameBars::ShowOutput(bool show)
{
    outputBar->setVisible(show);
    if (!show)
        return;
    pages->Show(*output);
    output->GoToEnd();
}

QWidget &FrameBars::OutputPage() const
{
    return *pages->Current();
}

bool FrameBars::IsOutputRead() const
{
    return IsOutputShown() && pages->Current() == output;
}

bool FrameBars::HasFindings() const
{
    return pages->Has(*findings);
}

void FrameBars::ShowFindings(bool show)
{
    if (!HasFindings())
        pages->Append(*findings, QStringLiteral("Findings"));
    if (!show)
        return;
    pages->Show(*findings);
    outputBar->show();
}

void FrameBars::DropFindings()
{
    pages->Remove(*findings);
}

bool FrameBars::IsToolboxShown() const
{
    return !toolboxBar->isHidden();
}

void FrameBars::ToggleToolbox()
{
    const bool show = !toolboxState.IsShown(env.settings);
    toolboxState.Show(show);
    toolboxBar->setVisible(show);
}

void FrameBars::FollowProject(const CResModel *active, bool showsLayout)
{
    if (active)
        toolbox->Fill(*active);
    if (isLayoutShown) // the user can also close the bar with its own button
        toolboxState.Show(!toolboxBar->isHidden());
    if (isLayoutShown == showsLayout)
        return;
    isLayoutShown = showsLayout;
    toolboxBar->setVisible(showsLayout && toolboxState.IsShown(env.settings));
    // This is the entry in the menu of the window's bars that shows a closed bar again.
    toolboxBar->toggleViewAction()->setVisible(showsLayout);
}

void FrameBars::WriteOutput(QStringView text)
{
    told.Append(text);
    if (IsOutputShown())
        output->Append(text);
}

void FrameBars::WriteLine(const QString &text)
{
    WriteOutput(text + QStringLiteral("\r\n"));
}

QString FrameBars::UnseenOutput() const
{
    return window.isVisible() && IsOutputRead() ? QString() : told.Text();
}

void FrameBars::Restore()
{
    window.statusBar()->setVisible(env.settings.Int("DockState", "statusBar", 1) != 0);
    const QByteArray bars = QByteArray::fromBase64(env.settings.String("DockState", "state").toLatin1());
    // A damaged state would crash the program at each start.
    const bool isWhole = !bars.isEmpty() && env.settings.String("DockState", "check") == CheckOf(bars);
    if (!isWhole || !window.restoreState(bars, DOCK_STATE_VERSION)) {
        outputBar->LimitVerticalWidth(window.width() / 4);
        ShowOutput(true);
    }
    toolboxBar->hide(); // it is shown only with layouts
    if (env.settings.Int(FINDINGS_SECTION, FINDINGS_KEY, 0) != 0)
        ShowFindings(false); // the messages of the start are in the output
}

QList<ProfileEntry> FrameBars::State() const
{
    QList<ProfileEntry> entries;
    const auto store = [&entries](const char *section, const char *key, const QString &value) {
        entries.append({QString::fromLatin1(section), QString::fromLatin1(key), value});
    };
    for (const auto &[section, bar] : {std::pair("Toolbox", toolboxBar), {"Output", outputBar}}) {
        store(section, "size", SizeText(bar->PreferredSize()));
        entries += bar->Sizes();
    }
    entries += findings->State();
    store(FINDINGS_SECTION, FINDINGS_KEY, QString::number(int(HasFindings())));
    store("DockState", "statusBar", QString::number(int(!window.statusBar()->isHidden())));
    const QByteArray bars = window.saveState(DOCK_STATE_VERSION);
    store("DockState", "state", QString::fromLatin1(bars.toBase64()));
    store("DockState", "check", CheckOf(bars));
    return entries;
}

/// Shows floating bars again, because they were shown before the window existed and may be behind it.
void FrameBars::RaiseFloating()
{
    for (CSizingControlBar *bar : {toolboxBar, outputBar}) {
        if (!bar->isFloating() || bar->isHidden())
            continue;
        QTimer::singleShot(0, bar, [bar] {
            bar->hide();
            bar->show();
        });
    }
}
