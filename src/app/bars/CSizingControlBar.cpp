#include "CSizingControlBar.h"

#include "Settings.h"

#include <QMainWindow>
#include <QVBoxLayout>

namespace
{

constexpr const char *WIDTH_KEYS[] = {"sizeHorzCX", "sizeVertCX", "sizeFloatCX"};
constexpr const char *HEIGHT_KEYS[] = {"sizeHorzCY", "sizeVertCY", "sizeFloatCY"};

/// What lies in a bar: it asks for the size that the bar remembers.
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
    setObjectName(title); // what the window's saved state knows it by
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

void CSizingControlBar::StoreSizes(Settings &settings) const
{
    const auto store = [&](const char *key, int value) {
        if (settings.Int(Section().toUtf8().constData(), key, 0) != value)
            (void)settings.Write(Section(), QString::fromLatin1(key), QString::number(value));
    };
    for (int form = 0; form < FORMS; ++form) {
        store(WIDTH_KEYS[form], sizes[form].width());
        store(HEIGHT_KEYS[form], sizes[form].height());
    }
}

CSizingControlBar::Form CSizingControlBar::CurrentForm() const
{
    if (isFloating())
        return Floating;
    const auto *window = qobject_cast<const QMainWindow *>(parentWidget());
    const Qt::DockWidgetArea area =
        window ? window->dockWidgetArea(const_cast<CSizingControlBar *>(this)) : Qt::NoDockWidgetArea;
    return area == Qt::TopDockWidgetArea || area == Qt::BottomDockWidgetArea ? Lying : Standing;
}

QSize CSizingControlBar::PreferredSize() const
{
    return sizes[CurrentForm()];
}

void CSizingControlBar::resizeEvent(QResizeEvent *event)
{
    QDockWidget::resizeEvent(event);
    RememberSize();
}

void CSizingControlBar::RememberSize()
{
    if (isVisible() && widget())
        sizes[CurrentForm()] = widget()->size();
}
