// SPDX-License-Identifier: MIT
#include "KeptFiles.h"

#include "Environment.h"
#include "HostFiles.h"
#include "Paths.h"
#include "ProjectLock.h"
#include "ProjectSave.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

// An entry is a folder whose name is a number. It contains the copies, named 0, 1 and so on, and INDEX, which has their
// original paths: {"files": ["/home/x/demo/res/demo.res.xml", ...]}.

namespace
{

constexpr size_t MOST_ENTRIES = 20;
const QString INDEX = QStringLiteral("index.json");
const QString FILES = QStringLiteral("files");

QString Reason(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

/// Returns the user's state folder; empty when the user has none.
QString StateFolder()
{
    const QByteArray state = qgetenv("XDG_STATE_HOME");
    if (state.startsWith('/'))
        return QString::fromUtf8(state);
    QByteArray home = qgetenv("HOME");
    if (const passwd *user = home.startsWith('/') ? nullptr : getpwuid(geteuid()))
        home = user->pw_dir;
    return home.startsWith('/') ? QString::fromUtf8(home) + QStringLiteral("/.local/state") : QString();
}

/// Returns the name of a project's folder: the project's title, so that people find it, and a hash of its path, which
/// distinguishes projects with the same title.
QString FolderName(const QString &spelledPath)
{
    const QString projectPath = QString::fromUtf8(HostPath(spelledPath)); // one folder for all spellings
    const QString place = QFileInfo(DirectoryOf(projectPath)).canonicalFilePath();
    const QString path = (place.isEmpty() ? DirectoryOf(projectPath) : place) + u'/' + FileName(projectPath);
    QString title = FileTitle(projectPath).left(40);
    for (QChar &c : title) {
        if (c.unicode() < 0x20 || c == u'/')
            c = u'_';
    }
    const QByteArray mark = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha1).toHex().left(8);
    return title + u'-' + QString::fromLatin1(mark);
}

/// Makes a folder and those above it. New folders have the mode `mode`. On failure, returns false and sets errno.
bool MakePath(const QString &path, mode_t mode)
{
    if (mkdir(path.toUtf8().constData(), mode) == 0 || errno == EEXIST)
        return true;
    return errno == ENOENT && MakePath(DirectoryOf(path), mode) && mkdir(path.toUtf8().constData(), mode) == 0;
}

} // namespace

KeptFiles::KeptFiles(const QString &projectPath) : project(projectPath)
{
    if (const QString state = StateFolder(); !state.isEmpty())
        folder = state + QStringLiteral("/morvanite/kept/") + FolderName(projectPath);
}

std::vector<int> KeptFiles::Numbers() const
{
    std::vector<int> numbers;
    for (const QString &name : folder.isEmpty() ? QStringList() : QDir(folder).entryList(QDir::Dirs)) {
        bool isNumber = false;
        const int number = name.toInt(&isNumber);
        if (isNumber && number > 0 && name == QString::number(number))
            numbers.push_back(number);
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

QString KeptFiles::MakeEntry(QString &entry) const
{
    constexpr mode_t OWNER_ONLY = 0700;
    if (folder.isEmpty())
        return QStringLiteral("there is no home folder, and XDG_STATE_HOME isn't set");
    if (!MakePath(folder, OWNER_ONLY) || chmod(folder.toUtf8().constData(), OWNER_ONLY) != 0)
        return QStringLiteral("%1 can't be created: %2").arg(folder, Reason(errno));
    const std::vector<int> numbers = Numbers();
    for (int number = numbers.empty() ? 1 : numbers.back() + 1;; ++number) {
        if (mkdir(FolderOf(number).toUtf8().constData(), OWNER_ONLY) == 0) {
            entry = FolderOf(number);
            return {};
        }
        if (errno != EEXIST) // another program has taken that number
            return QStringLiteral("%1 can't be created: %2").arg(FolderOf(number), Reason(errno));
    }
}

QString KeptFiles::Keep(const QStringList &files, QString &entry) const
{
    entry.clear();
    QJsonArray index;
    for (const QString &file : files) {
        QByteArray bytes;
        const int error = ReadFile(file, bytes);
        if (error == ENOENT)
            continue;
        QString problem = error == 0 ? QString() : QStringLiteral("%1 can't be read: %2").arg(file, Reason(error));
        if (problem.isEmpty() && entry.isEmpty())
            problem = MakeEntry(entry);
        if (problem.isEmpty()) {
            const QString copy = entry + u'/' + QString::number(index.size());
            if (const int refused = WriteFileAtomically(copy, bytes))
                problem = QStringLiteral("%1 can't be written: %2").arg(copy, Reason(refused));
        }
        if (!problem.isEmpty()) {
            Drop(std::exchange(entry, {}));
            return problem;
        }
        index.append(file);
    }
    if (entry.isEmpty())
        return {};
    const QString list = entry + u'/' + INDEX;
    if (const int refused = WriteFileAtomically(list, QJsonDocument(QJsonObject{{FILES, index}}).toJson())) {
        Drop(std::exchange(entry, {}));
        return QStringLiteral("%1 can't be written: %2").arg(list, Reason(refused));
    }
    Prune();
    return {};
}

void KeptFiles::Drop(const QString &entry)
{
    if (!entry.isEmpty())
        QDir(entry).removeRecursively();
}

void KeptFiles::Prune() const
{
    const std::vector<int> numbers = Numbers();
    for (size_t i = 0; i + MOST_ENTRIES < numbers.size(); ++i)
        Drop(FolderOf(numbers[i]));
}

std::vector<KeptFiles::Entry> KeptFiles::Entries() const
{
    std::vector<Entry> entries;
    for (const int number : Numbers()) {
        const QString list = FolderOf(number) + u'/' + INDEX;
        QByteArray bytes;
        Entry entry{number, QFileInfo(list).lastModified(), {}};
        if (ReadFile(list, bytes) != 0)
            continue;
        const QJsonArray files = QJsonDocument::fromJson(bytes).object()[FILES].toArray();
        for (const auto &file : files)
            entry.files.append(file.toString());
        if (!entry.files.isEmpty())
            entries.push_back(std::move(entry));
    }
    return entries;
}

QString KeptFiles::Restore(Environment &env, int number, QString &replaced) const
{
    const std::vector<Entry> entries = Entries();
    const auto found =
        std::find_if(entries.begin(), entries.end(), [&](const Entry &entry) { return entry.number == number; });
    if (found == entries.end())
        return QStringLiteral("there is no entry %1").arg(number);
    // Reads the copies first: keeping the replaced files may remove the oldest entry, which can be this one.
    std::vector<QByteArray> contents(size_t(found->files.size()));
    for (size_t i = 0; i < contents.size(); ++i) {
        const QString copy = FolderOf(number) + u'/' + QString::number(i);
        if (const int error = ReadFile(copy, contents[i]))
            return QStringLiteral("%1 can't be read: %2").arg(copy, Reason(error));
    }
    const QString nothing = QStringLiteral("no file was restored");
    ProjectLock lock;
    if (!lock.Take(env, SavedProjectOf(env, project)) || !RecoverProjectFiles(env, project))
        return nothing;
    FileTransaction files(env, SavedProjectOf(env, project));
    for (size_t i = 0; i < contents.size(); ++i) {
        if (files.Write(found->files[qsizetype(i)], OnePiece(contents[i]), IfRefused::Stop) != 0)
            return nothing;
    }
    if (const QString problem = Keep(found->files, replaced); !problem.isEmpty())
        return problem;
    return files.Commit() ? nothing : QString();
}
