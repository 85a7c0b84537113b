// SPDX-License-Identifier: MIT
#include "Baseline.h"
#include "CheckOutput.h"
#include "JsonWriter.h"
#include "Rules.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace
{

constexpr char FOLDER[] = "%SRCROOT%"; // the name that viewers know for the folder of the sources

void WriteText(JsonWriter &json, const char *key, QStringView text)
{
    json.Key(key);
    json.BeginObject();
    json.Key("text");
    json.String(text);
    json.EndObject();
}

const char *LevelWord(RuleLevel level)
{
    switch (level) {
    case RuleLevel::Error:
        return "error";
    case RuleLevel::Warning:
        return "warning";
    default:
        return "note";
    }
}

void WriteRules(JsonWriter &json)
{
    json.Key("rules");
    json.BeginArray();
    for (const Rule &rule : AllRules()) {
        json.BeginObject();
        json.Key("id");
        json.String(QString::fromLatin1(rule.id));
        WriteText(json, "shortDescription", QString::fromUtf8(rule.summary));
        WriteText(json, "fullDescription", QString::fromUtf8(rule.explanation));
        json.Key("defaultConfiguration");
        json.BeginObject();
        json.Key("enabled");
        json.Bool(rule.level != RuleLevel::Off);
        json.Key("level");
        json.String(QString::fromLatin1(LevelWord(rule.level)));
        json.EndObject();
        json.EndObject();
    }
    json.EndArray();
}

void WriteLocations(JsonWriter &json, const CheckResult &result, const Finding &finding)
{
    json.Key("locations");
    json.BeginArray();
    json.BeginObject();
    json.Key("physicalLocation");
    json.BeginObject();
    json.Key("artifactLocation");
    json.BeginObject();
    json.Key("uri");
    const QString file = result.Relative(finding.file.isEmpty() ? result.project : finding.file);
    json.String(QString::fromLatin1(QUrl::toPercentEncoding(file, "/")));
    json.Key("uriBaseId");
    json.String(QString::fromLatin1(FOLDER));
    json.EndObject();
    if (finding.line > 0) {
        json.Key("region");
        json.BeginObject();
        json.Key("startLine");
        json.Number(finding.line);
        if (finding.column > 0) {
            json.Key("startColumn");
            json.Number(finding.column);
        }
        json.EndObject();
    }
    json.EndObject();
    if (!finding.id.isEmpty()) {
        json.Key("logicalLocations");
        json.BeginArray();
        json.BeginObject();
        json.Key("name");
        json.String(finding.id);
        json.Key("fullyQualifiedName");
        json.String(finding.language < 0 ? finding.id : u"%1/%2"_s.arg(finding.id).arg(finding.language));
        json.EndObject();
        json.EndArray();
    }
    json.EndObject();
    json.EndArray();
}

void WriteResult(JsonWriter &json, const CheckResult &result, const Finding &finding, const char *baselineState)
{
    const Rule *const rule = FindRule(QString::fromLatin1(finding.code));
    json.BeginObject();
    json.Key("ruleId");
    json.String(QString::fromLatin1(finding.code));
    if (rule) {
        json.Key("ruleIndex");
        json.Number(qint64(IndexOf(*rule)));
    }
    json.Key("level");
    json.String(QString::fromLatin1(SeverityWord(finding.severity)));
    WriteText(json, "message", MessageOf(result, finding));
    WriteLocations(json, result, finding);
    json.Key("partialFingerprints");
    json.BeginObject();
    json.Key("morvanite/v1");
    json.String(QString::fromUtf8(FingerprintOf(finding, result.ProjectFolder()).replace('\t', '/')));
    json.EndObject();
    if (result.hasBaseline) {
        json.Key("baselineState");
        json.String(QString::fromLatin1(baselineState));
    }
    json.EndObject();
}

} // namespace

QByteArray CheckSarif(const CheckResult &result)
{
    QByteArray bytes;
    JsonWriter json(bytes);
    json.BeginObject();
    json.Key("$schema");
    json.String(u"https://json.schemastore.org/sarif-2.1.0.json");
    json.Key("version");
    json.String(u"2.1.0");
    json.Key("runs");
    json.BeginArray();
    json.BeginObject();
    json.Key("tool");
    json.BeginObject();
    json.Key("driver");
    json.BeginObject();
    json.Key("name");
    json.String(u"morvanite-cli");
    json.Key("version");
    json.String(result.version);
    WriteRules(json);
    json.EndObject();
    json.EndObject();
    json.Key("columnKind");
    json.String(u"utf16CodeUnits");
    json.Key("results");
    json.BeginArray();
    for (const Finding &finding : result.findings)
        WriteResult(json, result, finding, "new");
    for (const Finding &finding : result.known)
        WriteResult(json, result, finding, "unchanged");
    json.EndArray();
    json.EndObject();
    json.EndArray();
    json.EndObject();
    return bytes + '\n';
}
