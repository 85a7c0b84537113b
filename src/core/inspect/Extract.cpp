// SPDX-License-Identifier: MIT
#include "Environment.h"
#include "HostFiles.h"
#include "Inspect.h"
#include "ListingText.h"

#include <QHash>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr qsizetype LONGEST_NAME = 200; // bytes; leaves room for the suffix that makes it unique

/// True for characters that no file name should have on any host: separators, wildcards and invisible characters.
bool IsBad(char32_t c)
{
    switch (QChar::category(c)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return c < 0x80 && std::strchr("/\\:*?\"<>|", int(c));
    }
}

/// True for names that some hosts reserve for devices, with any extension.
bool IsDevice(const QByteArray &name)
{
    const QByteArray title = name.split('.').first().toUpper();
    if (title.size() == 4 && (title.startsWith("COM") || title.startsWith("LPT")))
        return title[3] >= '0' && title[3] <= '9';
    return title == "CON" || title == "PRN" || title == "AUX" || title == "NUL";
}

/// Turns a name of the payload into a file name that is valid on any host and doesn't lead out of the folder.
QByteArray SafeName(const QString &name)
{
    QByteArray safe;
    for (const char32_t c : name.left(LONGEST_NAME).toUcs4()) {
        const QByteArray bytes = IsBad(c) ? QByteArray("_") : QString::fromUcs4(&c, 1).toUtf8();
        if (safe.size() + bytes.size() > LONGEST_NAME)
            break;
        safe += bytes;
    }
    if (safe.endsWith('.') || safe.endsWith(' '))
        safe.back() = '_';
    if (safe.isEmpty() || safe.startsWith('.') || IsDevice(safe))
        safe.prepend('_');
    return safe;
}

/// Writes the files of one extraction. The first failure ends it; `Error` returns it.
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
        unlinkat(current.Get(), name.constData(), 0); // removes a link of that name, not its target
        const FileHandle file(
            openat(current.Get(), name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
        if (file.IsOpen() && file.WriteAll(bytes.data(), size_t(bytes.size()))) {
            written.push_back(shown);
            return;
        }
        const bool isSourceGone = errno == EFAULT;
        Fail(shown);
        if (isSourceGone) // read, so that the view of the file notes that it was cut short
            [[maybe_unused]]
            const volatile char last = bytes.back();
        if (file.IsOpen()) // leave no incomplete file behind
            unlinkat(current.Get(), name.constData(), 0);
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

    /// A name that no other file of this run has, even if case is ignored: "a.png", "a~2.png", "a~3.png".
    QByteArray Unique(const QByteArray &folder, const QByteArray &name)
    {
        const auto key = [&folder](const QByteArray &file) {
            return ToLowerSimple(QString::fromUtf8(folder + '/' + file));
        };
        const QString first = key(name);
        if (!used.contains(first)) {
            used.insert(first, 2);
            return name;
        }
        const qsizetype dot = name.lastIndexOf('.');
        const qsizetype title = dot > 0 ? dot : name.size();
        // The last number is remembered for each name, so many equal names take no longer than different ones.
        for (quint32 n = used.value(first);; ++n) {
            const QByteArray unique = name.left(title) + '~' + QByteArray::number(n) + name.mid(title);
            const QString taken = key(unique);
            if (!used.contains(taken)) {
                used.insert(taken, 2);
                used[first] = n + 1;
                return unique;
            }
        }
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
    QHash<QString, quint32> used; // and the number to try next
    QString error;
};

/// Makes a line for each string: ID value, tab, text. The text has the escapes \\, \t, \n and \r.
QByteArray Lines(const LanguageStrings &language)
{
    QByteArray lines;
    for (const TableString &string : language.strings) {
        lines += QByteArray::number(string.id) + '\t';
        for (const char c : WholeCharacters(string.text).toUtf8()) {
            switch (c) {
            case '\\':
                lines += "\\\\";
                break;
            case '\t':
                lines += "\\t";
                break;
            case '\n':
                lines += "\\n";
                break;
            case '\r':
                lines += "\\r";
                break;
            default:
                lines += c;
            }
        }
        lines += '\n';
    }
    return lines;
}

} // namespace

QString ExtractAll(const Environment &env, const InspectResult &result, const QString &folder,
                   std::vector<QByteArray> &written)
{
    Extraction extraction(folder, written);
    const Payload &payload = result.payload;
    for (const DirectoryEntry &entry : payload.entries) {
        if (result.isSelection || &entry != &payload.entries.back()) // the last one is the block's table
            extraction.Write("entries", SafeName(env.NarrowToWide(entry.name)), entry.data);
    }
    for (const BlockEntry &item : payload.block) {
        if (item.key < LANGUAGE_KEY)
            extraction.Write("items", QByteArray::number(item.key).rightJustified(8, '0') + ".bin", item.data);
    }
    for (const LanguageStrings &language : payload.languages)
        extraction.Write("strings", QByteArray::number(language.language) + ".txt", Lines(language));
    return extraction.Error();
}
