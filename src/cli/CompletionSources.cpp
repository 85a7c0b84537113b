// SPDX-License-Identifier: MIT
#include "CompletionSources.h"

#include "Explanations.h"
#include "KeptFiles.h"
#include "LanguageTable.h"
#include "Rules.h"
#include "Session.h"

namespace
{

using Values = CommandLineCompletion::Values;

std::string Line(const std::string &candidate, const std::string &description)
{
    return candidate + (description.empty() ? "" : "\t" + description) + '\n';
}

std::string ScreenSizes(Session &session, const Values &)
{
    std::string lines;
    session.tables.LoadOnce(session.env);
    const CResoTable &sizes = session.tables.resolutions;
    for (int i = 0; i < sizes.Count(); ++i)
        lines += Line(std::to_string(sizes.At(i).width) + 'x' + std::to_string(sizes.At(i).height), {});
    return lines;
}

std::string KeptEntries(Session &, const Values &values)
{
    std::string lines;
    const auto project = values.find("PROJECT");
    if (project != values.end()) {
        for (const KeptFiles::Entry &entry : KeptFiles(AbsolutePath(project->second)).Entries())
            lines += Line(std::to_string(entry.number), entry.time.toString(Qt::ISODate).toStdString());
    }
    return lines;
}

std::string RuleIds(Session &, const Values &)
{
    std::string lines;
    for (const Rule &rule : AllRules())
        lines += Line(rule.id, rule.summary);
    return lines;
}

std::string Codes(Session &, const Values &)
{
    std::string lines;
    for (const Explanation &one : AllExplanations())
        lines += Line(one.code.toStdString(), one.when.toStdString());
    return lines;
}

std::string LanguageNames(Session &session, const Values &)
{
    std::string lines;
    for (const KnownLanguage &known : KnownLanguages(session.env))
        lines += Line(known.name.toStdString(), known.code.toStdString());
    return lines;
}

/// The kinds of values whose candidates depend on the settings or the project.
constexpr struct
{
    std::string_view kind;
    std::string (*list)(Session &session, const Values &values);
} SOURCES[] = {
    {"resolution", ScreenSizes}, {"kept-entry", KeptEntries}, {"rule", RuleIds}, {"code", Codes},
    {"language", LanguageNames},
};

} // namespace

std::string CandidatesOf(std::string_view kind, const Values &values)
{
    std::string lines;
    for (const auto &source : SOURCES) {
        if (kind != source.kind)
            continue;
        const auto settings = values.find("settings");
        Session session(QString(), AbsolutePath(settings == values.end() ? std::string() : settings->second));
        lines += source.list(session, values);
    }
    return lines;
}
