// SPDX-License-Identifier: MIT
#include "CResDoc.h"
#include "CheckInput.h"
#include "ProjectContext.h"
#include "ProjectTextRules.h"
#include "RuleReport.h"
#include "TextContext.h"
#include "TextHash.h"

using namespace Qt::StringLiterals;

void LanguageUnknown(const CheckInput &input, RuleReport &report)
{
    constexpr int LINE_OF_LANGUAGES = 2;
    const ProjectPaths paths(input.document.PathName(), input.document.env);
    const Environment &env = input.document.env;
    const bool hasTable = !env.ReadLanguageTable().isEmpty();
    for (const CheckedLanguage &language : input.texts.Languages()) {
        const int number = env.LanguageNumber(language.name);
        if (number == language.number)
            continue;
        Finding finding;
        finding.file = paths.Absolute(paths.StringPath());
        finding.line = LINE_OF_LANGUAGES;
        finding.basis = HashOf(language.name, HashOf(QString::number(number)));
        if (!hasTable) {
            finding.text = u"tuvik.ini beside the program has no languages, or doesn't exist"_s;
            return report.Add(std::move(finding));
        }
        finding.language = language.number;
        finding.text = number < 0 ? u"tuvik.ini doesn't have this language"_s
                                  : u"the language has the number %1 here and the number %2 in tuvik.ini"_s.arg(
                                        QString::number(language.number), QString::number(number));
        report.Add(std::move(finding));
    }
}
