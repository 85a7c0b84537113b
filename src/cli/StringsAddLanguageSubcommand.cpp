// SPDX-License-Identifier: MIT
#include "LanguageChoice.h"
#include "LanguageFolders.h"
#include "ProjectEdit.h"
#include "StringFileFormat.h"
#include "StringsSubcommands.h"

using namespace Qt::StringLiterals;

namespace
{

class StringsAddLanguageSubcommand : public Subcommand<StringsAddLanguageArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        ProjectEdit edit(session, AbsolutePath(project), dryRun);
        CResDoc *const document = edit.Open();
        if (!document)
            return EXIT_FAILED;
        const std::vector<KnownLanguage> known = KnownLanguages(document->env);
        QString lines;
        bool isChanged = false;
        for (const std::string &typed : languages) {
            const QString text = QString::fromStdString(typed);
            const KnownLanguage *const language = FindLanguage(known, text);
            if (!language || language->number == StringFileFormat::DESCRIPTION) {
                Complain(u"%1: %2"_s.arg(text, WhyLanguageUnknown(known, text)));
                return EXIT_WRONG_USE;
            }
            const std::vector<KnownLanguage> own = ProjectLanguages(*document);
            const bool isThere = FindLanguage(own, QString::number(language->number)) != nullptr;
            LanguageFolders folders(*document);
            folders.Ensure(StringFileFormat::DESCRIPTION, {}); // it must be the first folder
            folders.Ensure(language->number, language->name);
            isChanged = isChanged || !isThere;
            lines += u"%1\t%2\t%3\n"_s.arg(isThere ? u"same"_s : u"new"_s, language->name).arg(language->number);
        }
        const int status = isChanged ? edit.Save() : session.StatusAfter(EXIT_FINE);
        if (status == EXIT_FINE)
            session.report.Tell(lines, dryRun);
        return status;
    }
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(StringsAddLanguageArguments &&arguments)
{
    return std::make_unique<StringsAddLanguageSubcommand>(std::move(arguments));
}
