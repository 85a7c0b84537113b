// SPDX-License-Identifier: MIT
#include "FrameState.h"

#include <QRegularExpression>

QString PositionText(const QRect &position)
{
    return QStringLiteral("%1,%2,%3,%4")
        .arg(position.x())
        .arg(position.y())
        .arg(position.x() + position.width())
        .arg(position.y() + position.height());
}

namespace
{

/// Reads numbers as scanning with "%d,%d,..." does: blanks are allowed before a number, and any text after the last
/// one. Reading ends at a number that exceeds the range of int.
QList<int> LeadingNumbers(const QString &text, int most)
{
    static const QRegularExpression number(QStringLiteral("\\G\\s*([+-]?[0-9]+)(,?)"));
    QList<int> numbers;
    QRegularExpressionMatch found = number.match(text);
    while (found.hasMatch() && numbers.size() < most) {
        bool fits = false;
        const int value = found.capturedView(1).toInt(&fits);
        if (!fits)
            break;
        numbers.append(value);
        if (found.capturedView(2).isEmpty())
            break;
        found = number.match(text, found.capturedEnd());
    }
    return numbers;
}

} // namespace

std::optional<QRect> ParsePosition(const QString &text)
{
    constexpr int FARTHEST = 1 << 20;
    const QList<int> numbers = LeadingNumbers(text, 4);
    if (numbers.size() < 4)
        return std::nullopt;
    for (const int number : numbers) {
        if (number < -FARTHEST || number > FARTHEST)
            return std::nullopt;
    }
    return QRect(numbers[0], numbers[1], numbers[2] - numbers[0], numbers[3] - numbers[1]);
}

QString SizeText(const QSize &size)
{
    return QStringLiteral("%1,%2").arg(size.width()).arg(size.height());
}

QSize ParseSize(const QString &text, const QSize &fallback)
{
    constexpr int LARGEST = 1 << 14;
    const QList<int> numbers = LeadingNumbers(text, 2);
    const bool isSize = numbers.size() == 2 && numbers[0] > 0 && numbers[1] > 0;
    return isSize ? QSize(qMin(numbers[0], LARGEST), qMin(numbers[1], LARGEST)) : fallback;
}

QSize SmallestFrame(const QSize &screen)
{
    return SMALLEST_FRAME.boundedTo(screen);
}

QRect BroughtBack(const QRect &position, const QList<QRect> &screens)
{
    constexpr int TITLE_HEIGHT = 24;
    constexpr int ENOUGH = 80; // width of the title that the user can grab
    if (screens.isEmpty())
        return position;
    QRect all;
    for (const QRect &screen : screens)
        all |= screen;
    for (const QRect &screen : screens) {
        const QRect title = screen & QRect(position.topLeft(), QSize(position.width(), TITLE_HEIGHT));
        if (title.width() < ENOUGH || title.height() <= 0)
            continue;
        QRect back(position.topLeft(), position.size().boundedTo(all.size()));
        back.moveTop(qMax(back.top(), screen.top()));
        return back.size() == position.size() ? back : FittedInto(back, all);
    }
    const QRect &first = screens.front();
    QRect back(first.topLeft(), position.size().expandedTo(SmallestFrame(first.size())).boundedTo(first.size()));
    back.moveCenter(first.center());
    return back;
}

QRect FittedInto(const QRect &position, const QRect &screen)
{
    QRect fitted(position.topLeft(), position.size().boundedTo(screen.size()));
    fitted.moveTo(qBound(screen.left(), fitted.left(), screen.right() + 1 - fitted.width()),
                  qBound(screen.top(), fitted.top(), screen.bottom() + 1 - fitted.height()));
    return fitted;
}

FrameState FrameState::Read(const Settings &settings)
{
    return {settings.Int("Frame", "maximized", 0) != 0, ParsePosition(settings.String("Frame", "position"))};
}

bool ToolboxState::IsShown(const Settings &settings)
{
    if (!shown)
        shown = settings.Int("Toolbox", "show", 1) != 0;
    return *shown;
}

QList<ProfileEntry> ToolboxState::State() const
{
    if (!shown)
        return {};
    return {{QStringLiteral("Toolbox"), QStringLiteral("show"), QString::number(int(*shown))}};
}
