// The bars of the main frame, and what is remembered of them.
#include "CInfoPane.h"
#include "CMainFrame.h"
#include "CSizingControlBar.h"
#include "ClassCatalogue.h"
#include "CopyGuard.h"
#include "Environment.h"
#include "FrameState.h"
#include "MenuTable.h"
#include "UiIcons.h"

#include <QCryptographicHash>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QListWidget>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>

namespace
{

constexpr int TOOLBOX_NUMBER = 1;
constexpr int OUTPUT_NUMBER = 2;
constexpr QSize TOOLBOX_SIZE(150, 400);
constexpr QSize OUTPUT_SIZE(400, 150);
constexpr QSize FIRST_SIZE(1000, 700);
constexpr int DOCK_STATE_VERSION = 1;

struct ActionIcon
{
    ActionId id;
    UiIcon icon;
};
constexpr ActionIcon ACTION_ICONS[] = {
    {ACTION_OPEN, UiIcon::Open}, {ACTION_SAVE, UiIcon::Save},     {ACTION_UNDO, UiIcon::Undo},
    {ACTION_REDO, UiIcon::Redo}, {ACTION_OUTPUT, UiIcon::Output}, {ACTION_ABOUT, UiIcon::About},
};

QString CheckOf(const QByteArray &state)
{
    return QString::fromLatin1(QCryptographicHash::hash(state, QCryptographicHash::Md5).toHex());
}

/// What it does, and the key for it.
QString ToolTipOf(const QAction &action)
{
    QString text = action.text().remove(u'&');
    if (text.endsWith(QStringLiteral("...")))
        text.chop(3);
    const QString key = action.shortcut().toString(QKeySequence::NativeText);
    return key.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, key);
}

} // namespace

void CMainFrame::MakeToolBar()
{
    for (const auto &[id, icon] : ACTION_ICONS) {
        actions[id]->setIcon(MakeIcon(icon));
        actions[id]->setIconVisibleInMenu(!actions[id]->isCheckable()); // where the check mark is to be
    }
    toolBar = addToolBar(QStringLiteral("Standard"));
    toolBar->setObjectName(QStringLiteral("Standard"));
    toolBar->setAccessibleName(QStringLiteral("Tool bar"));
    toolBar->setIconSize(QSize(16, 16));
    for (const ActionId id : ToolBarActions()) {
        if (id != ACTION_NONE)
            actions[id]->setToolTip(ToolTipOf(*actions[id]));
        id == ACTION_NONE ? toolBar->addSeparator() : (toolBar->addAction(actions[id]), nullptr);
    }
    toolBar->toggleViewAction()->setVisible(false); // the View menu has it
}

/// A bar that floats was shown before the window was there to lie under it.
void CMainFrame::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    for (CSizingControlBar *bar : {toolboxBar, outputBar}) {
        if (event->spontaneous() || !bar->isFloating() || bar->isHidden())
            continue;
        QTimer::singleShot(0, bar, [bar] {
            bar->hide();
            bar->show();
        });
    }
}

void CMainFrame::MakeBars()
{
    const Settings &settings = env.settings;
    toolboxBar = new CSizingControlBar(QStringLiteral("Toolbox"), TOOLBOX_NUMBER,
                                       ParseSize(settings.String("Toolbox", "size", "150,400"), TOOLBOX_SIZE), this);
    toolbox = new QListWidget(toolboxBar);
    toolbox->setAccessibleName(QStringLiteral("Toolbox"));
    new CopyGuard(*toolbox);
    toolboxBar->SetContent(toolbox);
    toolboxBar->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    addDockWidget(Qt::LeftDockWidgetArea, toolboxBar);

    outputBar = new CSizingControlBar(QStringLiteral("Output"), OUTPUT_NUMBER,
                                      ParseSize(settings.String("Output", "size", "400,150"), OUTPUT_SIZE), this);
    output = new CInfoPane(outputBar);
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPointSize(10);
    output->setFont(font);
    outputBar->SetContent(output);
    addDockWidget(Qt::RightDockWidgetArea, outputBar);
    for (CSizingControlBar *bar : {toolboxBar, outputBar}) {
        bar->ReadSizes(settings);
        bar->toggleViewAction()->setVisible(false); // the View menu has it
    }
    barSizes = std::make_unique<BarSizes>(*this, QList{toolboxBar, outputBar});
}

/// The classes of components that a layout can be made of.
void CMainFrame::FillToolbox()
{
    if (!tables.classes || !tables.classes->loaded || toolbox->count() > 0)
        return;
    for (const auto &entry : tables.classes->entries) {
        if (entry->kind == CLASS_CLASS && !entry->excluded)
            toolbox->addItem(env.NarrowToWide(entry->name));
    }
}

void CMainFrame::Restore()
{
    const FrameState state = FrameState::Read(env.settings);
    QList<QRect> screens;
    for (const QScreen *each : QGuiApplication::screens())
        screens.append(each->availableGeometry());
    if (state.position)
        place.PutAt(BroughtBack(*state.position, screens));
    else
        place.FitOntoScreen(FIRST_SIZE);
    if (state.maximized)
        setWindowState(Qt::WindowMaximized);
    statusBar()->setVisible(env.settings.Int("DockState", "statusBar", 1) != 0);

    const QByteArray bars = QByteArray::fromBase64(env.settings.String("DockState", "state").toLatin1());
    // A state that isn't whole would end the program at each start.
    const bool isWhole = !bars.isEmpty() && env.settings.String("DockState", "check") == CheckOf(bars);
    if (!isWhole || !restoreState(bars, DOCK_STATE_VERSION)) {
        outputBar->LimitStandingWidth(width() / 4);
        ShowOutput(true);
    }
    toolboxBar->hide(); // it belongs to layouts
}

void CMainFrame::StoreState()
{
    QList<ProfileEntry> entries;
    const auto store = [&entries](const char *section, const char *key, const QString &value) {
        entries.append({QString::fromLatin1(section), QString::fromLatin1(key), value});
    };
    if (!isMinimized())
        store("Frame", "maximized", QString::number(int(isMaximized())));
    if (!isMinimized() && !isMaximized())
        store("Frame", "position", PositionText(place.Position()));
    for (const auto &[section, bar] : {std::pair("Toolbox", toolboxBar), {"Output", outputBar}}) {
        store(section, "size", SizeText(bar->PreferredSize()));
        entries += bar->Sizes();
    }
    store("DockState", "statusBar", QString::number(int(!statusBar()->isHidden())));
    const QByteArray bars = saveState(DOCK_STATE_VERSION);
    store("DockState", "state", QString::fromLatin1(bars.toBase64()));
    store("DockState", "check", CheckOf(bars));
    for (CChildFrame *child : Children())
        entries += child->State();
    (void)env.settings.WriteAll(entries);
}

void CMainFrame::ShowOutput(bool show)
{
    outputBar->setVisible(show);
    if (show)
        output->GoToEnd();
}

void CMainFrame::ToggleToolbox()
{
    const bool show = !toolboxState.IsShown(env.settings);
    toolboxState.Show(show);
    FillToolbox();
    toolboxBar->setVisible(show);
}

void CMainFrame::WriteOutput(QStringView text)
{
    told.Append(text);
    if (!outputBar->isHidden())
        output->Append(text);
}

void CMainFrame::WriteLine(const QString &text)
{
    WriteOutput(text + QStringLiteral("\r\n"));
}
