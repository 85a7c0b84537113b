// SPDX-License-Identifier: MIT
#include "ElfImage.h"

#include "Environment.h"
#include "HostFiles.h"
#include "OutputFile.h"

#include <QTemporaryDir>

#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace
{

/// A file in memory with a path.
class MemoryFile
{
public:
    explicit MemoryFile(QByteArrayView bytes) : file(memfd_create("fuzz", MFD_CLOEXEC))
    {
        if (!file.WriteAll(bytes.data(), size_t(bytes.size())))
            std::abort();
    }
    [[nodiscard]] QString Path() const { return QString::fromLatin1("/proc/self/fd/%1").arg(file.Get()); }

private:
    FileHandle file;
};

void Check(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace

// The first byte is the payload's size, the rest the file to extend. The result must be the input with two fields of
// its header changed. It must also be readable if the header's distance of section headers is that of the new table.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static Environment env(QStringLiteral("/nonexistent"));
    if (size == 0)
        return 0;
    const QByteArrayView input(reinterpret_cast<const char *>(data) + 1, qsizetype(size) - 1);
    const QByteArray payload(data[0], 'P');
    const MemoryFile source(input);
    ElfImage elf;
    if (ReadElf(env, source.Path(), elf) != 0)
        return 0;
    AddResSection(elf, quint64(payload.size()));
    Check(SetElfLayout(env, elf) == 0); // an input of this size always fits
    static const QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("grown"));
    OutputFile output(env);
    const auto write = [&](OutputFile &to) { return to.Write(payload) && to.Flush() ? 0 : int(ElfCode::Write); };
    Check(output.Begin(target.toUtf8(), {}) == 0 && WriteElf(env, elf, output, target.toUtf8(), write) == 0 &&
          output.PutInPlace() == 0);
    QByteArray grown;
    Check(ReadFile(target, grown) == 0);
    Check(grown.size() == qsizetype(elf.PayloadOffset()) + payload.size() +
                              qsizetype(elf.sections.size()) * qsizetype(ElfImage::SECTION_HEADER_SIZE) +
                              elf.nameTable.size());
    Check(grown.first(32) == input.first(32) && grown.mid(36, 12) == input.sliced(36, 12) &&
          grown.mid(50, input.size() - 50) == input.sliced(50));
    Check(grown.mid(qsizetype(elf.PayloadOffset()), payload.size()) == payload);
    if (input.sliced(46, 2) != QByteArrayView("\x28\0", 2))
        return 0;
    const int again = ReadElf(env, target, elf);
    Check(again == 0 || again == int(ElfCode::TooLarge)); // the table may be full now
    return 0;
}
