// SPDX-License-Identifier: MIT
#include "LanguageTable.h"

#include "Environment.h"

#include <map>
#include <optional>

namespace
{

/// Returns the number of "name(number", whatever follows it; `divider` is the character in place of "(". Sets `name` to
/// the length of the name, which may be at most `longest`.
std::optional<int> ScanNumber(QStringView text, char16_t divider, qsizetype longest, qsizetype &name)
{
    name = text.first(qMin(text.size(), longest + 1)).indexOf(divider);
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

std::map<int, QString> CodesByNumber(const Environment &env)
{
    std::map<int, QString> codes;
    for (const QString &line : env.ReadLanguageCodes()) {
        const qsizetype equals = line.indexOf(u'=');
        bool isNumber = false;
        const int number = QStringView(line).first(qMax(equals, 0)).trimmed().toInt(&isNumber);
        if (isNumber)
            codes.emplace(number, line.sliced(equals + 1).trimmed()); // of equal keys the first counts
    }
    return codes;
}

} // namespace

int ParseLanguageHeader(const Environment &env, QString &text)
{
    constexpr qsizetype LONGEST_NAME = 128;
    qsizetype name = 0;
    const std::optional<int> number = ScanNumber(text, u'(', LONGEST_NAME, name);
    if (!number)
        return env.LanguageNumber(text);
    text.truncate(name);
    return *number;
}

std::vector<KnownLanguage> KnownLanguages(const Environment &env)
{
    constexpr qsizetype LONGEST_NAME = 64;
    const std::map<int, QString> codes = CodesByNumber(env);
    std::vector<KnownLanguage> languages;
    for (const QString &line : env.ReadLanguageTable()) {
        qsizetype name = 0;
        const std::optional<int> number = ScanNumber(line, u'=', LONGEST_NAME, name);
        if (!number)
            continue;
        const auto code = codes.find(*number);
        languages.push_back({line.first(name), *number, code == codes.end() ? QString() : code->second});
    }
    return languages;
}
