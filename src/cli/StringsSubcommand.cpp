// SPDX-License-Identifier: MIT
#include "CodePoints.h"
#include "JsonWriter.h"
#include "LanguageTable.h"
#include "OpeningReport.h"
#include "PrintStringFile.h"
#include "ProjectSave.h"
#include "Session.h"
#include "StringStats.h"
#include "StringsExport.h"
#include "StringsImport.h"
#include "StringsSubcommands.h"

#include <map>
#include <optional>
#include <set>

namespace
{

class StringsSubcommand : public ISubcommand
{
public:
    CLI::App *Add(CLI::App &app) override
    {
        CLI::App *subcommand =
            app.add_subcommand("strings", "List, set, count, export or import the strings of a project");
        subcommand->require_subcommand(1);
        exporting = exporter.Add(*subcommand, project);
        importing = importer.Add(*subcommand, project);
        stats = subcommand->add_subcommand("stats", "Count the texts of each language");
        codePoints = subcommand->add_subcommand("codepoints", "List the characters that the texts use");
        cat = subcommand->add_subcommand("cat", "Print a string file as UTF-8, for git");
        cat->add_option("FILE", file, "The string file")->type_name("")->required();
        for (CLI::App *sub : {stats, codePoints})
            AddProject(*sub, project);
        stats->add_flag("--json", json, JSON_HELP);
        codePoints
            ->add_option("--language", wantedLanguages,
                         "Only this language, by name, number or code; can be repeated (default: all)")
            ->type_name("LANGUAGE")
            ->allow_extra_args(false);
        AddChoice(*codePoints, "--format", format, "list|ranges|c",
                  "The form of the list: one character a line, ranges, or a table in C (default: list)");
        parts.push_back(MakeStringsListSubcommand());
        parts.push_back(MakeStringsSetSubcommand());
        parts.push_back(MakeStringsAddLanguageSubcommand());
        for (const auto &part : parts)
            part->Add(*subcommand)->callback([this, &part] { chosen = part.get(); });
        return subcommand;
    }

    int Run(Session &session) override
    {
        if (*cat)
            return PrintStringFile(session, AbsolutePath(file));
        if (chosen)
            return chosen->Run(session);
        const QString path = AbsolutePath(project);
        exporter.FixPaths();
        if (*importing && !importer.FixPaths())
            return EXIT_WRONG_USE;
        if (*importing && !importer.ChangesNothing() && !session.LockProject(path))
            return EXIT_FAILED;
        const bool strict = *importing && importer.IsStrict();
        if (strict && HasInterruptedSave(session.env, path))
            return EXIT_FAILED;
        CResDoc *document = session.OpenQuietly(path);
        if (!document || (strict && !TellOfOpening(session, document->PathName(), document, true)))
            return EXIT_FAILED;
        session.handler.idleOutput = [&session](QStringView text) { session.report.Write(text); };
        if (*stats)
            return PrintStats(session, *document);
        if (*codePoints)
            return PrintCodePoints(session, *document);
        return *exporting ? exporter.Run(session, *document) : importer.Run(session, *document);
    }

private:
    int PrintCodePoints(Session &session, const CResDoc &document) const
    {
        CodePoints points;
        std::set<std::string> unknown(wantedLanguages.begin(), wantedLanguages.end());
        int rows = 0;
        std::map<qint32, std::string> codes;
        for (const KnownLanguage &known : KnownLanguages(document.env))
            codes[known.number] = known.code.toStdString();
        for (const LanguageStats &language : StringStats(document, rows)) {
            const size_t named = unknown.erase(language.name.toStdString()) +
                                 unknown.erase(std::to_string(language.number)) + unknown.erase(codes[language.number]);
            if (named > 0 || wantedLanguages.empty())
                points.Add(CodePointsOf(document, language.number));
        }
        for (const std::string &language : unknown)
            Complain(QStringLiteral("--language %1: the project has no such language")
                         .arg(QString::fromStdString(language)));
        if (!unknown.empty())
            return EXIT_WRONG_USE;
        const CodePointFormat form = format == "c"        ? CodePointFormat::C
                                     : format == "ranges" ? CodePointFormat::Ranges
                                                          : CodePointFormat::List;
        session.report.WriteBytes(CodePointsText(points, form));
        return session.StatusAfter(EXIT_FINE);
    }

    static QByteArray StatsJson(int rows, const std::vector<LanguageStats> &languages)
    {
        QByteArray bytes;
        JsonWriter writer(bytes);
        const auto number = [&writer](const char *key, qint64 value) {
            writer.Key(key);
            writer.Number(value);
        };
        writer.BeginObject();
        number("version", 1);
        number("rows", rows);
        writer.Key("languages");
        writer.BeginArray();
        for (const LanguageStats &language : languages) {
            writer.BeginObject();
            number("language", language.number);
            writer.Key("name");
            writer.String(language.name);
            number("texts", language.texts);
            number("missing", language.missing);
            number("same_as_first", language.sameAsFirst);
            writer.EndObject();
        }
        writer.EndArray();
        writer.EndObject();
        return bytes + '\n';
    }

    int PrintStats(Session &session, const CResDoc &document) const
    {
        int rows = 0;
        const std::vector<LanguageStats> languages = StringStats(document, rows);
        if (json) {
            session.report.WriteBytes(StatsJson(rows, languages));
            return session.StatusAfter(EXIT_FINE);
        }
        session.report.Write(QStringLiteral("%1 strings\n\n   texts  missing  as first  language\n").arg(rows));
        for (const LanguageStats &language : languages) {
            const QString numbers =
                QStringLiteral("%1%2%3").arg(language.texts, 8).arg(language.missing, 9).arg(language.sameAsFirst, 10);
            session.report.Write(numbers + QStringLiteral("  ") + language.name +
                                 QStringLiteral(" (%1)\n").arg(language.number));
        }
        return session.StatusAfter(EXIT_FINE);
    }

    std::string project;
    bool json = false;
    StringsExport exporter;
    StringsImport importer;
    CLI::App *exporting = nullptr;
    CLI::App *importing = nullptr;
    CLI::App *codePoints = nullptr;
    std::vector<std::string> wantedLanguages;
    std::string format = "list";
    CLI::App *stats = nullptr;
    CLI::App *cat = nullptr;
    std::string file; // of `cat`
    std::vector<std::unique_ptr<ISubcommand>> parts;
    ISubcommand *chosen = nullptr; // of the parts
};

} // namespace

std::unique_ptr<ISubcommand> MakeStringsSubcommand()
{
    return std::make_unique<StringsSubcommand>();
}
