// SPDX-License-Identifier: MIT
#include "LoadRules.h"

#include "CResDoc.h"
#include "CheckFacts.h"
#include "CheckInput.h"
#include "HostFiles.h"
#include "OpeningCheck.h"
#include "Paths.h"
#include "ProjectContext.h"
#include "RuleReport.h"
#include "Rules.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr char UNREADABLE[] = "project-unreadable";
constexpr char CONFLICT[] = "id-conflict";
constexpr char INVALID[] = "id-invalid";
constexpr char DROPPED[] = "element-dropped";
constexpr char MARKER[] = "conflict-marker";
constexpr char FORM[] = "string-file-form";
constexpr char SETTINGS[] = "settings-missing";
constexpr char UNLISTED[] = "resolution-unlisted";

/// The rules of the codes of a load. A code that isn't here belongs to "element-dropped".
constexpr struct
{
    const char *code;
    const char *rule;
} RULES_OF_CODES[] = {
    {"catalogue.definition", SETTINGS},
    {"catalogue.malformed", SETTINGS},
    {"catalogue.unreadable", SETTINGS},
    {"layout.id-conflict", CONFLICT},
    {"list.file-missing", "file-missing"},
    {"list.id-conflict", CONFLICT},
    {"list.id-invalid", INVALID},
    {"list.malformed", UNREADABLE},
    {"list.root", UNREADABLE},
    {"list.size-unlisted", UNLISTED},
    {"list.unreadable", UNREADABLE},
    {"project.conflict-marker", MARKER},
    {"project.errors", UNREADABLE},
    {"project.unreadable", UNREADABLE},
    {"settings.no-sizes", SETTINGS},
    {"strings.cut-short", FORM},
    {"strings.header", FORM},
    {"strings.id-conflict", CONFLICT},
    {"strings.id-invalid", INVALID},
    {"strings.language-count", FORM},
    {"strings.language-left-out", FORM},
    {"strings.language-unknown", FORM},
    {"strings.other-type", CONFLICT},
    {"strings.text-twice", CONFLICT},
    {"strings.text-without-language", FORM},
    {"strings.type-invalid", FORM},
    {"strings.unreadable", UNREADABLE},
};

const char *RuleOf(const Finding &finding)
{
    for (const auto &row : RULES_OF_CODES) {
        if (qstrcmp(row.code, finding.code) == 0)
            return row.rule;
    }
    return DROPPED;
}

bool IsOf(const Finding &finding, const char *rule)
{
    return qstrcmp(RuleOf(finding), rule) == 0;
}

bool HasCode(const Finding &finding, const char *code)
{
    return qstrcmp(finding.code, code) == 0;
}

/// Returns a finding of the load in the form of the check. The texts that are lines of the load's report end with a
/// full stop, and some name the ID, which the outputs of the check put before the text.
Finding InForm(Finding finding)
{
    if (finding.text.endsWith(u'.') && !finding.text.endsWith(u".."_s))
        finding.text.chop(1);
    const QString ofId = u" of %1 "_s.arg(finding.id);
    if (const qsizetype at = finding.id.isEmpty() ? -1 : finding.text.lastIndexOf(ofId); at >= 0)
        finding.text.remove(at, ofId.size() - 1);
    return finding;
}

void AddAll(const std::vector<Finding> &findings, const char *rule, RuleReport &report)
{
    for (const Finding &finding : findings) {
        if (IsOf(finding, rule))
            report.Add(InForm(finding));
    }
}

/// Returns what is wrong with the encoding of the string file; empty if nothing is, or if the file can't be read.
QString WrongEncoding(const QString &path)
{
    const FileHandle file = OpenRead(path);
    uchar mark[2] = {};
    if (!file.IsOpen())
        return {};
    if (file.Read(mark, sizeof mark) != sizeof mark || mark[0] != 0xFF || mark[1] != 0xFE)
        return u"the file doesn't begin with the bytes FF FE, the mark of UTF-16 with the low byte first"_s;
    return file.Size() % 2 == 1 ? u"the file has an odd number of bytes, so it isn't UTF-16"_s : QString();
}

/// `path` is the absolute path of the string file.
void AddStringFileForm(const QString &path, const std::vector<Finding> &loaded, RuleReport &report)
{
    const QString wrong = WrongEncoding(path);
    if (!wrong.isEmpty())
        report.Add({.file = path, .line = 1, .text = wrong});
    for (const Finding &finding : loaded) {
        // In another encoding the first lines can't be read either.
        const bool isOfEncoding = HasCode(finding, "strings.header") || HasCode(finding, "strings.cut-short");
        if (IsOf(finding, FORM) && (wrong.isEmpty() || !isOfEncoding))
            report.Add(InForm(finding));
    }
}

/// Adds why the project can't be opened, whatever the settings say: without it the check would seem to have found
/// nothing.
void AddUnreadable(const QString &project, const std::vector<Finding> &loaded, const QStringList &explained,
                   std::vector<Finding> &findings)
{
    const auto add = [&](Finding finding) {
        finding.text = WithRelativePaths(finding.text, DirectoryOf(project));
        finding.code = UNREADABLE;
        finding.severity = Severity::Error;
        findings.push_back(std::move(finding));
    };
    bool isExplained = false;
    for (const Finding &finding : loaded) {
        if (IsOf(finding, UNREADABLE))
            add(InForm(finding));
        isExplained = isExplained || finding.severity == Severity::Error;
    }
    if (!findings.empty())
        return;
    QString text = u"the project can't be opened, so nothing else was checked"_s;
    if (!isExplained && !explained.isEmpty())
        text = explained.join(u"; "_s);
    add({.file = project, .text = text});
}

} // namespace

std::vector<Finding> CheckUnopened(Environment &env, const ProcessTables &tables, const QString &path,
                                   const CheckSettings &settings, const std::vector<Finding> &loaded,
                                   const QStringList &explained)
{
    std::vector<Finding> findings;
    AddUnreadable(path, loaded, explained, findings);
    std::vector<Finding> others = OpeningCheck(env, tables, path, nullptr).SilentReasons();
    others.insert(others.begin(), loaded.begin(), loaded.end());
    RuleReport report(settings, [&](Finding &&finding) { findings.push_back(std::move(finding)); });
    for (const Finding &finding : others) {
        report.Begin(*FindRule(QString::fromLatin1(RuleOf(finding))));
        if (!IsOf(finding, UNREADABLE) && !IsOf(finding, FORM))
            report.Add(InForm(finding));
    }
    report.Begin(*FindRule(QString::fromLatin1(FORM)));
    const ProjectPaths paths(path, env);
    AddStringFileForm(paths.Absolute(paths.StringPath()), loaded, report);
    return findings;
}

void IdConflict(const CheckInput &input, RuleReport &report)
{
    AddAll(input.loaded, CONFLICT, report);
}

void ElementDropped(const CheckInput &input, RuleReport &report)
{
    AddAll(input.loaded, DROPPED, report);
}

void ConflictMarkerLeft(const CheckInput &input, RuleReport &report)
{
    AddAll(input.facts->SilentReasons(input), MARKER, report);
}

void StringFileForm(const CheckInput &input, RuleReport &report)
{
    const ProjectPaths paths(input.document.PathName(), input.document.env);
    AddStringFileForm(paths.Absolute(paths.StringPath()), input.loaded, report);
}

void SettingsMissing(const CheckInput &input, RuleReport &report)
{
    AddAll(input.facts->SilentReasons(input), SETTINGS, report);
    AddAll(input.loaded, SETTINGS, report);
    const Environment &env = input.document.env;
    if (input.document.tables.resourceTypes.isEmpty())
        report.Add(
            {.file = ResolvePath(u"Morvanite.ini"_s, env.ProgramDir()),
             .text = u"there are no types of resources: the key Count in section Resource Type is missing or 0"_s});
}

void ResolutionUnlisted(const CheckInput &input, RuleReport &report)
{
    CResDoc &document = input.document;
    if (document.tables.resolutions.Count() == 0)
        return; // "settings-missing"
    AddAll(input.loaded, UNLISTED, report);
    const OpeningCheck opening(document.env, document.tables, document.PathName(), &document);
    for (const ScreenSize &screen : input.screens) {
        if (std::optional<Finding> unlisted = opening.UnlistedResolution(screen.width, screen.height))
            report.Add(std::move(*unlisted));
    }
}

bool IsLayoutFault(const Finding &finding)
{
    static constexpr const char *CODES[] = {"layout.element",   "layout.id-conflict", "layout.malformed",
                                            "layout.no-class",  "layout.no-id",       "layout.root",
                                            "layout.unreadable"};
    return std::any_of(std::begin(CODES), std::end(CODES), [&](const char *code) { return HasCode(finding, code); });
}

bool HasLeftOutResources(const std::vector<Finding> &loaded)
{
    return std::any_of(loaded.begin(), loaded.end(),
                       [](const Finding &finding) { return IsOf(finding, DROPPED) || IsOf(finding, UNLISTED); });
}

bool HasLeftSomethingOut(const std::vector<Finding> &loaded)
{
    return HasLeftOutResources(loaded) || std::any_of(loaded.begin(), loaded.end(), [](const Finding &finding) {
               return IsOf(finding, CONFLICT) || IsOf(finding, FORM);
           });
}
