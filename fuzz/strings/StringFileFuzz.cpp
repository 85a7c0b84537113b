// A string file whose first byte says in what pieces it arrives. Reads it into an empty project and once more over the
// result, writes the table and reads that into another project; aborts when that one isn't the same table.
#include "Environment.h"
#include "HostFiles.h"
#include "ResModel.h"
#include "StringFile.h"
#include "StringFileReader.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <sys/mman.h>
#include <unistd.h>

namespace
{

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

class Project : public CResModel
{
public:
    Project(Environment &environment, ProcessTables &processTables) : CResModel(environment, processTables)
    {
        root.AddFolder(CreateFolder(KIND_STRINGS, -1));
    }
    [[nodiscard]] const QString &PathName() const override { return path; }

    int Read(QByteArrayView bytes, size_t piece)
    {
        StringFileReader reader(*this, [bytes, piece](void *buffer, size_t size) mutable {
            const size_t count = std::min({size, piece, size_t(bytes.size())});
            std::memcpy(buffer, bytes.data(), count);
            bytes = bytes.sliced(qsizetype(count));
            return ssize_t(count);
        });
        return reader.Read();
    }

    QByteArray Written(const QString &file)
    {
        QByteArray bytes;
        Require(WriteStringFile(file, *this) == 0 && ReadFile(file, bytes) == 0);
        return bytes;
    }

    [[nodiscard]] bool HasStrings() const { return !root.subfolders.front()->subfolders.empty(); }

private:
    QString path;
};

/// A folder in memory where there is one, since every run writes.
QString OutputFile()
{
    const QString folder = access("/dev/shm", W_OK) == 0 ? QStringLiteral("/dev/shm") : QStringLiteral("/tmp");
    return folder + QStringLiteral("/morvanite_fuzz_strings_") + QString::number(getpid());
}

bool HasMark(QByteArrayView bytes)
{
    for (qsizetype i = 2; i + 1 < bytes.size(); i += 2) {
        if (quint8(bytes[i]) == 0xFF && quint8(bytes[i + 1]) == 0xFE)
            return true;
    }
    return false;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static Environment env(QStringLiteral("/nonexistent"));
    static ProcessTables tables;
    static const QString output = OutputFile();
    if (size < 1 || size > 64 * 1024)
        return 0;
    const QByteArrayView bytes(reinterpret_cast<const char *>(data + 1), qsizetype(size - 1));

    Project project(env, tables);
    const int code = project.Read(bytes, size_t(data[0]) + 1);
    Require(code == 0 || code == 11 || code == 1012 || code == 1608);
    Require(project.Read(bytes, 1 << 20) == code);

    const QByteArray written = project.Written(output);
    Project second(env, tables);
    const int again = second.Read(written, 4096);
    if (project.HasStrings()) {
        Require(again == 0);
        // Narrow text can't begin with a byte order mark, so such an ID becomes another one.
        const QStringView text(reinterpret_cast<const QChar *>(written.constData()), written.size() / 2);
        Require(HasMark(bytes) || second.Written(output) == written);
        Require(text.endsWith(u"\r\n"));
    } else {
        Require(again == 1012);
    }
    DeleteFileOnDisk(output);
    return 0;
}
