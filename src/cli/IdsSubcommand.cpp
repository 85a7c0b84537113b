// SPDX-License-Identifier: MIT
#include "IdComparison.h"
#include "IdNumbers.h"
#include "IdSources.h"
#include "JsonWriter.h"
#include "ProjectLayouts.h"
#include "Session.h"
#include "Subcommands.h"

#include <charconv>

namespace
{

class IdsSubcommand : public Subcommand<IdsArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        const QString path = AbsolutePath(project);
        IdNumbers old;
        // Read before opening changes the current folder.
        if (!oldHeader.empty() && !ReadHeaderOfIds("--against", AbsolutePath(oldHeader), old))
            return EXIT_WRONG_USE;
        const std::optional<NumberedProject> numbered = OpenNumbered(session, path, QString::fromStdString(project));
        if (!numbered)
            return EXIT_FAILED;
        const Environment &env = numbered->document->env;
        int status = EXIT_FINE;
        if (oldHeader.empty()) {
            session.report.WriteBytes(json ? ListJson(env, numbered->sorted) : ListText(env, numbered->sorted));
        } else {
            const IdComparison compared = CompareIds(old, numbered->sorted);
            session.report.WriteBytes(json ? ComparisonJson(env, compared) : ComparisonText(env, compared));
            status = compared.IsSame() ? EXIT_FINE : EXIT_FAILED;
        }
        const QStringList leftOut = LeftOutLayouts(*numbered->document);
        for (const QString &reason : leftOut)
            Complain(reason + QStringLiteral("; the IDs are numbered without it"));
        return session.StatusAfter(leftOut.isEmpty() ? status : EXIT_FAILED);
    }

private:
    /// Calls `work` with each name once, and its number.
    static void ForEachName(const Environment &env, const std::vector<IDRecord *> &sorted, const auto &work)
    {
        const IDRecord *last = nullptr;
        for (const IDRecord *record : sorted) {
            if (!last || last->name != record->name)
                work(env.Shown(record->name), record->value);
            last = record;
        }
    }

    static QByteArray ListText(const Environment &env, const std::vector<IDRecord *> &sorted)
    {
        constexpr qsizetype USUAL_LINE = 32; // bytes
        QByteArray bytes;
        bytes.reserve(qsizetype(sorted.size()) * USUAL_LINE);
        ForEachName(env, sorted, [&bytes](const QByteArray &name, quint32 number) {
            char digits[16];
            bytes.append(name).append('\t');
            bytes.append(digits, std::to_chars(digits, std::end(digits), number).ptr - digits);
            bytes.append('\n');
        });
        return bytes;
    }

    static QByteArray ListJson(const Environment &env, const std::vector<IDRecord *> &sorted)
    {
        QByteArray bytes;
        JsonWriter writer(bytes);
        BeginList(writer, "ids");
        ForEachName(env, sorted, [&writer](const QByteArray &name, quint32 number) {
            WriteId(writer, name, {{"number", number}});
        });
        writer.EndArray();
        writer.EndObject();
        return bytes + '\n';
    }

    static QByteArray ComparisonText(const Environment &env, const IdComparison &compared)
    {
        QByteArray bytes;
        for (const IdComparison::Old &id : compared.changed)
            bytes += "changed\t" + env.Shown(id.name) + '\t' + QByteArray::number(id.before) + '\t' +
                     QByteArray::number(*id.now) + '\n';
        for (const IdComparison::Old &id : compared.gone)
            bytes += "gone\t" + env.Shown(id.name) + '\t' + QByteArray::number(id.before) + '\n';
        for (const IdComparison::New &id : compared.added) {
            bytes += "new\t" + env.Shown(id.name) + '\t' + QByteArray::number(id.number);
            bytes += id.moved > 0 ? "\tmoved " + QByteArray::number(id.moved) + '\n' : QByteArray("\n");
        }
        return bytes;
    }

    static QByteArray ComparisonJson(const Environment &env, const IdComparison &compared)
    {
        QByteArray bytes;
        JsonWriter writer(bytes);
        BeginList(writer, "changed");
        for (const IdComparison::Old &id : compared.changed)
            WriteId(writer, env.Shown(id.name), {{"before", id.before}, {"now", *id.now}});
        writer.EndArray();
        writer.Key("gone");
        writer.BeginArray();
        for (const IdComparison::Old &id : compared.gone)
            WriteId(writer, env.Shown(id.name), {{"before", id.before}});
        writer.EndArray();
        writer.Key("new");
        writer.BeginArray();
        for (const IdComparison::New &id : compared.added)
            WriteId(writer, env.Shown(id.name), {{"number", id.number}, {"moved", id.moved}});
        writer.EndArray();
        writer.EndObject();
        return bytes + '\n';
    }

    static void BeginList(JsonWriter &writer, const char *key)
    {
        writer.BeginObject();
        writer.Key("version");
        writer.Number(1);
        writer.Key(key);
        writer.BeginArray();
    }

    static void WriteId(JsonWriter &writer, const QByteArray &name,
                        std::initializer_list<std::pair<const char *, qint64>> numbers)
    {
        writer.BeginObject();
        writer.Key("id");
        writer.String(QString::fromUtf8(name));
        for (const auto &[key, number] : numbers) {
            writer.Key(key);
            writer.Number(number);
        }
        writer.EndObject();
    }
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(IdsArguments &&arguments)
{
    return std::make_unique<IdsSubcommand>(std::move(arguments));
}
