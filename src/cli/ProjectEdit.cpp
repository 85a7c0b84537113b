// SPDX-License-Identifier: MIT
#include "ProjectEdit.h"

#include "OpeningReport.h"
#include "ProjectSave.h"

using namespace Qt::StringLiterals;

CResDoc *ProjectEdit::Open()
{
    if (dryRun ? HasInterruptedSave(session.env, path) : !session.LockProject(path))
        return nullptr;
    CResDoc *const opened = session.OpenQuietly(path);
    if (!opened)
        return nullptr;
    if (!TellOfOpening(session, path, opened, true)) {
        Complain(u"nothing is changed, because a save would lose what is wrong or missing there; correct it first"_s);
        return nullptr;
    }
    document = opened;
    return document;
}

int ProjectEdit::Save()
{
    if (dryRun)
        return session.StatusAfter(EXIT_FINE);
    if (document->TakeInChanges() != CResDoc::Outside::None) {
        Complain(path + u": its files changed meanwhile, so nothing is saved; run the command again"_s);
        return EXIT_FAILED;
    }
    QString lines;
    session.handler.idleOutput = [&lines](QStringView text) { lines += text; };
    (void)document->DoFileSave();
    session.handler.idleOutput = {};
    const int status = session.StatusAfter(EXIT_FINE);
    const bool isSaved = document->lastSave.write == 0;
    const bool isComplete = isSaved && document->lastSave.generate == 0 && status == EXIT_FINE;
    if (isComplete)
        return EXIT_FINE;
    StandardOutput(STDERR_FILENO).Write(lines);
    Complain(path + (isSaved ? u": the project is saved, but not all of its headers"_s
                             : u": failed to save the project; nothing is changed"_s));
    return EXIT_FAILED;
}
