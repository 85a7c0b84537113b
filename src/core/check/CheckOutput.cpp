// SPDX-License-Identifier: MIT
#include "CheckOutput.h"

#include "JsonWriter.h"
#include "Paths.h"

#include <QDir>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

QString CheckResult::ProjectFolder() const
{
    return DirectoryOf(project);
}

QString CheckResult::Relative(const QString &file) const
{
    return file.isEmpty() ? QString() : QDir(relativeTo).relativeFilePath(file);
}

QString CheckResult::LanguageName(qint32 number) const
{
    for (const CheckedLanguage &language : languages) {
        if (language.number == number)
            return language.name;
    }
    return QString::number(number);
}

int CheckResult::Count(Severity severity) const
{
    return int(std::count_if(findings.begin(), findings.end(),
                             [severity](const Finding &finding) { return finding.severity == severity; }));
}

void CountMissingTexts(CheckResult &result)
{
    std::map<qint32, Finding> counted;
    std::map<qint32, int> counts;
    std::erase_if(result.findings, [&](Finding &finding) {
        if (qstrcmp(finding.code, "translation-missing") != 0)
            return false;
        if (counts[finding.language]++ == 0)
            counted[finding.language] = finding;
        return true;
    });
    for (auto &[language, finding] : counted) {
        finding.id.clear();
        finding.line = finding.column = 0;
        const int count = counts[language];
        finding.text = count == 1 ? u"1 text is missing"_s : u"%1 texts are missing"_s.arg(count);
        result.findings.push_back(std::move(finding));
    }
}

const char *SeverityWord(Severity severity)
{
    switch (severity) {
    case Severity::Error:
        return "error";
    case Severity::Warning:
        return "warning";
    case Severity::Note:
        break;
    }
    return "note";
}

QString MessageOf(const CheckResult &result, const Finding &finding)
{
    QString message = finding.id;
    if (finding.language >= 0)
        message += (message.isEmpty() ? QString() : u", "_s) + result.LanguageName(finding.language);
    return message.isEmpty() ? finding.text : message + u": "_s + finding.text;
}

QByteArray CheckLine(const CheckResult &result, const Finding &finding)
{
    QString place = result.Relative(finding.file.isEmpty() ? result.project : finding.file);
    if (finding.line > 0)
        place += u":%1"_s.arg(finding.line);
    if (finding.line > 0 && finding.column > 0)
        place += u":%1"_s.arg(finding.column);
    QString message = MessageOf(result, finding);
    message.replace(u'\n', u' ').remove(u'\r'); // one line for each finding
    return place.toUtf8() + ": " + SeverityWord(finding.severity) + ": " + message.toUtf8() + " [" + finding.code +
           "]\n";
}

QByteArray CheckText(const CheckResult &result)
{
    QByteArray all;
    for (const Finding &finding : result.findings)
        all += CheckLine(result, finding);
    return all;
}

QByteArray CheckJson(const CheckResult &result)
{
    QByteArray bytes;
    JsonWriter json(bytes);
    json.BeginObject();
    json.Key("version");
    json.Number(1);
    json.Key("project");
    json.String(result.Relative(result.project));
    json.Key("counts");
    json.BeginObject();
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
        json.Key(SeverityWord(severity));
        json.Number(result.Count(severity));
    }
    json.EndObject();
    json.Key("findings");
    json.BeginArray();
    for (const Finding &finding : result.findings) {
        const auto write = [&json](const char *key, const QString &value) {
            if (value.isEmpty())
                return;
            json.Key(key);
            json.String(value);
        };
        const auto writeNumber = [&json](const char *key, int number, int none) {
            if (number == none)
                return;
            json.Key(key);
            json.Number(number);
        };
        json.BeginObject();
        write("rule", QString::fromLatin1(finding.code));
        write("severity", QString::fromLatin1(SeverityWord(finding.severity)));
        write("file", result.Relative(finding.file));
        writeNumber("line", finding.line, 0);
        writeNumber("column", finding.column, 0);
        write("id", finding.id);
        writeNumber("language", finding.language, -1);
        write("text", finding.text);
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
    return bytes + '\n';
}
