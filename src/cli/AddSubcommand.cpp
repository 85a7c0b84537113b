// SPDX-License-Identifier: MIT
#include "Environment.h"
#include "FileAddition.h"
#include "FileFault.h"
#include "IdNames.h"
#include "ListedSize.h"
#include "NewFiles.h"
#include "Paths.h"
#include "ProjectContext.h"
#include "ProjectEdit.h"
#include "Subcommands.h"

using namespace Qt::StringLiterals;

namespace
{

class AddSubcommand : public Subcommand<AddArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        if (!HasRightWords(session))
            return EXIT_WRONG_USE;
        QStringList paths;
        for (const std::string &file : files)
            paths.append(AbsolutePath(file));
        ProjectEdit edit(session, AbsolutePath(project), dryRun);
        CResDoc *const document = edit.Open();
        if (!document)
            return EXIT_FAILED;
        bool isFine = true;
        for (const QString &path : paths) {
            const QString problem = AddFile(*document, path);
            if (!problem.isEmpty())
                Complain(path + u": "_s + problem);
            isFine = isFine && problem.isEmpty();
        }
        const QString problem = isFine && !dryRun ? copies.Make() : QString();
        if (!isFine || !problem.isEmpty()) {
            Complain((problem.isEmpty() ? QString() : problem + u"; "_s) + u"nothing is changed"_s);
            return EXIT_FAILED;
        }
        const int status = isChanged ? edit.Save() : session.StatusAfter(EXIT_FINE);
        if (document->lastSave.write != 0)
            copies.TakeBack();
        if (status != EXIT_FINE)
            return status;
        session.report.Tell(lines, dryRun);
        session.report.Flush();
        for (const QString &note : notes)
            Complain(note);
        return EXIT_FINE;
    }

private:
    [[nodiscard]] bool HasRightWords(Session &session)
    {
        if (!id.empty() && files.size() > 1) {
            Complain(u"--id is for a single file"_s);
            return false;
        }
        if (!id.empty() && !IsValidIdName(QString::fromStdString(id))) {
            Complain(u"--id %1: an ID has 1 to 64 letters, digits and \"_\", and doesn't begin with a digit"_s.arg(
                QString::fromStdString(id)));
            return false;
        }
        if (resolution.empty())
            return true;
        session.tables.LoadOnce(session.env);
        screen = ParseScreenSize(resolution);
        const QString why =
            screen ? WhyNotListed(session.tables.resolutions, *screen) : u"it isn't a size such as 240x320"_s;
        if (!why.isEmpty())
            Complain(u"--resolution %1: %2"_s.arg(QString::fromStdString(resolution), why));
        return why.isEmpty();
    }

    /// Returns the folder of the tree that a file is for.
    [[nodiscard]] CResFolder *FolderFor(CResDoc &document, const QString &path, const FileClassifier &types) const
    {
        if (screen)
            return document.UseResolutionImages(document.tables.resolutions.IndexOf(screen->width, screen->height));
        return types.Classify(KIND_RESO_IMAGES, path) == KIND_RESO_IMAGES ? document.UseResolutionImages(-1)
                                                                          : document.root.FindFolder(KIND_FILES, 1);
    }

    /// Adds a file to the document. Returns why not; empty if it was added or is there already.
    [[nodiscard]] QString AddFile(CResDoc &document, const QString &path)
    {
        if (const int code = CheckArrival(path); code != FILE_EDIT_DONE)
            return FileEditMessage(code);
        QString place = path;
        if (QString problem = FindPlace(document, place); !problem.isEmpty())
            return problem;
        const FileClassifier types(document.env.settings);
        CResFolder *const folder = FolderFor(document, path, types);
        QString stored = place;
        (void)ToStoredPath(document, stored);
        if (const CFileRes *const existing = folder ? FindFile(*folder, document, stored) : nullptr) {
            lines += u"same\t%1\t%2\n"_s.arg(document.env.NarrowToWide(existing->Id()->name), stored);
            return {};
        }
        CFileRes *made = nullptr;
        const int code = folder ? AddFileResource(document, *folder, path, place, types, made) : int(FILE_WRONG_TYPE);
        if (code != FILE_EDIT_DONE)
            return code == FILE_WRONG_TYPE && screen ? u"this isn't a picture, and --resolution is only for pictures"_s
                                                     : FileEditMessage(code);
        const QString name = document.env.NarrowToWide(made->Id()->name);
        if (const QString wanted = document.DefaultFileId(*made->Folder(), path); id.empty() && name != wanted)
            notes.append(
                u"%1: the ID %2 is taken, so this file has %3; --id gives another ID to a file that is added alone"_s
                    .arg(path, wanted, name));
        if (!id.empty() && !made->Rename(document.ids, document.env.WideToNarrow(QString::fromStdString(id))))
            return FileEditMessage(FILE_ID_TAKEN);
        if (isPush) {
            made->Id()->push = true;
            made->Id()->pushKind = CResModel::PushKindOf(made->Folder()->kind);
        }
        isChanged = true;
        lines += u"new\t%1\t%2\n"_s.arg(document.env.NarrowToWide(made->Id()->name), stored);
        return {};
    }

    /// Changes the path of a file outside of the project's folder to that of its copy, and plans the copy. Returns why
    /// the file can't be added.
    [[nodiscard]] QString FindPlace(CResDoc &document, QString &path)
    {
        QString stored = path;
        (void)ToStoredPath(document, stored); // a name that the list can't have is refused later
        if (IsRelativePath(stored))
            return {};
        if (!canCopy)
            return u"it is outside of the project's folder, so it would be missing on other machines; copy it there, "
                   u"or "
                   "use --copy"_s;
        const ProjectPaths paths(document.PathName(), document.env);
        const QString folder = DirectoryOf(paths.Absolute(paths.ResourcePath()));
        const QString size = screen ? u"/%1x%2"_s.arg(screen->width).arg(screen->height) : QString();
        const QString copy = CanonicalPath(folder + size + u'/' + FileName(path));
        QByteArray bytes;
        if (const int error = ReadFile(path, bytes))
            return WhyNotRead(path, error);
        QByteArray existing;
        if (copies.Missing().contains(copy))
            return u"another file would also be copied to \"%1\"; rename one of them"_s.arg(copy);
        if (PathExists(copy) && (ReadFile(copy, existing) != 0 || existing != bytes))
            return u"it would be copied to \"%1\", which exists and is another file; rename one of them"_s.arg(copy);
        if (!PathExists(copy)) {
            copies.Add(copy, bytes);
            lines += u"copied\t%1\t%2\n"_s.arg(path, copy);
        }
        path = copy;
        return {};
    }

    /// Finds a file with that path, and with the ID of --id if that is given.
    [[nodiscard]] const CFileRes *FindFile(const CResFolder &folder, const CResDoc &document,
                                           const QString &stored) const
    {
        const QString wanted = QString::fromStdString(id);
        for (const CBaseRes *res : folder.resources) {
            const auto *file = static_cast<const CFileRes *>(res);
            if (IsSamePath(document.env.NarrowToWide(file->path), stored) &&
                (wanted.isEmpty() || document.env.NarrowToWide(file->Id()->name) == wanted))
                return file;
        }
        for (const auto &subfolder : folder.subfolders) {
            if (const CFileRes *found = FindFile(*subfolder, document, stored))
                return found;
        }
        return nullptr;
    }

    std::optional<ScreenSize> screen;
    NewFiles copies;
    QString lines;
    QStringList notes; // about IDs that the user may not expect
    bool isChanged = false;
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(AddArguments &&arguments)
{
    return std::make_unique<AddSubcommand>(std::move(arguments));
}
