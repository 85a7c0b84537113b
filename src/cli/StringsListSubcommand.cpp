// SPDX-License-Identifier: MIT
#include "JsonWriter.h"
#include "LanguageChoice.h"
#include "ResModel.h"
#include "Session.h"
#include "StringsSubcommands.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr qsizetype PIECE = 1 << 20; // bytes; more are printed in pieces

class StringsListSubcommand : public Subcommand<StringsListArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        const CResDoc *const document = session.OpenQuietly(AbsolutePath(project));
        if (!document)
            return EXIT_FAILED;
        const auto languages = ChosenLanguages(*document, wanted);
        if (!languages)
            return EXIT_WRONG_USE;
        if (json)
            PrintJson(session, *document, *languages);
        else
            PrintLines(session, *document, *languages);
        return session.StatusAfter(EXIT_FINE);
    }

private:
    struct Text
    {
        const KnownLanguage *language;
        QString text;
    };

    /// Calls `print` for each row with the texts that are to be listed, unless there are none.
    template <typename Print>
    void ForEachRow(const CResDoc &document, const std::vector<KnownLanguage> &languages, const Print &print) const
    {
        const CResFolder *strings = document.root.FindFolder(KIND_STRINGS, 2);
        if (!strings || strings->subfolders.empty())
            return;
        std::vector<Text> texts;
        for (CBaseRes *res : strings->subfolders.front()->resources) {
            auto &head = static_cast<CStringRes &>(*res);
            texts.clear();
            for (const KnownLanguage &language : languages) {
                const CStringRes *const cell = head.FindLanguage(language.number);
                if (!onlyMissing || !cell || !cell->HasText())
                    texts.push_back({&language, cell ? cell->Text().toString() : QString()});
            }
            if (!texts.empty())
                print(head, texts);
        }
    }

    void PrintLines(Session &session, const CResDoc &document, const std::vector<KnownLanguage> &languages) const
    {
        ForEachRow(document, languages, [&](const CStringRes &head, const std::vector<Text> &texts) {
            const QString id = document.env.NarrowToWide(head.Id()->name);
            for (const Text &text : texts)
                session.report.Print(QStringList{id, text.language->name, text.text}.join(u'\t') + u'\n');
        });
    }

    void PrintJson(Session &session, const CResDoc &document, const std::vector<KnownLanguage> &languages) const
    {
        QByteArray bytes;
        JsonWriter out(bytes);
        out.BeginObject();
        out.Key("version");
        out.Number(1);
        out.Key("strings");
        out.BeginArray();
        ForEachRow(document, languages, [&](const CStringRes &head, const std::vector<Text> &texts) {
            out.BeginObject();
            out.Key("id");
            out.String(document.env.NarrowToWide(head.Id()->name));
            out.Key("type");
            out.String(head.Id()->push ? u"Push" : u"Normal");
            out.Key("description");
            out.String(head.Text());
            out.Key("texts");
            out.BeginArray();
            for (const Text &text : texts) {
                out.BeginObject();
                out.Key("language");
                out.Number(text.language->number);
                out.Key("name");
                out.String(text.language->name);
                out.Key("text");
                out.String(text.text);
                out.EndObject();
            }
            out.EndArray();
            out.EndObject();
            if (bytes.size() > PIECE) {
                session.report.WriteBytes(bytes);
                bytes.clear();
            }
        });
        out.EndArray();
        out.EndObject();
        session.report.WriteBytes(bytes + '\n');
    }
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(StringsListArguments &&arguments)
{
    return std::make_unique<StringsListSubcommand>(std::move(arguments));
}

std::optional<std::vector<KnownLanguage>> ChosenLanguages(const CResModel &model,
                                                          const std::vector<std::string> &wanted)
{
    std::vector<KnownLanguage> all = ProjectLanguages(model);
    if (wanted.empty())
        return all;
    std::vector<KnownLanguage> chosen;
    for (const std::string &typed : wanted) {
        const KnownLanguage *const language = FindLanguage(all, QString::fromStdString(typed));
        if (!language) {
            Complain(WhyNotInProject(QString::fromStdString(typed), all));
            return std::nullopt;
        }
        chosen.push_back(*language);
    }
    return chosen;
}

QString WhyNotInProject(const QString &typed, const std::vector<KnownLanguage> &languages)
{
    QStringList names;
    for (const KnownLanguage &language : languages)
        names.append(u"\"%1\""_s.arg(language.name));
    return u"--language %1: the project has no such language; it has %2; \"morvanite-cli strings add-language\" adds one"_s
        .arg(typed, names.isEmpty() ? u"none"_s : names.join(u", "_s));
}
