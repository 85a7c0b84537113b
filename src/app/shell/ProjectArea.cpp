// SPDX-License-Identifier: MIT
#include "ProjectArea.h"

#include "Cascade.h"

#include <QPaintEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>

ProjectArea::ProjectArea(QWidget *parent) : QMdiArea(parent)
{
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

QList<CChildFrame *> ProjectArea::Children() const
{
    QList<CChildFrame *> children;
    for (QMdiSubWindow *window : subWindowList()) {
        auto *const child = static_cast<CChildFrame *>(window);
        if (!child->HasLeft())
            children.append(child);
    }
    return children;
}

CChildFrame *ProjectArea::ActiveChild() const
{
    // Takes the window that was active last. This also works while another program's window is active, and if the main
    // window was minimised and restored so quickly that the area has no current window.
    const QList<QMdiSubWindow *> windows = subWindowList(QMdiArea::ActivationHistoryOrder);
    const auto left = [](QMdiSubWindow *window) { return static_cast<CChildFrame *>(window)->HasLeft(); };
    const auto last = std::find_if_not(windows.crbegin(), windows.crend(), left);
    return last != windows.crend() ? static_cast<CChildFrame *>(*last) : nullptr;
}

CChildFrame *ProjectArea::ChildOf(const CDocument &document) const
{
    for (CChildFrame *child : Children()) {
        if (&child->Document() == &document)
            return child;
    }
    return nullptr;
}

void ProjectArea::Activate(const CDocument &document)
{
    CChildFrame *const child = ChildOf(document);
    if (!child)
        return;
    if (child->isMinimized())
        child->showNormal();
    setActiveSubWindow(child);
}

void ProjectArea::Cascade()
{
    QList<QMdiSubWindow *> windows = subWindowList(QMdiArea::StackingOrder);
    windows.removeIf([](const QMdiSubWindow *window) { return window->isMinimized() || window->isHidden(); });
    QSize smallest;
    for (QMdiSubWindow *window : windows) {
        window->showNormal();
        smallest = smallest.expandedTo(window->minimumSizeHint());
    }
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, window()) +
                      style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, window());
    const QList<QRect> places = CascadePlaces(int(windows.size()), viewport()->size(), title, smallest);
    for (qsizetype i = 0; i < windows.size(); ++i)
        windows[i]->setGeometry(places[i]);
}

void ProjectArea::ArrangeIcons()
{
    for (CChildFrame *child : Children()) {
        if (child->isMinimized())
            child->showMinimized(); // moves it to its place along the bottom
    }
}

void ProjectArea::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    painter.fillRect(event->rect(), palette().brush(QPalette::Window).color().darker(108));
    if (!subWindowList().isEmpty())
        return;
    QColor text = palette().color(QPalette::WindowText);
    text.setAlphaF(0.65F);
    painter.setPen(text);
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap,
                     QStringLiteral("Open a project with Ctrl+O, or drop its .vcproj file here."));
}

/// The text disappears with the first window, and appears after the last. All of it is repainted, not only the area of
/// that window.
bool ProjectArea::viewportEvent(QEvent *event)
{
    const bool wasEmpty = subWindowList().isEmpty();
    const bool result = QMdiArea::viewportEvent(event);
    if (wasEmpty != subWindowList().isEmpty())
        viewport()->update();
    return result;
}
