// SPDX-License-Identifier: MIT
#include "FileFault.h"
#include "HostFiles.h"
#include "Merge.h"
#include "Session.h"
#include "Subcommands.h"

namespace
{

class MergeSubcommand : public ISubcommand
{
public:
    CLI::App *Add(CLI::App &app) override
    {
        CLI::App *subcommand =
            app.add_subcommand("merge", "Merge two versions of a string file or of a resource list, for git");
        const char *const helps[] = {"The version that both sides have changed; may be empty",
                                     "The version to merge into, which is replaced", "The other version"};
        const char *const names[] = {"BASE", "OURS", "THEIRS"};
        for (size_t side = BASE; side < MERGE_SIDES; ++side)
            subcommand->add_option(names[side], paths[side], helps[side])->type_name("")->required();
        subcommand->add_option("--path", name, "The name of the file in messages")->type_name("FILE");
        AddChoice(*subcommand, "--conflicts", conflicts, "mark|base",
                  "Mark conflicts in the file, or leave there what BASE has (default: mark)");
        return subcommand;
    }

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

    std::array<std::string, MERGE_SIDES> paths;
    std::string name;
    std::string conflicts = "mark";
};

} // namespace

std::unique_ptr<ISubcommand> MakeMergeSubcommand()
{
    return std::make_unique<MergeSubcommand>();
}
