// SPDX-License-Identifier: MIT
#include "CLotScreenView.h"

#include "CLayoutRes.h"
#include "CResDoc.h"
#include "CZoomRatioDlg.h"
#include "PreviewArt.h"
#include "ViewHost.h"
#include "ViewMenu.h"
#include "ZoomActions.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStatusTipEvent>

#include <utility>

namespace
{

constexpr ViewMenuEntry LINE{ACTION_NONE};
constexpr ViewMenuEntry MENU[] = {
    {ACTION_ZOOM_IN, "Zoom &In"},
    {ACTION_ZOOM_OUT, "&Zoom Out"},
    {ACTION_FIT_VIEW, "&Fit View"},
    LINE,
    {ActionId(ACTION_ZOOM_PRESET), "500%", true},
    {ActionId(ACTION_ZOOM_PRESET + 1), "200%", true},
    {ActionId(ACTION_ZOOM_PRESET + 2), "150%", true},
    {ActionId(ACTION_ZOOM_PRESET + 3), "100%", true},
    {ActionId(ACTION_ZOOM_PRESET + 4), "75%", true},
    {ActionId(ACTION_ZOOM_PRESET + 5), "50%", true},
    {ACTION_ZOOM_CUSTOM, "", true},
};

constexpr int LINES_OF_PAGE = 10;

/// The colour around the screen. It is unobtrusive beside any layout, on a light desktop and on a dark one.
QColor SurroundOf(const QPalette &palette)
{
    const QColor window = palette.color(QPalette::Window);
    const int hue = window.hslHue();
    const bool isDark = window.lightness() < 128;
    return QColor::fromHsl(qMax(hue, 0), window.hslSaturation() / 2,
                           isDark ? window.lightness() * 3 / 4 : window.lightness() * 7 / 8);
}

} // namespace

CLotScreenView::CLotScreenView(CResDoc &projectDocument, IViewHost &viewHost)
    : document(projectDocument), host(viewHost), painter(projectDocument.env)
{
    setAccessibleName(QStringLiteral("Layout preview"));
    setFrameShape(NoFrame); // Fit View uses the outer rectangle, so that must have no frame
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    horizontalScrollBar()->setLayoutDirection(Qt::LeftToRight); // as on the device's screen
    if (document.env.settings.Int("Layout", "pictures", 0) != 0)
        art = std::make_unique<PreviewArt>(document, [this] { viewport()->update(); });
    painter.art = art.get();
    TakeLook();
    Describe();
}

CLotScreenView::~CLotScreenView() = default;

void CLotScreenView::ShowLayout(const CLayoutRes *layoutRes)
{
    layout = layoutRes;
    zoom.SetScreen(ScreenOf(layout, document.tables.resolutions));
    SetScrollSizes();
    RebuildEntries();
}

void CLotScreenView::RebuildEntries()
{
    if (layout)
        entries = EntriesOf(*layout, std::move(entries));
    else
        entries.clear();
    ResetLook();
    Describe();
    viewport()->update();
}

/// Repaints where the components were and where they are now.
void CLotScreenView::RefreshEntries(const CZulClass *changed)
{
    const PreviewEntry *const first = EntryOf(entries, changed);
    if (!first) {
        Refresh(entries);
        ResetLook();
        viewport()->update();
    } else {
        const PreviewEntry *const end = EndBelow(entries, *first);
        painter.labels.Forget(size_t(first - entries.data()));
        if (art)
            art->Forget(size_t(first - entries.data()));
        const auto touched = [&] {
            QRect all;
            for (const PreviewEntry *entry = first; entry != end; ++entry)
                all |= painter.ExtentOf(Scene(), *entry);
            return all;
        };
        const QRect before = touched();
        Refresh(entries, *changed);
        viewport()->update(before);
        viewport()->update(touched());
    }
    Describe();
}

void CLotScreenView::LetGo()
{
    selected = nullptr;
    layout = nullptr;
    RebuildEntries();
}

void CLotScreenView::Select(CZulClass *component)
{
    if (selected == component)
        return;
    for (CZulClass *const each : {std::exchange(selected, component), component}) {
        if (const PreviewEntry *const entry = EntryOf(entries, each))
            viewport()->update(PreviewPainter::OutlineOf(Scene(), *entry));
    }
    Describe();
}

/// Describes the selected component for screen readers.
void CLotScreenView::Describe()
{
    const PreviewEntry *const entry = EntryOf(entries, selected);
    if (!entry)
        return setAccessibleDescription(QStringLiteral("No component is selected."));
    const PreviewRect &rect = entry->rect;
    setAccessibleDescription(
        QStringLiteral("Selected: %1 at %2, %3 wide, %4 high.")
            .arg(painter.labels.TextOf(*entry->component), PreviewZoom::PointText({rect.left, rect.top}))
            .arg(qint64(rect.right) - rect.left)
            .arg(qint64(rect.bottom) - rect.top));
}

PreviewPlace CLotScreenView::Place() const
{
    return {{horizontalScrollBar()->value(), verticalScrollBar()->value()}, viewport()->size()};
}

PreviewScene CLotScreenView::Scene() const
{
    const PreviewPlace place = Place();
    return {entries, zoom, zoom.ScreenCorner(place.client) - place.scroll, viewport()->rect(), selected, active};
}

void CLotScreenView::ResetLook()
{
    painter.labels.Reset(entries.size());
    if (art)
        art->Reset(entries.size(), layout && layout->File() ? layout->File()->resolution : -1);
}

void CLotScreenView::TakeLook()
{
    painter.labels.SetFont(font());
    painter.look = {SurroundOf(palette()), palette().color(QPalette::Highlight)};
    viewport()->update();
}

void CLotScreenView::paintEvent(QPaintEvent *event)
{
    QPainter target(viewport());
    painter.Paint(target, Scene(), event->region());
}

/// A scroll bar that appears or disappears changes the room for the other one.
void CLotScreenView::SetScrollSizes()
{
    const QSize total = zoom.ScrollSize();
    const QSize most = maximumViewportSize();
    const bool isAllInSight = total.width() <= most.width() && total.height() <= most.height();
    const auto set = [isAllInSight](QScrollBar &bar, int size, int page) {
        bar.setRange(0, isAllInSight ? 0 : qMax(0, size - page));
        bar.setPageStep(page);
        bar.setSingleStep(qMax(1, page / LINES_OF_PAGE));
    };
    set(*horizontalScrollBar(), total.width(), viewport()->width());
    set(*verticalScrollBar(), total.height(), viewport()->height());
}

void CLotScreenView::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    SetScrollSizes();
}

void CLotScreenView::scrollContentsBy(int dx, int dy)
{
    viewport()->scroll(dx, dy);
}

void CLotScreenView::ChangeZoom(QPoint kept, const std::function<bool(PreviewZoom &)> &change)
{
    const PreviewZoom before = zoom;
    const PreviewPlace placeBefore = Place();
    if (!change(zoom))
        return;
    SetScrollSizes();
    QEvent now(QEvent::LayoutRequest); // shows or hides scroll bars at once, which changes the client area
    QApplication::sendEvent(this, &now);
    const QPoint scroll = zoom.ScrollKeeping(kept, before, placeBefore, viewport()->size());
    horizontalScrollBar()->setValue(scroll.x());
    verticalScrollBar()->setValue(scroll.y());
    viewport()->update();
    if (isVisible())
        host.ShowZoom(PreviewZoom::PercentText(zoom.Percent()));
}

std::optional<ActionState> CLotScreenView::StateOf(ActionId id) const
{
    // If the Output or the Toolbox has the focus, Ctrl+Home is one of its own keys.
    return active ? ZoomActions::StateOf(id, zoom) : std::nullopt;
}

void CLotScreenView::Run(ActionId id)
{
    if (id == ACTION_ZOOM_CUSTOM)
        return AskForZoom();
    ChangeZoom(viewport()->rect().center(),
               [this, id](PreviewZoom &changed) { return ZoomActions::Run(id, changed, size()); });
}

void CLotScreenView::AskForZoom()
{
    CZoomRatioDlg dialog(zoom.Percent(), this);
    if (host.Boxes().RunDialog(dialog))
        ChangeZoom(viewport()->rect().center(),
                   [&dialog](PreviewZoom &changed) { return changed.Set(dialog.Percent()); });
}

void CLotScreenView::contextMenuEvent(QContextMenuEvent *event)
{
    QPoint place = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        const QPoint corner = Scene().corner + QPoint(1, 1); // of the screen, as far as it is visible
        const QPoint most = viewport()->rect().bottomRight();
        place = viewport()->mapToGlobal(QPoint(qBound(0, corner.x(), most.x()), qBound(0, corner.y(), most.y())));
    }
    const QByteArray customize = zoom.CustomizeLabel().toLatin1();
    std::vector<ViewMenuEntry> menu(std::begin(MENU), std::end(MENU));
    menu.back().text = customize.constData();
    const auto stateOf = [this](ActionId id) {
        return ActionState{host.IsEnabled(id), ZoomActions::StateOf(id, zoom)->checked};
    };
    RunViewMenu(*this, menu, place, stateOf, [this](ActionId id) { host.RunAction(id); });
}

/// Adds up the parts of a notch that a touchpad sends. Returns 0 until they are enough for a step.
int CLotScreenView::TakeWheel(int delta, int least)
{
    if ((restOfWheel > 0) != (delta > 0))
        restOfWheel = 0;
    restOfWheel += delta;
    return qAbs(restOfWheel) < least ? 0 : std::exchange(restOfWheel, 0);
}

void CLotScreenView::wheelEvent(QWheelEvent *event)
{
    event->accept();
    const int delta = event->angleDelta().y(); // 0 while Alt is held, because Alt swaps the axes
    const WheelMove move = WheelMoveOf(delta, event->modifiers());
    if (move == WheelMove::Zoom) {
        const int taken = TakeWheel(delta, PreviewZoom::LEAST_OF_WHEEL);
        ChangeZoom(event->position().toPoint(), [taken](PreviewZoom &changed) { return changed.Wheel(taken); });
    } else if (move != WheelMove::Nothing && TakeWheel(delta, PreviewZoom::NOTCH) != 0) {
        const bool isAcross = move == WheelMove::LineLeft || move == WheelMove::LineRight;
        const bool isBack = move == WheelMove::LineLeft || move == WheelMove::LineUp;
        QScrollBar &bar = isAcross ? *horizontalScrollBar() : *verticalScrollBar();
        bar.triggerAction(isBack ? QScrollBar::SliderSingleStepSub : QScrollBar::SliderSingleStepAdd);
    }
}

void CLotScreenView::mousePressEvent(QMouseEvent *event)
{
    (void)pan.Press(*event);
}

void CLotScreenView::mouseMoveEvent(QMouseEvent *event)
{
    (void)pan.Move(*event);
    ShowStatus(PreviewZoom::PointText(zoom.LayoutPoint(event->pos(), Place())));
}

void CLotScreenView::mouseReleaseEvent(QMouseEvent *event)
{
    if (!pan.Release(*event) && event->button() == Qt::LeftButton)
        Pick(event->pos(), event->modifiers());
}

/// With Alt or Ctrl, each click picks the next component below the selected one. Ctrl works too because many desktops
/// use Alt themselves.
void CLotScreenView::Pick(QPoint pointer, Qt::KeyboardModifiers keys)
{
    const QPoint point = zoom.LayoutPoint(pointer, Place());
    const PreviewEntry *const hit = keys & (Qt::AltModifier | Qt::ControlModifier)
                                        ? NextEntryAt(entries, point.x(), point.y(), selected)
                                        : EntryAt(entries, point.x(), point.y());
    if (hit && hit->component != selected && picked)
        picked(*hit->component);
}

void CLotScreenView::keyPressEvent(QKeyEvent *event)
{
    if (!pan.Key(*event, true))
        QAbstractScrollArea::keyPressEvent(event);
}

void CLotScreenView::keyReleaseEvent(QKeyEvent *event)
{
    if (!pan.Key(*event, false))
        QAbstractScrollArea::keyReleaseEvent(event);
}

void CLotScreenView::focusInEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusInEvent(event);
    Activate(true);
}

/// The view stays active while a menu has the focus.
void CLotScreenView::focusOutEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusOutEvent(event);
    pan.LoseKeys();
    Activate(event->reason() == Qt::PopupFocusReason || event->reason() == Qt::MenuBarFocusReason);
}

void CLotScreenView::Activate(bool isNowActive)
{
    if (std::exchange(active, isNowActive) != isNowActive)
        viewport()->update();
}

bool CLotScreenView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::Leave)
        ShowStatus({});
    else if (event->type() == QEvent::WindowActivate && art) // files may have been added or removed meanwhile
        art->RefreshFiles();
    return QAbstractScrollArea::viewportEvent(event);
}

void CLotScreenView::ShowStatus(const QString &text)
{
    QStatusTipEvent tip(text);
    QApplication::sendEvent(this, &tip);
}

void CLotScreenView::showEvent(QShowEvent *event)
{
    QAbstractScrollArea::showEvent(event);
    ResetLook(); // what the components refer to may have changed meanwhile
    host.ShowZoom(PreviewZoom::PercentText(zoom.Percent()));
}

/// A view in a minimised window is not hidden.
void CLotScreenView::hideEvent(QHideEvent *event)
{
    QAbstractScrollArea::hideEvent(event);
    if (event->spontaneous())
        return;
    host.ShowZoom({});
    if (viewport()->underMouse())
        ShowStatus({});
}

void CLotScreenView::changeEvent(QEvent *event)
{
    QAbstractScrollArea::changeEvent(event);
    const QEvent::Type type = event->type();
    if (type == QEvent::FontChange || type == QEvent::PaletteChange || type == QEvent::StyleChange)
        TakeLook();
}
