// SPDX-License-Identifier: MIT
#include "FileFault.h"
#include "HostFiles.h"
#include "Merge.h"
#include "Session.h"
#include "Subcommands.h"

namespace
{

class MergeSubcommand : public Subcommand<MergeArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        std::array<QByteArray, MERGE_SIDES> files;
        for (size_t side = BASE; side < MERGE_SIDES; ++side) {
            const QString file = AbsolutePath(paths[side]);
            if (const int error = ReadFile(file, files[side]))
                return Refuse(WhyNotRead(file, error));
        }
        const QString shown = QString::fromStdString(name.empty() ? paths[OURS] : name) + QStringLiteral(": ");
        const MergeResult result =
            MergeFiles(session.env, files, conflicts == "base" ? OnConflict::KeepBase : OnConflict::Mark);
        const QString ours = AbsolutePath(paths[OURS]);
        const bool isMerged = result.refusal.isEmpty();
        if (!isMerged && result.bytes.isEmpty())
            return Refuse(shown + QStringLiteral("not merged: ") + result.refusal);
        if (result.bytes != files[OURS]) {
            if (const int error = WriteFileAtomically(ours, result.bytes))
                return Refuse(WhyNotWritten(ours, error));
        }
        if (!isMerged) {
            Complain(shown + QStringLiteral("not merged: ") + result.refusal +
                     QStringLiteral("; the file has both versions, with conflict markers around what differs"));
            return EXIT_FAILED;
        }
        for (const QString &conflict : result.conflicts.first(qMin(result.conflicts.size(), MOST_SHOWN)))
            Complain(shown + QStringLiteral("conflict in ") + conflict);
        if (result.conflicts.size() > MOST_SHOWN)
            Complain(shown + QStringLiteral("%1 more conflicts").arg(result.conflicts.size() - MOST_SHOWN));
        return result.conflicts.isEmpty() ? EXIT_FINE : EXIT_FAILED;
    }

private:
    static constexpr qsizetype MOST_SHOWN = 20;

    static int Refuse(const QString &why)
    {
        Complain(why);
        return EXIT_NOT_MERGED;
    }
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(MergeArguments &&arguments)
{
    return std::make_unique<MergeSubcommand>(std::move(arguments));
}
