// SPDX-License-Identifier: MIT
#include "LanguageChoice.h"
#include "ProjectEdit.h"
#include "StringsSubcommands.h"
#include "TextAssignment.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

class StringsSetSubcommand : public Subcommand<StringsSetArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        if (languages.size() != texts.size()) {
            Complain(u"strings set: there are %1 texts for %2 languages; write one text for each --language"_s
                         .arg(texts.size())
                         .arg(languages.size()));
            return EXIT_WRONG_USE;
        }
        for (const std::string &text : texts) {
            if (text.find_first_of("\t\r\n") != std::string::npos) {
                Complain(u"a string can't contain a tab or a line break; write \\n for the device, if it knows that"_s);
                return EXIT_WRONG_USE;
            }
        }
        ProjectEdit edit(session, AbsolutePath(project), dryRun);
        CResDoc *const document = edit.Open();
        if (!document)
            return EXIT_FAILED;
        std::vector<NewText> newTexts;
        QStringList names;
        if (!FindLanguages(*document, newTexts, names))
            return EXIT_WRONG_USE;
        const AssignedTexts result = AssignTexts(*document, QString::fromStdString(id), newTexts);
        if (result.code != EDIT_DONE) {
            Complain(result.id + u": "_s + StringEditMessage(result.code) +
                     (result.code == EDIT_INVALID_ID
                          ? u" An ID has 1 to 64 letters, digits and \"_\", and doesn't begin with a digit."_s
                          : QString()));
            return EXIT_FAILED;
        }
        const bool isSame =
            !result.isNew && std::equal(newTexts.begin(), newTexts.end(), result.before.begin(),
                                        [](const NewText &text, const QString &before) { return text.text == before; });
        const int status = isSame ? session.StatusAfter(EXIT_FINE) : edit.Save();
        for (size_t i = 0; status == EXIT_FINE && i < newTexts.size(); ++i)
            session.report.Tell(LineOf(result, newTexts[i].text, names[qsizetype(i)], result.before[qsizetype(i)]),
                                dryRun);
        return status;
    }

private:
    [[nodiscard]] bool FindLanguages(const CResDoc &document, std::vector<NewText> &newTexts, QStringList &names) const
    {
        const std::vector<KnownLanguage> known = ProjectLanguages(document);
        for (size_t i = 0; i < languages.size(); ++i) {
            const QString typed = QString::fromStdString(languages[i]);
            const KnownLanguage *const language = FindLanguage(known, typed);
            if (!language) {
                Complain(WhyNotInProject(typed, known));
                return false;
            }
            if (std::any_of(newTexts.begin(), newTexts.end(),
                            [&](const NewText &other) { return other.language == language->number; })) {
                Complain(u"--language %1: there is a text of this language already"_s.arg(typed));
                return false;
            }
            newTexts.push_back({language->number, QString::fromStdString(texts[i])});
            names.append(language->name);
        }
        return true;
    }

    /// The words are those of the dry run of an import.
    static QString LineOf(const AssignedTexts &result, const QString &text, const QString &language,
                          const QString &before)
    {
        const bool isReplaced = !before.isEmpty() && before != text;
        const QString word = result.isNew     ? u"new"_s
                             : before == text ? u"same"_s
                             : isReplaced     ? u"replaced"_s
                                              : u"filled"_s;
        return QStringList{word, result.id, language, text}.join(u'\t') + (isReplaced ? u'\t' + before : QString()) +
               u'\n';
    }
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(StringsSetArguments &&arguments)
{
    return std::make_unique<StringsSetSubcommand>(std::move(arguments));
}
