#include "ElfImage.h"
#include "OutputFile.h"
#include "PackRun.h"

#include <QtEndian>

#include <cerrno>

// A packed DLL: the input's bytes, MAGIC, the payload, and the input's size in 4 bytes, the low one first. A reader
// goes from that last field to the magic.

namespace
{

constexpr char MAGIC[8] = ".zp_res"; // with its zero byte

/// Appends to the output, which must have `size` bytes already.
int Append(const QByteArray &output, qint64 size, QByteArrayView bytes)
{
    const FileHandle file = AppendToOutput(output);
    if (!file.IsOpen())
        return errno;
    if (file.Size() != size)
        return int(ElfCode::InputChanged);
    return file.WriteAll(bytes.data(), size_t(bytes.size())) ? PACK_OK : PACK_WRITE;
}

int WriteOutputFile(PackRun &run, const FileHandle &input, quint32 inputSize, QByteArrayView payload)
{
    if (const int code = CopyToOutput(run.Env(), input, run.outputHost))
        return code;
    if (const int code = Append(run.outputHost, inputSize, payload))
        return code;
    char trailer[4];
    qToLittleEndian(inputSize, trailer);
    return Append(run.outputHost, inputSize + payload.size(), {trailer, sizeof trailer});
}

} // namespace

int Packer::PackToDLL(PackRun &run)
{
    const FileHandle input = FileHandle::OpenRead(QString::fromUtf8(run.inputHost));
    const qint64 inputSize = input.IsOpen() ? input.Size() : -1;
    if (inputSize < 0)
        return PACK_INPUT_SIZE;
    QByteArrayView payload;
    const quint64 base = quint64(inputSize) + sizeof MAGIC;
    if (const int code = BuildPayload(run, EntryPadding::None, base, {MAGIC, sizeof MAGIC}, payload))
        return code;
    const int code = WriteOutputFile(run, input, quint32(inputSize), payload);
    run.Env().DebugTrace("leave Packer::PackToDLL(): result=%d", code);
    return code;
}
