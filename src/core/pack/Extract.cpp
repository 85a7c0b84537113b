#include "Environment.h"
#include "HostFiles.h"
#include "Inspect.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr qsizetype LONGEST_NAME = 200; // bytes, with room for what makes it unique

/// A name of the payload as a file name that leads nowhere else and is good on any host.
QByteArray SafeName(const QString &name)
{
    QString safe;
    for (const QChar c : name) {
        const bool bad = c.unicode() < 0x20 || c.unicode() == 0x7F || QStringView(u"/\\:*?\"<>|").contains(c) ||
                         c.category() == QChar::Other_Control || c.category() == QChar::Other_Format;
        safe += bad ? u'_' : c;
    }
    if (safe.isEmpty() || safe.startsWith(u'.'))
        safe.prepend(u'_');
    while (safe.toUtf8().size() > LONGEST_NAME)
        safe.chop(1);
    return safe.toUtf8();
}

/// Writes the files of one extraction. The first failure ends it; `Error` tells it.
class Extraction
{
public:
    Extraction(const QString &folder, std::vector<QByteArray> &writtenPaths) : written(writtenPaths)
    {
        const QByteArray host = HostPath(folder);
        if (mkdir(host.constData(), 0777) != 0 && errno != EEXIST)
            Fail(host);
        top = FileHandle(open(host.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (!top.IsOpen())
            Fail(host);
    }

    void Write(const QByteArray &folder, QByteArray name, QByteArrayView bytes)
    {
        if (!error.isEmpty())
            return;
        if (folder != currentName)
            Enter(folder);
        if (!error.isEmpty())
            return;
        name = Unique(folder, name);
        const QByteArray shown = folder + '/' + name;
        unlinkat(current.Get(), name.constData(), 0); // a link of that name goes, what it leads to stays
        const FileHandle file(
            openat(current.Get(), name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
        if (!file.IsOpen() || !file.WriteAll(bytes.data(), size_t(bytes.size())))
            Fail(shown);
        else
            written.push_back(shown);
    }

    [[nodiscard]] const QString &Error() const { return error; }

private:
    void Enter(const QByteArray &folder)
    {
        currentName = folder;
        if (mkdirat(top.Get(), folder.constData(), 0777) != 0 && errno != EEXIST)
            Fail(folder);
        current = FileHandle(openat(top.Get(), folder.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (!current.IsOpen())
            Fail(folder);
    }

    /// A name that no file of this run has, also where case doesn't count.
    QByteArray Unique(const QByteArray &folder, const QByteArray &name)
    {
        QByteArray unique = name;
        const QString prefix = QString::fromUtf8(folder) + u'/';
        for (int n = 2; !used.insert(ToLowerSimple(prefix + QString::fromUtf8(unique))).second; ++n)
            unique = name + '~' + QByteArray::number(n);
        return unique;
    }

    void Fail(const QByteArray &what)
    {
        if (error.isEmpty())
            error = QStringLiteral("cannot write %1: %2")
                        .arg(QString::fromUtf8(what), QString::fromLocal8Bit(std::strerror(errno)));
    }

    std::vector<QByteArray> &written;
    FileHandle top;
    FileHandle current;
    QByteArray currentName;
    std::set<QString> used;
    QString error;
};

QByteArray Lines(const LanguageStrings &language)
{
    QByteArray lines;
    for (const TableString &string : language.strings)
        lines += QByteArray::number(string.id) + '\t' + string.text.toUtf8() + '\n';
    return lines;
}

} // namespace

QString ExtractAll(const Environment &env, const InspectResult &result, const QString &folder,
                   std::vector<QByteArray> &written)
{
    Extraction extraction(folder, written);
    const Payload &payload = result.payload;
    for (const DirectoryEntry &entry : payload.entries) {
        if (&entry != &payload.entries.back()) // the last one is the block's table
            extraction.Write("entries", SafeName(env.NarrowToWide(entry.name)), entry.data);
    }
    for (const BlockEntry &item : payload.block) {
        if (item.key < FIRST_LANGUAGE_KEY)
            extraction.Write("items", QByteArray::number(item.key) + ".bin", item.data);
    }
    for (const LanguageStrings &language : payload.languages)
        extraction.Write("strings", QByteArray::number(language.language) + ".txt", Lines(language));
    return extraction.Error();
}
