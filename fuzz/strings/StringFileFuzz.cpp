// SPDX-License-Identifier: MIT
// A string file; its first byte selects the sizes of the pieces in which it arrives. Reads it into an empty project and
// again over the result, writes the table and reads that into another project. Aborts if the tables differ.
#include "Environment.h"
#include "HostFiles.h"
#include "ResModel.h"
#include "StringFile.h"
#include "StringFileReader.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace
{

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

struct Project : CResModel
{
    using CResModel::CResModel;
    [[nodiscard]] const QString &PathName() const override { return name; }

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
};

/// Returns whether there is a byte order mark anywhere after the first character.
bool HasMark(QByteArrayView bytes)
{
    qsizetype at = bytes.indexOf("\xFF\xFE", 2);
    while (at % 2 == 1)
        at = bytes.indexOf("\xFF\xFE", at + 1);
    return at >= 0;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static Environment env(QStringLiteral("/nonexistent"));
    static ProcessTables tables;
    // In memory if possible, since every run writes.
    static const QString output = QStringLiteral("%1/morvanite_fuzz_strings_%2")
                                      .arg(QLatin1String(access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp"))
                                      .arg(getpid());
    if (size < 1 || size > 64 * 1024)
        return 0;
    const QByteArrayView bytes(reinterpret_cast<const char *>(data + 1), qsizetype(size - 1));

    Project project(env, tables);
    const int code = project.Read(bytes, size_t(data[0]) + 1);
    Require(code == 0 || code == 11 || code == 1012 || code == 1608);
    Require(project.Read(bytes, 1 << 20) == code);

    const QByteArray written = project.Written(output);
    Project second(env, tables);
    const bool hasStrings = !project.root.subfolders.empty();
    Require(second.Read(written, 4096) == (hasStrings ? 0 : 1012));
    Require(written.endsWith(QByteArray("\r\0\n\0", 4)));
    // Narrow text can't begin with a byte order mark, so such an ID becomes another one.
    Require(!hasStrings || HasMark(bytes) || second.Written(output) == written);
    DeleteFileOnDisk(output);
    return 0;
}
