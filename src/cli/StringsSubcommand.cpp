// SPDX-License-Identifier: MIT
#include "CodePoints.h"
#include "JsonWriter.h"
#include "LanguageTable.h"
#include "OpeningReport.h"
#include "ProjectSave.h"
#include "Session.h"
#include "SpreadsheetImport.h"
#include "StringStats.h"
#include "Subcommands.h"

#include <map>
#include <optional>
#include <set>

namespace
{

/// Escapes a text to fit on one line and in one field.
QString OnOneLine(QString text)
{
    return text.replace(u'\\', QStringLiteral("\\\\"))
        .replace(u'\t', QStringLiteral("\\t"))
        .replace(u'\n', QStringLiteral("\\n"))
        .replace(u'\r', QStringLiteral("\\r"));
}

/// Prints what would happen to each text of the sheet.
class FateList : public IImportWatch
{
public:
    explicit FateList(StandardOutput &output) : out(output) {}

    void RowPlanned(const ImportPlan &plan, size_t index) override
    {
        static constexpr const char *WORDS[] = {"filled", "new", "same", "kept", "replaced", "nowhere", "refused"};
        for (const ImportPlan::Cell &cell : plan.Cells(index)) {
            QString line = QString::fromLatin1(WORDS[int(cell.fate)]) + u'\t' + CellName(cell.column, cell.row + 1) +
                           u'\t' + OnOneLine(cell.inSource);
            if (cell.fate == CellFate::Kept || cell.fate == CellFate::Replaced)
                line += u'\t' + OnOneLine(cell.inTable);
            out.Write(line + QStringLiteral("\r\n"));
        }
    }

private:
    StandardOutput &out;
};

class StringsSubcommand : public ISubcommand
{
public:
    CLI::App *Add(CLI::App &app) override
    {
        CLI::App *subcommand = app.add_subcommand("strings", "Export, import or count the strings of a project");
        subcommand->require_subcommand(1);
        exporting = subcommand->add_subcommand("export", "Write the string table to a workbook (.xls, .xlsx or .csv)");
        importing = subcommand->add_subcommand("import", "Fill the string table from a workbook and save the project");
        stats = subcommand->add_subcommand("stats", "Count the texts of each language");
        codePoints = subcommand->add_subcommand("codepoints", "List the characters that the texts use");
        for (CLI::App *sub : {exporting, importing, stats, codePoints})
            AddProject(*sub, project);
        for (CLI::App *sub : {exporting, importing})
            sub->add_option("FILE", file, "The workbook; its extension selects the format")->type_name("")->required();
        importing->add_flag("--dry-run", dryRun, "Change nothing; show what would happen to each text");
        importing->add_flag("--strict", strict, STRICT_HELP);
        stats->add_flag("--json", json, JSON_HELP);
        codePoints
            ->add_option("--language", wantedLanguages,
                         "Only this language, by name, number or code; can be repeated (default: all)")
            ->type_name("LANGUAGE")
            ->allow_extra_args(false);
        AddChoice(*codePoints, "--format", format, "list|ranges|c",
                  "The form of the list: one character a line, ranges, or a table in C (default: list)");
        return subcommand;
    }

    int Run(Session &session) override
    {
        const QString workbook = AbsolutePath(file); // opening a project changes the current folder
        const QString path = AbsolutePath(project);
        if (*importing && !dryRun && !session.LockProject(path))
            return EXIT_FAILED;
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
        return *exporting ? Export(session, *document, workbook) : Import(session, *document, workbook);
    }

private:
    static int Finish(Session &session, const SpreadsheetResult &result)
    {
        if (!result.reason.isEmpty())
            Complain(result.reason);
        return session.StatusAfter(result.code == 0 && session.env.ErrorCount == 0 ? EXIT_FINE : EXIT_FAILED);
    }

    static int Export(Session &session, CResDoc &document, const QString &workbook)
    {
        return Finish(session, ExportSpreadsheet(document, workbook));
    }

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

    int Import(Session &session, CResDoc &document, const QString &workbook) const
    {
        if (session.env.ErrorCount > 0 && !dryRun) {
            Complain(QStringLiteral("the project has the errors above, and a save would drop the elements that they "
                                    "name, so nothing is imported; fix the errors first"));
            return EXIT_FAILED;
        }
        FateList fates(session.report);
        std::optional<SpreadsheetImport> import(std::in_place, document, workbook);
        const SpreadsheetResult result = import->Read(dryRun ? &fates : nullptr);
        const int status = Finish(session, result);
        if (result.code != 0 || !TakesAll(import->Plan()))
            return EXIT_FAILED;
        if (dryRun)
            return status;
        if (document.TakeInChanges() != CResDoc::Outside::None) {
            Complain(document.PathName() +
                     QStringLiteral(": its files changed during the import, so nothing is saved; import again"));
            return EXIT_FAILED;
        }
        import->Plan().Apply();
        import.reset(); // frees the workbook's texts, which take as much memory as the save
        (void)document.DoFileSave();
        const bool saved = document.lastSave.write == 0;
        if (!saved)
            Complain(document.PathName() + QStringLiteral(": failed to save the project with the imported texts"));
        else if (document.lastSave.generate != 0 || session.env.FailureCount > 0)
            Complain(document.PathName() +
                     QStringLiteral(": the imported texts are saved, but not all of the headers"));
        return session.StatusAfter(saved && document.lastSave.generate == 0 ? status : int(EXIT_FAILED));
    }

    /// Returns false, with a message, if the string file can't hold the texts to import.
    static bool TakesAll(const ImportPlan &plan)
    {
        constexpr qsizetype SHOWN = 10;
        const QStringList &cells = plan.Refused();
        if (cells.isEmpty())
            return true;
        Complain(QStringLiteral("a string can't contain a tab or a line break, so nothing is saved; fix %1%2")
                     .arg(cells.first(qMin(cells.size(), SHOWN)).join(QStringLiteral(", ")),
                          cells.size() > SHOWN ? QStringLiteral(" and %1 more").arg(cells.size() - SHOWN) : QString()));
        return false;
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
    std::string file;
    bool dryRun = false;
    bool json = false;
    bool strict = false;
    CLI::App *exporting = nullptr;
    CLI::App *importing = nullptr;
    CLI::App *codePoints = nullptr;
    std::vector<std::string> wantedLanguages;
    std::string format = "list";
    CLI::App *stats = nullptr;
};

} // namespace

std::unique_ptr<ISubcommand> MakeStringsSubcommand()
{
    return std::make_unique<StringsSubcommand>();
}
