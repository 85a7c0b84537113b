#include "LanguageTable.h"

#include "Environment.h"

#include <optional>

namespace
{

constexpr qsizetype MAX_NAME = 128;

/// The number of "name(number", whatever follows it; `name` is its length then.
std::optional<int> ScanNumber(QStringView text, qsizetype &name)
{
    name = text.first(qMin(text.size(), MAX_NAME + 1)).indexOf(u'(');
    if (name < 1)
        return std::nullopt;
    const QStringView number = text.sliced(name + 1);
    qsizetype at = 0;
    while (at < number.size() && number[at].isSpace())
        ++at;
    if (at < number.size() && (number[at] == u'-' || number[at] == u'+'))
        ++at;
    if (at == number.size() || number[at] < u'0' || number[at] > u'9')
        return std::nullopt;
    return LeadingNumber(number);
}

} // namespace

int ParseLanguageHeader(const Environment &env, QString &text)
{
    qsizetype name = 0;
    const std::optional<int> number = ScanNumber(text, name);
    if (!number)
        return env.LanguageNumber(text);
    text.truncate(name);
    return *number;
}
