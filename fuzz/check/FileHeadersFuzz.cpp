// SPDX-License-Identifier: MIT
// The start of a file of any bytes: every reading ends, and its result depends on the bytes alone, whether they are in
// memory or in a file that is read in blocks.

#include "FileBlocks.h"
#include "PictureHeader.h"
#include "WaveHeader.h"

#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

namespace
{

/// A file without a name that has the bytes of the current input.
class UnnamedFile
{
public:
    UnnamedFile() : descriptor(memfd_create("input", MFD_CLOEXEC)) {}
    [[nodiscard]] int With(const quint8 *data, size_t size) const
    {
        if (descriptor < 0 || ftruncate(descriptor, off_t(size)) != 0 ||
            pwrite(descriptor, data, size, 0) != ssize_t(size))
            std::abort();
        return descriptor;
    }

private:
    int descriptor;
};

bool AreEqual(const PictureHeader &a, const PictureHeader &b)
{
    return a.width == b.width && a.height == b.height && a.bits == b.bits && a.hasAlpha == b.hasAlpha &&
           a.isInterlaced == b.isInterlaced && a.fault == b.fault;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, size_t size)
{
    static const UnnamedFile file;
    const QByteArrayView bytes(data, qsizetype(size));
    FileBlocks memory(bytes);
    FileBlocks blocks(file.With(data, size), size);
    const ContentKind kind = ContentOf(memory.Start());
    if (kind != ContentOf(blocks.Start()) || NameOf(kind).isEmpty())
        std::abort();
    const PictureHeader picture = ReadPictureHeader(memory, kind);
    if (!AreEqual(picture, ReadPictureHeader(blocks, kind)))
        std::abort();
    if (picture.fault.isEmpty() && IsConvertible(kind) && quint64(picture.width) * picture.height == 0)
        std::abort();
    const WaveHeader wave = ReadWaveHeader(memory);
    if (wave.fault != ReadWaveHeader(blocks).fault || (wave.fault.isEmpty() && wave.channels == 0))
        std::abort();
    return 0;
}
