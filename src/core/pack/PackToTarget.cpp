#include "ElfImage.h"
#include "OutputFile.h"
#include "PackRun.h"

#include <cerrno>

namespace
{

/// Grows a copy of the input by the payload.
int WriteTarget(PackRun &run, ElfImage &elf, QByteArrayView payload)
{
    AddResSection(elf, payload);
    if (const int code = SetElfLayout(run.Env(), elf))
        return code;
    if (const int code = CopyToOutput(run.Env(), elf.file, run.outputHost))
        return code;
    return WriteElf(run.Env(), elf, QString::fromUtf8(run.outputHost));
}

} // namespace

int Packer::PackToTarget(PackRun &run)
{
    Environment &env = run.Env();
    {
        ElfImage elf;
        if (const int code = ReadElf(env, QString::fromUtf8(run.inputHost), elf)) {
            env.DebugTrace("Parse zxa file failed.\n");
            return code;
        }
        const bool fromSection = env.settings.String("ResID", "relativeoffset", "1") == u"1";
        const quint64 base = fromSection ? 0 : elf.PayloadOffset();
        QByteArrayView payload;
        if (const int code = BuildPayload(run, EntryPadding::FourBytes, base, {}, payload))
            return code;
        if (const int code = WriteTarget(run, elf, payload))
            return code;
    }
    const int code = WriteResFile(run);
    env.DebugTrace("leave Packer::PackToTarget(): result=%d", code);
    return code;
}

int Packer::WriteResFile(PackRun &run)
{
    Environment &env = run.Env();
    QByteArrayView payload;
    if (const int code = BuildPayload(run, EntryPadding::FourBytes, 0, {}, payload))
        return code;
    env.FlushOutput();
    const QByteArray &path = run.sideHost;
    const FileHandle file = CreateOutput(path);
    if (!file.IsOpen()) {
        const int error = errno;
        env.DebugTrace("[error] could not open file while write data into resfile: %s\n", path.constData());
        return error;
    }
    if (!file.WriteAll(payload.data(), size_t(payload.size()))) {
        env.DebugTrace("[error] write res data into resfile error: %s\n", path.constData());
        return PACK_WRITE;
    }
    return PACK_OK;
}
