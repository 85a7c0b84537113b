#include "DetailsText.h"

#include <cmath>

namespace
{

constexpr int LINES = 4;
constexpr int LEAST_LINES = 2;
constexpr qsizetype AT_ONCE = 4000; // characters: more than there is room for
constexpr int REST_MS = 300;

} // namespace

DetailsText::DetailsText(QWidget *parent) : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setUndoRedoEnabled(false);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setPlaceholderText(QStringLiteral("No text"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    rest.setSingleShot(true);
    rest.setInterval(REST_MS);
    connect(&rest, &QTimer::timeout, this, [this] { setPlainText(whole); });
}

void DetailsText::Show(const QString &shownText, Qt::LayoutDirection direction, const QString &name)
{
    setAccessibleName(name);
    setLayoutDirection(direction); // of the scroll bar
    QTextOption option = document()->defaultTextOption();
    if (option.textDirection() != direction) {
        option.setTextDirection(direction);
        document()->setDefaultTextOption(option);
    }
    if (shownText == whole)
        return; // what is selected in it stays
    whole = shownText;
    rest.stop();
    if (whole.size() <= AT_ONCE)
        return setPlainText(whole);
    setPlainText(whole.first(AT_ONCE - (whole[AT_ONCE - 1].isHighSurrogate() ? 1 : 0)));
    rest.start();
}

QSize DetailsText::SizeFor(int lines) const
{
    constexpr int LETTERS = 16;
    const QFontMetricsF metrics(font());
    const double edge = 2 * (frameWidth() + document()->documentMargin());
    return {int(metrics.averageCharWidth()) * LETTERS, int(std::ceil(lines * metrics.lineSpacing() + edge))};
}

QSize DetailsText::sizeHint() const
{
    return SizeFor(LINES);
}

QSize DetailsText::minimumSizeHint() const
{
    return SizeFor(LEAST_LINES);
}
