// SPDX-License-Identifier: MIT
#include "SaveJournal.h"

#include "Environment.h"
#include "FileFault.h"
#include "FilePlace.h"
#include "Leftovers.h"
#include "ProjectPlaces.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <limits>
#include <optional>
#include <poll.h>
#include <set>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr char FIRST_LINE[] = "Morvanite journal 2";
constexpr char OLD_FIRST_LINE[] = "Morvanite journal 1";
constexpr char LAST_LINE[] = "end";
constexpr char NEEDED[] = "needed";
constexpr char GENERATED[] = "generated";
constexpr char NO_FILE[] = "-";             // in the place of a stamp
constexpr qint64 LARGEST_JOURNAL = 1 << 20; // bytes

bool IsPlainFile(const QByteArray &path)
{
    struct stat info;
    return lstat(path.constData(), &info) == 0 && S_ISREG(info.st_mode);
}

/// Returns a text that changes when the file is changed.
QByteArray StampOf(const QByteArray &path)
{
    struct stat info;
    if (lstat(path.constData(), &info) != 0)
        return NO_FILE;
    return QByteArray::number(qint64(info.st_size)) + ' ' + QByteArray::number(qint64(info.st_mtim.tv_sec)) + '.' +
           QByteArray::number(qint64(info.st_mtim.tv_nsec));
}

/// A file that a journal lists.
struct Renaming
{
    QByteArray place;
    QByteArray temporary;
    QByteArray before; // StampOf
    QByteArray after;  // StampOf the new file; empty: not known
    bool isGenerated = false;

    [[nodiscard]] bool IsWaiting() const { return IsPlainFile(temporary); }
    [[nodiscard]] bool IsDone() const { return !IsWaiting() && (after.isEmpty() || StampOf(place) == after); }

    /// True if the file is in place and has its temporary name too, because a save began to undo the rename.
    [[nodiscard]] bool HasBothNames() const
    {
        return IsPlainFile(temporary) && IsPlainFile(place) && IsSameFile(temporary, place);
    }
};

std::optional<std::vector<Renaming>> Parse(const QByteArray &text, const ProjectPlaces &places)
{
    const QByteArrayList lines = text.split('\n');
    const bool isOld = lines.first() == OLD_FIRST_LINE;
    if (lines.size() < 4 || (lines.first() != FIRST_LINE && !isOld) ||
        lines.sliced(lines.size() - 2) != QByteArrayList{LAST_LINE, ""})
        return std::nullopt;
    const qint64 process = PlainNumber(lines[1]);
    std::vector<Renaming> renamings;
    for (const QByteArray &line : lines.sliced(2, lines.size() - 4)) {
        QByteArrayList fields = line.split('\t');
        if (isOld)
            fields.insert(qMin(fields.size(), qsizetype(3)), QByteArray());
        if (fields.size() != 5 || (fields[0] != NEEDED && fields[0] != GENERATED))
            return std::nullopt;
        const qint64 number = PlainNumber(fields[1]);
        const QByteArray place = places.Restored(QByteArray::fromPercentEncoding(fields[4]));
        if (process <= 0 || number < 0 || number >= MOST_TEMPORARY_FILES || place.isEmpty())
            return std::nullopt;
        renamings.push_back(
            {place, TemporaryName(place, process, int(number)), fields[2], fields[3], fields[0] == GENERATED});
    }
    return renamings;
}

/// Returns whether the journal is outside of the project because of a link. Sets `place` to where the link leads.
bool IsOutside(const QByteArray &journal, const SavedProject &project, QByteArray &place)
{
    return !project.followsLinks &&
           !StaysInProject(TemporaryName(journal, getpid(), 0), HostPath(project.folder), place);
}

/// Finishes the renames that a journal lists.
class Finishing
{
public:
    Finishing(Environment &environment, const SavedProject &savedProject)
        : env(environment), project(savedProject), path(HostPath(project.journal))
    {
    }

    bool Run()
    {
        bool isThere = false;
        if (!Lock(isThere))
            return false;
        Leftovers leftovers; // of a save that was killed before its journal had this name
        if (!isThere && !leftovers.AreBeside(path))
            return true;
        QByteArray place;
        const bool isOutside = IsOutside(path, project, place);
        if (isThere)
            return isOutside ? Refuse(u"a symbolic link leads out of the project to it"_s) : Finish();
        if (!isOutside)
            leftovers.RemoveBeside(path);
        return true;
    }

    /// Returns whether there is a journal that no process is using.
    bool IsNeeded()
    {
        bool isThere = false;
        return !Lock(isThere) || isThere;
    }

private:
    bool Refuse(const QString &why)
    {
        env.ExplainFailure(
            u"a save of this project was interrupted and can't be finished, so some of its files may be new "
            "and others old: journal \"%1\": %2; check the files, then delete the journal"_s.arg(
                QString::fromUtf8(path), why));
        return false;
    }

    /// Opens the journal and waits until no process has it locked. Returns false, after explaining it, if that fails.
    bool Lock(bool &isThere)
    {
        constexpr int PATIENCE_MS = 10'000;
        constexpr int STEP_MS = 10;
        for (int waited = 0; waited < PATIENCE_MS; waited += STEP_MS) {
            handle = Open();
            struct stat info;
            if (!handle.IsOpen() && (errno == ENOENT || errno == ENOTDIR))
                return true;
            if (!handle.IsOpen() && errno == EACCES && lstat(path.constData(), &info) != 0)
                return true; // its folder can't be entered; the load says which file it can't read
            if (!handle.IsOpen())
                return Refuse(QString::fromLocal8Bit(std::strerror(errno)));
            const bool isLocked = flock(handle.Get(), LOCK_EX | LOCK_NB) != 0 && (errno == EWOULDBLOCK || IsAtWork());
            if (!isLocked && IsStillInPlace()) {
                isThere = true;
                return true;
            }
            if (isLocked)
                poll(nullptr, 0, STEP_MS);
        }
        env.ExplainFailure(u"another program is still saving this project; try again later"_s);
        return false;
    }

    /// Opens the journal for writing if permitted, because some network file systems can't lock other files.
    [[nodiscard]] FileHandle Open() const
    {
        constexpr int FLAGS = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
        FileHandle opened(open(path.constData(), O_RDWR | FLAGS));
        return opened.IsOpen() ? std::move(opened) : FileHandle(open(path.constData(), O_RDONLY | FLAGS));
    }

    /// For file systems without locks: returns whether another process has the number that is in the journal.
    [[nodiscard]] bool IsAtWork() const
    {
        char start[64] = {};
        const ssize_t size = pread(handle.Get(), start, sizeof start, 0);
        const QByteArrayList lines = QByteArray(start, qMax(size, ssize_t(0))).split('\n');
        const qint64 process = lines.size() > 2 ? PlainNumber(lines[1]) : -1;
        return process > 0 && process <= std::numeric_limits<pid_t>::max() && process != getpid() && !IsGone(process);
    }

    [[nodiscard]] bool IsStillInPlace() const
    {
        struct stat opened;
        struct stat named;
        return fstat(handle.Get(), &opened) == 0 && lstat(path.constData(), &named) == 0 &&
               opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
    }

    bool Finish()
    {
        struct stat info;
        if (fstat(handle.Get(), &info) != 0 || !S_ISREG(info.st_mode) || info.st_size > LARGEST_JOURNAL)
            return Refuse(u"this is not a journal"_s);
        QByteArray text(info.st_size, Qt::Uninitialized);
        if (handle.Read(text.data(), size_t(text.size())) != text.size())
            return Refuse(QString::fromLocal8Bit(std::strerror(errno)));
        const auto renamings = Parse(text, ProjectPlaces(project));
        if (!renamings)
            return Refuse(u"its content is not what a save of this project writes"_s);
        const QByteArray changed = FirstChanged(*renamings);
        return changed.isEmpty() ? RenameAll(*renamings)
                                 : Refuse(u"\"%1\" has changed since then"_s.arg(QString::fromUtf8(changed)));
    }

    /// Returns the first file that is neither what it was before the save nor what the save wrote. Renaming the others
    /// would make a mixture then. Empty when there is none. Generated files don't count.
    static QByteArray FirstChanged(const std::vector<Renaming> &renamings)
    {
        const bool isAnyWaiting = std::any_of(renamings.begin(), renamings.end(), [](const Renaming &file) {
            return !file.isGenerated && file.IsWaiting();
        });
        for (const Renaming &file : renamings) {
            if (file.isGenerated || !isAnyWaiting || file.HasBothNames()) // if no file is waiting, all were renamed
                continue;
            if (StampOf(file.place) != file.before && !file.IsDone())
                return file.place;
        }
        return {};
    }

    bool RenameAll(const std::vector<Renaming> &renamings)
    {
        const SignalHold hold;
        std::set<QByteArray> folders;
        for (const Renaming &renaming : renamings) {
            if (!renaming.IsWaiting())
                continue; // it has its final name
            if (renaming.HasBothNames() || (renaming.isGenerated && !IsToBeReplaced(renaming)))
                unlink(renaming.temporary.constData());
            else if (rename(renaming.temporary.constData(), renaming.place.constData()) == 0)
                folders.insert(FolderOf(renaming.place));
            else if (!renaming.isGenerated)
                return Refuse(WhyNotWritten(QString::fromUtf8(renaming.place), errno));
        }
        for (const QByteArray &folder : folders)
            SyncFolder(folder);
        Leftovers leftovers; // the second names of the old files
        for (const Renaming &renaming : renamings)
            leftovers.RemoveBeside(renaming.place);
        unlink(path.constData());
        if (!folders.empty())
            env.Explain(u"a save of this project had been interrupted; it is finished now"_s);
        return true;
    }

    static bool IsToBeReplaced(const Renaming &generated)
    {
        const QByteArray now = StampOf(generated.place);
        return now == generated.before || now == NO_FILE;
    }

    Environment &env;
    const SavedProject &project;
    QByteArray path;
    FileHandle handle; // holds the lock
};

} // namespace

int SaveJournal::Begin(Environment &env, const SavedProject &project, const std::vector<Entry> &entries)
{
    constexpr int MOST_TRIES = 100; // a try fails when another process was faster
    const QByteArray place = HostPath(project.journal);
    if (QByteArray leadsTo; IsOutside(place, project, leadsTo)) {
        env.ExplainFailure(WhyOutside(project.journal, leadsTo));
        return EBUSY;
    }
    const ProjectPlaces places(project);
    for (int i = 0; i < MOST_TRIES; ++i) {
        if (!FinishInterruptedSave(env, project))
            return EBUSY;
        QByteArray text = QByteArray(FIRST_LINE) + '\n' + QByteArray::number(qint64(getpid())) + '\n';
        for (const Entry &entry : entries) {
            if (places.Have(entry.place))
                text += QByteArray(entry.isGenerated ? GENERATED : NEEDED) + '\t' + QByteArray::number(entry.number) +
                        '\t' + StampOf(entry.place) + '\t' +
                        StampOf(TemporaryName(entry.place, getpid(), entry.number)) + '\t' +
                        places.Stored(entry.place).toPercentEncoding("/ ") + '\n';
        }
        text += QByteArray(LAST_LINE) + '\n';

        Leftovers leftovers;
        FileReplacement file;
        if (const int error = file.BeginAt(place, leftovers))
            return error;
        handle = FileHandle(fcntl(file.Handle().Get(), F_DUPFD_CLOEXEC, 0));
        (void)flock(handle.Get(), LOCK_EX);
        if (!handle.WriteAll(text.constData(), size_t(text.size())))
            return errno;
        int error = file.Finish();
        if (error == 0)
            error = file.PutInFreePlace();
        if (error == 0) {
            path = place;
            SyncFolder(file.Folder());
            return 0;
        }
        if (error != EEXIST)
            return error;
    }
    return EBUSY;
}

void SaveJournal::End()
{
    if (!path.isEmpty())
        unlink(path.constData());
    path.clear();
    handle = FileHandle();
}

bool HasJournalOfInterruptedSave(Environment &env, const SavedProject &project)
{
    return Finishing(env, project).IsNeeded();
}

bool FinishInterruptedSave(Environment &env, const SavedProject &project)
{
    return Finishing(env, project).Run();
}
