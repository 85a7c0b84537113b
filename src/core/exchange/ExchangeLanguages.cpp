// SPDX-License-Identifier: MIT
#include "ExchangeLanguages.h"

#include "CheckSettings.h"
#include "ResModel.h"
#include "StringFileFormat.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr QStringView OWN_CODE = u"x-morvanite-";

bool Equals(QStringView a, QStringView b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

} // namespace

ExchangeLanguages::ExchangeLanguages(const CResModel &model, const CheckSettings &settings)
    : known(KnownLanguages(model.env)), codes(settings.codes)
{
    const CResFolder *const strings = model.root.FindFolder(KIND_STRINGS, 2);
    for (size_t i = 0; strings && i < strings->subfolders.size(); ++i) {
        const CResFolder &folder = *strings->subfolders[i];
        if (folder.kind != KIND_LANGUAGE || folder.index == StringFileFormat::DESCRIPTION)
            continue;
        own.push_back(folder.index);
        names.emplace(folder.index, folder.title);
    }
    for (const KnownLanguage &language : known)
        names.emplace(language.number, language.name);
    if (settings.source.isEmpty())
        source = own.empty() ? std::nullopt : std::optional(own.front());
    else
        source = Find(settings.source);
}

QString ExchangeLanguages::CodeOf(qint32 number) const
{
    if (const auto set = codes.find(number); set != codes.end())
        return set->second;
    const auto language = std::find_if(known.begin(), known.end(), [number](const KnownLanguage &one) {
        return one.number == number && !one.code.isEmpty();
    });
    return language == known.end() ? OWN_CODE.toString() + QString::number(number) : language->code;
}

QString ExchangeLanguages::NameOf(qint32 number) const
{
    const auto name = names.find(number);
    return name == names.end() ? QString() : name->second;
}

bool ExchangeLanguages::IsInProject(qint32 number) const
{
    return std::find(own.begin(), own.end(), number) != own.end();
}

std::optional<qint32> ExchangeLanguages::OfExactCode(const QString &code) const
{
    for (const auto &[number, ownCode] : codes) {
        if (Equals(ownCode, code))
            return number;
    }
    for (const KnownLanguage &language : known) {
        if (!language.code.isEmpty() && Equals(language.code, code))
            return language.number;
    }
    if (!code.startsWith(OWN_CODE, Qt::CaseInsensitive))
        return std::nullopt;
    bool isNumber = false;
    const qint32 number = QStringView(code).sliced(OWN_CODE.size()).toInt(&isNumber);
    return isNumber && names.count(number) > 0 ? std::optional(number) : std::nullopt;
}

std::optional<qint32> ExchangeLanguages::OfCode(const QString &code) const
{
    for (QString rest = code; !rest.isEmpty(); rest.truncate(qMax<qsizetype>(rest.lastIndexOf(u'-'), 0))) {
        if (const auto number = OfExactCode(rest))
            return number;
    }
    return std::nullopt;
}

std::optional<qint32> ExchangeLanguages::Find(const QString &word) const
{
    const QString text = word.trimmed();
    for (const qint32 number : own) {
        if (Equals(NameOf(number), text))
            return number;
    }
    for (const KnownLanguage &language : known) {
        if (Equals(language.name, text))
            return language.number;
    }
    bool isNumber = false;
    const qint32 number = text.toInt(&isNumber);
    if (isNumber)
        return names.count(number) > 0 ? std::optional(number) : std::nullopt;
    return OfExactCode(QString(text).replace(u'_', u'-'));
}
