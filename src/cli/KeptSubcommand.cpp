// SPDX-License-Identifier: MIT
#include "KeptFiles.h"
#include "ProjectFile.h"
#include "Session.h"
#include "Subcommands.h"

namespace
{

class KeptSubcommand : public Subcommand<KeptArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        const QString path = AbsolutePath(project);
        const KeptFiles kept(path);
        return number > 0 ? Restore(session, kept) : List(session, kept, path);
    }

private:
    static int List(Session &session, const KeptFiles &kept, const QString &path)
    {
        const std::vector<KeptFiles::Entry> entries = kept.Entries();
        if (const QString why = WhyNotProjectFile(path); entries.empty() && !why.isEmpty()) {
            Complain(why);
            return EXIT_FAILED;
        }
        for (const KeptFiles::Entry &entry : entries) {
            for (const QString &file : entry.files) {
                session.report.Print(
                    QStringLiteral("%1\t%2\t%3\n").arg(entry.number).arg(entry.time.toString(Qt::ISODate), file));
            }
        }
        return EXIT_FINE;
    }

    int Restore(Session &session, const KeptFiles &kept) const
    {
        QString replaced;
        const QString problem = kept.Restore(session.env, number, replaced);
        if (!replaced.isEmpty())
            session.report.Write(QStringLiteral("The replaced files are kept in %1\n").arg(replaced));
        if (problem.isEmpty())
            return EXIT_FINE;
        Complain(problem);
        return EXIT_FAILED;
    }
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(KeptArguments &&arguments)
{
    return std::make_unique<KeptSubcommand>(std::move(arguments));
}
