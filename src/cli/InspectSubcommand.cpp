// SPDX-License-Identifier: MIT
#include "IdSources.h"
#include "Inspect.h"
#include "PackDiffPrint.h"
#include "PackSelection.h"
#include "Session.h"
#include "SizeListing.h"
#include "Subcommands.h"
#include "TerminalText.h"

namespace
{

/// A packed file that is read, with the names of its IDs.
struct InspectedFile
{
    InspectResult result;
    PackNames names;
    std::optional<PackSelection> selection;
};

class InspectSubcommand : public Subcommand<InspectArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        if (diff && fileB.empty()) {
            Complain(QStringLiteral("--diff needs two files, FILE and FILE_B"));
            return EXIT_WRONG_USE;
        }
        if (idFile.empty() && !idFileB.empty()) {
            Complain(QStringLiteral("--ids-b needs --ids, the names of the IDs of FILE"));
            return EXIT_WRONG_USE;
        }
        // Made absolute before a project is opened, which changes the current folder.
        const QString path = AbsolutePath(file);
        const QString pathB = AbsolutePath(fileB);
        const QString idPath = AbsolutePath(idFile);
        const QString idPathB = AbsolutePath(idFileB);
        const QString extractTo = AbsolutePath(folder);
        InspectedFile a;
        InspectedFile b;
        if (!ReadNames(session, "--ids", idPath, a.names))
            return EXIT_WRONG_USE;
        b.names = a.names;
        if (!ReadNames(session, "--ids-b", idPathB, b.names))
            return EXIT_WRONG_USE;
        if (!Select(a) || !Select(b))
            return EXIT_WRONG_USE;
        if (!Read(path, QString::fromStdString(file), a) || (diff && !Read(pathB, QString::fromStdString(fileB), b)))
            return EXIT_FAILED;
        const int status = diff ? Compare(session, a, b) : size ? PrintSizes(session, a) : Print(session, a, extractTo);
        return session.StatusAfter(IsWhole(file, a) && IsWhole(fileB, b) ? status : int(EXIT_FAILED));
    }

private:
    static bool ReadNames(Session &session, const char *option, const QString &path, PackNames &names)
    {
        if (path.isEmpty())
            return true;
        std::optional<PackNames> read = NamesOfIds(session, option, path);
        if (read)
            names = std::move(*read);
        return read.has_value();
    }

    /// Returns false, with a message, if --only makes no sense.
    [[nodiscard]] bool Select(InspectedFile &inspected) const
    {
        if (only.empty())
            return true;
        const QString word = QString::fromStdString(only);
        inspected.selection = PackSelection::Parse(word, inspected.names);
        if (!inspected.selection)
            Complain(QStringLiteral("--only %1: a language is \"language:\" and its number").arg(word));
        return inspected.selection.has_value();
    }

    static bool Read(const QString &path, const QString &shown, InspectedFile &inspected)
    {
        const QString wrong = InspectFile(path, inspected.result);
        if (!wrong.isEmpty())
            Complain(shown + QStringLiteral(": ") + wrong);
        return wrong.isEmpty();
    }

    /// Returns false, with a message, if the file couldn't be read to its end.
    static bool IsWhole(const std::string &shown, const InspectedFile &inspected)
    {
        const QString wrong = WhyCutShort(inspected.result);
        if (!wrong.isEmpty())
            Complain(QString::fromStdString(shown) + QStringLiteral(": ") + wrong);
        return wrong.isEmpty();
    }

    /// `inspected` is the file or files, and `place` the word for them.
    [[nodiscard]] int NothingSelected(const QString &inspected, QStringView place = u"it") const
    {
        Complain(QStringLiteral("%1: there is no item, entry or language \"%2\" in %3")
                     .arg(inspected, QString::fromStdString(only), place));
        return EXIT_FAILED;
    }

    /// Writes a listing, cut to the terminal's width if there is a terminal.
    static void WriteListing(Session &session, const QByteArray &text)
    {
        const int columns = TerminalColumns();
        session.report.WriteBytes(columns > 0 ? CutLines(text, columns) : text);
    }

    int Print(Session &session, InspectedFile &inspected, const QString &extractTo) const
    {
        InspectResult &result = inspected.result;
        if (inspected.selection && !inspected.selection->KeepOnly(session.env, result))
            return NothingSelected(QString::fromStdString(file));
        std::vector<QByteArray> written;
        if (!extractTo.isEmpty()) {
            const QString wrong = ExtractAll(session.env, result, extractTo, written);
            if (!wrong.isEmpty()) {
                if (WhyCutShort(result).isEmpty()) // otherwise the caller says so
                    Complain(QString::fromStdString(file) + QStringLiteral(": ") + wrong);
                return EXIT_FAILED;
            }
        }
        if (json)
            session.report.WriteBytes(InspectJson(session.env, result, inspected.names));
        else if (extractTo.isEmpty())
            WriteListing(session, InspectText(session.env, result, inspected.names));
        else
            for (const QByteArray &name : written)
                session.report.Write(QString::fromStdString(folder) + u'/' + QString::fromUtf8(name) + u'\n');
        return EXIT_FINE;
    }

    int PrintSizes(Session &session, const InspectedFile &inspected) const
    {
        const std::vector<PackedPart> parts = PartsOf(session.env, inspected.result);
        const PackSelection *const selection = inspected.selection ? &*inspected.selection : nullptr;
        const std::vector<SizedPart> sizes = SizesOf(parts, inspected.names, selection);
        if (sizes.empty())
            return NothingSelected(QString::fromStdString(file));
        const quint64 payload = inspected.result.payloadSize;
        if (json)
            session.report.WriteBytes(SizesJson(sizes, payload, inspected.names));
        else
            WriteListing(session, SizesText(sizes, payload));
        return EXIT_FINE;
    }

    int Compare(Session &session, const InspectedFile &a, const InspectedFile &b) const
    {
        const std::vector<PackedPart> before = PartsOf(session.env, a.result);
        const std::vector<PackedPart> after = PartsOf(session.env, b.result);
        const std::vector<DiffRow> rows = ComparePacks(before, a.names, after, b.names);
        ComparedPacks compared{before, a.names, after, b.names, rows};
        SelectedDiff selected;
        if (a.selection) {
            selected = SelectRows(rows, before, *a.selection, after, *b.selection);
            if (selected.isEmpty)
                return NothingSelected(QString::fromStdString(file + " and " + fileB), u"them");
            compared.selected = &selected;
        }
        if (json)
            session.report.WriteBytes(DiffJson(compared));
        else
            WriteListing(session, DiffText(compared));
        return (a.selection ? selected.rows : rows).empty() ? EXIT_FINE : EXIT_FAILED;
    }
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(InspectArguments &&arguments)
{
    return std::make_unique<InspectSubcommand>(std::move(arguments));
}
