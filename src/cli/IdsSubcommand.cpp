// SPDX-License-Identifier: MIT
#include "IDGen.h"
#include "ProjectLayouts.h"
#include "Session.h"
#include "SortedIds.h"
#include "Subcommands.h"

namespace
{

class IdsSubcommand : public ISubcommand
{
public:
    CLI::App *Add(CLI::App &app) override
    {
        CLI::App *subcommand = app.add_subcommand("ids", "List a project's IDs and their numbers, sorted by name");
        AddProject(*subcommand, project);
        return subcommand;
    }

    int Run(Session &session) override
    {
        CResDoc *document = session.OpenQuietly(AbsolutePath(project));
        if (!document)
            return EXIT_FAILED;
        const QStringList missing = MissingLayouts(*document);
        for (const QString &reason : missing)
            Complain(reason);
        if (!missing.isEmpty())
            return EXIT_FAILED; // without these IDs the others would get other numbers
        if (document->GenerateIds(nullptr) != 0) {
            Complain(QString::fromStdString(project) + QStringLiteral(": more IDs of one kind than there are numbers"));
            return EXIT_FAILED;
        }
        const IDRecord *last = nullptr;
        for (const IDRecord *record : SortedIds(document->ids)) {
            if (!last || last->name != record->name)
                session.report.WriteBytes(document->env.Shown(record->name) + '\t' + QByteArray::number(record->value) +
                                          '\n');
            last = record;
        }
        const QStringList leftOut = LeftOutLayouts(*document);
        for (const QString &reason : leftOut)
            Complain(reason + QStringLiteral("; the IDs are numbered without it"));
        return session.StatusAfter(leftOut.isEmpty() ? EXIT_FINE : EXIT_FAILED);
    }

private:
    std::string project;
};

} // namespace

std::unique_ptr<ISubcommand> MakeIdsSubcommand()
{
    return std::make_unique<IdsSubcommand>();
}
