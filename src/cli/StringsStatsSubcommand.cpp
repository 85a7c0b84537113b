// SPDX-License-Identifier: MIT
#include "JsonWriter.h"
#include "Session.h"
#include "StringStats.h"
#include "StringsSubcommands.h"

namespace
{

class StringsStatsSubcommand : public Subcommand<StringsStatsArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        const CResDoc *const document = session.OpenQuietly(AbsolutePath(project));
        return document ? PrintStats(session, *document) : int(EXIT_FAILED);
    }

private:
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
        session.report.Print(QStringLiteral("%1 strings\n\n   texts  missing  as first  language\n").arg(rows));
        for (const LanguageStats &language : languages) {
            const QString numbers =
                QStringLiteral("%1%2%3").arg(language.texts, 8).arg(language.missing, 9).arg(language.sameAsFirst, 10);
            session.report.Print(numbers + QStringLiteral("  ") + language.name +
                                 QStringLiteral(" (%1)\n").arg(language.number));
        }
        return session.StatusAfter(EXIT_FINE);
    }
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(StringsStatsArguments &&arguments)
{
    return std::make_unique<StringsStatsSubcommand>(std::move(arguments));
}
