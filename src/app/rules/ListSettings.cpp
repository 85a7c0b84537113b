// SPDX-License-Identifier: MIT
#include "ListSettings.h"

#include "Settings.h"

#include <cstdlib>
#include <limits>

namespace
{

constexpr int WIDEST = 1 << 14;
constexpr char SORT_KEY[] = "sort";

} // namespace

ListSettings::ListSettings(Settings &programSettings, int controlId)
    : settings(programSettings), section(QStringLiteral("wnd_%1").arg(controlId, 4, 10, QLatin1Char('0')).toLatin1())
{
}

int ListSettings::Width(int column, int fallback) const
{
    const int width = settings.Int(section.constData(), QByteArray::number(column).constData(), fallback);
    return width < 0 ? fallback : qMin(width, WIDEST);
}

int ListSettings::SortState(int fallback) const
{
    const int state = settings.Int(section.constData(), SORT_KEY, fallback);
    return state == std::numeric_limits<int>::min() ? fallback : state; // it can't be negated
}

QList<ProfileEntry> ListSettings::State(const QList<int> &widths, int sortState) const
{
    const QString name = QString::fromLatin1(section);
    QList<ProfileEntry> entries;
    for (qsizetype column = widths.size() - 1; column >= 0; --column)
        entries.append({name, QString::number(column), QString::number(widths[column])});
    entries.append({name, QString::fromLatin1(SORT_KEY), QString::number(sortState)});
    return entries;
}

bool ListSettings::Save(const QList<int> &widths, int sortState)
{
    return settings.WriteAll(State(widths, sortState));
}

int ListSettings::NextSortState(int sortState, int column)
{
    return std::abs(sortState) == column + 1 ? -sortState : column + 1;
}
