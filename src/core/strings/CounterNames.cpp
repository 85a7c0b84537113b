// SPDX-License-Identifier: MIT
#include "CounterNames.h"

#include "ResModel.h"

#include <algorithm>
#include <limits>

namespace
{

constexpr int WIDEST = 64; // characters: the largest length of an ID

} // namespace

CounterNames::CounterNames(const QString &format) : before(format)
{
    for (qsizetype percent = format.indexOf(u'%'); percent >= 0; percent = format.indexOf(u'%', percent + 1)) {
        qsizetype at = percent + 1;
        const bool leadingZeros = at < format.size() && format[at] == u'0';
        int digits = 0;
        for (; at < format.size() && format[at] >= u'0' && format[at] <= u'9'; ++at)
            digits = std::min(digits * 10 + (format[at].unicode() - u'0'), WIDEST);
        if (at < format.size() && QStringView(u"duxX").contains(format[at])) {
            before = format.first(percent);
            behind = format.sliced(at + 1);
            width = digits;
            zeros = leadingZeros;
            kind = char(format[at].unicode());
            return;
        }
    }
}

QString CounterNames::Name(quint32 number, const QString &source) const
{
    QString digits;
    if (kind) {
        digits = QString::number(number, kind == 'x' || kind == 'X' ? 16 : 10);
        if (kind == 'X')
            digits = digits.toUpper();
        digits = digits.rightJustified(width, zeros ? u'0' : u' ');
    }
    QString start = before;
    QString end = behind;
    return start.replace(QStringLiteral("%s"), source) + digits + end.replace(QStringLiteral("%s"), source);
}

std::optional<quint32> CounterNames::NumberOf(QStringView name) const
{
    if (!kind || name.size() <= before.size() + behind.size() || !name.startsWith(before) || !name.endsWith(behind))
        return std::nullopt;
    const QStringView digits = name.sliced(before.size(), name.size() - before.size() - behind.size());
    bool isNumber = false;
    const quint32 number = digits.trimmed().toUInt(&isNumber, kind == 'x' || kind == 'X' ? 16 : 10);
    return isNumber && Name(number) == name ? std::optional(number) : std::nullopt;
}

QString CounterNames::Free(CResModel &model, quint32 &first, const QString &source) const
{
    const quint32 last = kind ? std::numeric_limits<quint32>::max() : first;
    for (quint32 number = first;; ++number) {
        QString name = Name(number, source);
        if (!model.IsIdInUse(name)) {
            first = number;
            return name;
        }
        if (number == last)
            return {};
    }
}
