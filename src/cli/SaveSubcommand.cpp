// SPDX-License-Identifier: MIT
#include "OpeningReport.h"
#include "ProjectSave.h"
#include "Subcommands.h"

namespace
{

class SaveSubcommand : public Subcommand<SaveArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        const QString path = AbsolutePath(project);
        if (!session.LockProject(path) || (strict && HasInterruptedSave(session.env, path)))
            return EXIT_FAILED;
        CResDoc *const document = session.OpenQuietly(path); // opening has no lines in the report of a save
        if (!TellOfOpening(session, path, document, strict && document) || !document)
            return EXIT_FAILED;
        session.handler.Save(path);
        // The report of a save has no error line for these.
        if (document->lastSave.write != 0)
            Complain(path + QStringLiteral(": failed to save the resources"));
        else if (document->lastSave.generate != 0)
            Complain(path +
                     QStringLiteral(": failed to generate header files: more IDs of one kind than there are numbers"));
        return document->lastSave.write != 0 || document->lastSave.generate != 0 ? EXIT_FAILED : session.LastStatus();
    }
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(SaveArguments &&arguments)
{
    return std::make_unique<SaveSubcommand>(std::move(arguments));
}
