// SPDX-License-Identifier: MIT
#include "ElfImage.h"
#include "OutputFile.h"
#include "PackRun.h"

#include <unistd.h>

namespace
{

/// Writes the input, grown by the payload, to the temporary file.
int WriteTarget(PackRun &run, ElfImage &elf, QByteArrayView payload, OutputFile &output)
{
    Environment &env = run.Env();
    AddResSection(elf, payload);
    if (const int code = SetElfLayout(env, elf))
        return code;
    env.FlushOutput();
    if (const int error = output.Begin(run.outputHost, RightsOfInput(elf.file))) {
        env.DebugTrace("[error] could not open file while write data to file: %s", run.outputHost.constData());
        return error;
    }
    return WriteElf(env, elf, output, run.outputHost);
}

/// Writes the payload alone to the temporary file.
int WriteSideFile(PackRun &run, OutputFile &side)
{
    Environment &env = run.Env();
    QByteArrayView payload;
    if (const int code = BuildPayload(run, EntryPadding::FourBytes, 0, {}, payload))
        return code;
    env.FlushOutput();
    const QByteArray &path = run.sideHost;
    if (const int error = side.Begin(path, {})) {
        env.DebugTrace("[error] could not open file while write data into resfile: %s\n", path.constData());
        return error;
    }
    if (!side.Write(payload)) {
        env.DebugTrace("[error] write res data into resfile error: %s\n", path.constData());
        return PACK_WRITE;
    }
    return PACK_OK;
}

} // namespace

quint64 BaseOfSection(const Environment &env, const ElfImage &elf)
{
    return env.settings.String("ResID", "relativeoffset", "1") == u"1" ? 0 : elf.PayloadOffset();
}

int Packer::PackToTarget(PackRun &run)
{
    Environment &env = run.Env();
    OutputFile output(env);
    {
        ElfImage elf;
        if (const int code = ReadElf(env, QString::fromUtf8(run.inputHost), elf)) {
            env.DebugTrace("Parse zxa file failed.\n");
            return code;
        }
        QByteArrayView payload;
        if (const int code = BuildPayload(run, EntryPadding::FourBytes, BaseOfSection(env, elf), {}, payload))
            return code;
        if (const int code = WriteTarget(run, elf, payload, output))
            return code;
    }
    const int code = WriteResFile(run, output);
    env.DebugTrace("leave Packer::PackToTarget(): result=%d", code);
    return code;
}

/// Both files are put in place together, once both are complete. If the side file fails, the output is put in place
/// anyway.
int Packer::WriteResFile(PackRun &run, OutputFile &output)
{
    Environment &env = run.Env();
    OutputFile side(env);
    int code = WriteSideFile(run, side);
    const SignalHold together;
    if (const int error = output.PutInPlace())
        return error;
    if (code == PACK_OK)
        code = side.PutInPlace();
    if (code != PACK_OK && access(run.sideHost.constData(), F_OK) == 0)
        env.Explain(QStringLiteral("%1 was left by an earlier pack and doesn't belong to %2")
                        .arg(QString::fromUtf8(run.sideHost), QString::fromUtf8(run.outputHost)));
    return code;
}
