// SPDX-License-Identifier: MIT
#include "CSizingControlBar.h"

#include "Settings.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QResizeEvent>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

namespace
{

constexpr const char *WIDTH_KEYS[] = {"sizeHorzCX", "sizeVertCX", "sizeFloatCX"};
constexpr const char *HEIGHT_KEYS[] = {"sizeHorzCY", "sizeVertCY", "sizeFloatCY"};

/// The content of a bar. Its size hint is the bar's stored size.
class Content : public QWidget
{
public:
    Content(CSizingControlBar *owner, QWidget *inner) : QWidget(owner), bar(owner)
    {
        auto *const all = new QVBoxLayout(this);
        all->setContentsMargins(0, 0, 0, 0);
        all->addWidget(inner);
        setFocusProxy(inner);
    }
    [[nodiscard]] QSize sizeHint() const override { return bar->PreferredSize(); }

private:
    CSizingControlBar *bar;
};

} // namespace

CSizingControlBar::CSizingControlBar(const QString &title, int barNumber, const QSize &size, QWidget *parent)
    : QDockWidget(title, parent), number(barNumber), sizes{size, size, size}
{
    setObjectName(title); // identifies it in the window's saved state
    setAccessibleName(title);
}

void CSizingControlBar::SetContent(QWidget *content)
{
    setWidget(new Content(this, content));
}

QString CSizingControlBar::Section() const
{
    return QStringLiteral("DockState-SCBar-%1").arg(number);
}

void CSizingControlBar::ReadSizes(const Settings &settings)
{
    constexpr int LARGEST = 1 << 14;
    const QByteArray section = Section().toUtf8();
    for (int form = 0; form < FORMS; ++form) {
        const int width = settings.Int(section.constData(), WIDTH_KEYS[form], 0);
        const int height = settings.Int(section.constData(), HEIGHT_KEYS[form], 0);
        if (width > 0 && height > 0 && width <= LARGEST && height <= LARGEST)
            sizes[form] = QSize(width, height);
    }
}

QList<ProfileEntry> CSizingControlBar::Sizes() const
{
    QList<ProfileEntry> entries;
    for (int form = 0; form < FORMS; ++form) {
        entries.append({Section(), QString::fromLatin1(WIDTH_KEYS[form]), QString::number(sizes[form].width())});
        entries.append({Section(), QString::fromLatin1(HEIGHT_KEYS[form]), QString::number(sizes[form].height())});
    }
    return entries;
}

CSizingControlBar::Form CSizingControlBar::CurrentForm() const
{
    if (isFloating())
        return Floating;
    const auto *window = qobject_cast<const QMainWindow *>(parentWidget());
    const Qt::DockWidgetArea area =
        window ? window->dockWidgetArea(const_cast<CSizingControlBar *>(this)) : Qt::NoDockWidgetArea;
    return area == Qt::TopDockWidgetArea || area == Qt::BottomDockWidgetArea ? Horizontal : Vertical;
}

QSize CSizingControlBar::PreferredSize() const
{
    return sizes[CurrentForm()];
}

void CSizingControlBar::TakeChange(const QSize &before)
{
    QSize &size = sizes[CurrentForm()];
    if (width() != before.width())
        size.setWidth(width());
    if (height() != before.height())
        size.setHeight(height());
}

void CSizingControlBar::LimitVerticalWidth(int most)
{
    sizes[Vertical].setWidth(qMin(sizes[Vertical].width(), most));
}

void CSizingControlBar::PlaceFloating()
{
    if (!isFloating()) {
        isPlaced = false;
    } else if (!isPlaced && QGuiApplication::mouseButtons() == Qt::NoButton) {
        resize(sizes[Floating]);
        BringBack();
        isPlaced = true;
    }
}

void CSizingControlBar::BringBack()
{
    constexpr int TITLE_HEIGHT = 16;
    constexpr int ENOUGH = 40; // width of the title that the user can grab
    const QRect title(pos(), QSize(frameGeometry().width(), TITLE_HEIGHT));
    for (const QScreen *each : QGuiApplication::screens()) {
        const QRect seen = each->availableGeometry() & title;
        if (seen.width() >= qMin(ENOUGH, title.width()) && seen.height() > 0)
            return;
    }
    if (const QScreen *const nearest = parentWidget() ? parentWidget()->screen() : nullptr)
        move(nearest->availableGeometry().center() - QRect(QPoint(), frameGeometry().size()).center());
}

bool CSizingControlBar::event(QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress) // on the title: presses on the edges don't come here
        isTitleHeld = true;
    else if (event->type() == QEvent::MouseButtonRelease)
        isTitleHeld = false;
    else if (event->type() == QEvent::Show && !event->spontaneous())
        isPlaced = false;
    const bool isTaken = QDockWidget::event(event);
    if (event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::NonClientAreaMouseButtonRelease)
        QTimer::singleShot(0, this, [this] { PlaceFloating(); }); // after the user has dropped the bar
    return isTaken;
}

/// Stores the size of a floating bar that the user resizes. The size of a docked bar follows from the divider. A bar
/// that is being docked still counts as floating while it changes to its docked size.
void CSizingControlBar::resizeEvent(QResizeEvent *event)
{
    QDockWidget::resizeEvent(event);
    const bool hasFrameOfDesktop = !(windowFlags() & (Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint));
    const bool isPulled =
        hasFrameOfDesktop ? event->spontaneous() : QGuiApplication::mouseButtons() != Qt::NoButton && !isTitleHeld;
    if (isFloating() && isPlaced && isVisible() && isPulled)
        sizes[Floating] = size();
}
