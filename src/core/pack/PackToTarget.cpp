// SPDX-License-Identifier: MIT
#include "ElfImage.h"
#include "LogCopy.h"
#include "OutputFile.h"
#include "PackRun.h"

#include <functional>
#include <optional>
#include <unistd.h>

namespace
{

/// Writes the input, grown by the payload, to the temporary file.
int WriteTarget(PackRun &run, ElfImage &elf, const PackImage &image, OutputFile &output)
{
    Environment &env = run.Env();
    AddResSection(elf, image.Total());
    if (const int code = SetElfLayout(env, elf))
        return code;
    if (const int code = image.CheckParts(env))
        return code;
    env.FlushOutput();
    if (const int error = output.Begin(run.outputHost, RightsOfInput(elf.file))) {
        env.DebugTrace("[error] could not open file while write data to file: %s", run.outputHost.constData());
        return error;
    }
    return WriteElf(env, elf, output, run.outputHost, [&](OutputFile &to) { return image.Write(env, to); });
}

/// Writes the payload alone to the temporary file.
int WriteSideFile(PackRun &run, OutputFile &side, const std::function<int()> &writePayload)
{
    Environment &env = run.Env();
    env.FlushOutput();
    const QByteArray &path = run.sideHost;
    if (const int error = side.Begin(path, {})) {
        env.DebugTrace("[error] could not open file while write data into resfile: %s\n", path.constData());
        return error;
    }
    const int code = writePayload();
    if (code == PACK_WRITE)
        env.DebugTrace("[error] write res data into resfile error: %s\n", path.constData());
    return code;
}

/// Both files are put in place together, once both are complete. If the side file fails with `code`, the output is put
/// in place anyway.
int PutInPlace(PackRun &run, OutputFile &output, OutputFile &side, int code)
{
    const SignalHold together;
    if (const int error = output.PutInPlace())
        return error;
    if (code == PACK_OK)
        code = side.PutInPlace();
    if (code != PACK_OK && access(run.sideHost.constData(), F_OK) == 0)
        run.Env().Explain(QStringLiteral("%1 was left by an earlier pack and doesn't belong to %2")
                              .arg(QString::fromUtf8(run.sideHost), QString::fromUtf8(run.outputHost)));
    return code;
}

/// Writes the side file's payload, which is that of the finished output.
int CopySection(const PackRun &run, const ElfImage &elf, qint64 size, const FileHandle &output, OutputFile &side)
{
    const bool isWhole = side.Copy(output, run.outputHost, qint64(elf.PayloadOffset()), size) == size && side.Flush();
    return isWhole ? PACK_OK : PACK_WRITE;
}

} // namespace

quint64 BaseOfSection(const Environment &env, const ElfImage &elf)
{
    return env.settings.String("ResID", "relativeoffset", "1") == u"1" ? 0 : elf.PayloadOffset();
}

int Packer::PackToTarget(PackRun &run)
{
    Environment &env = run.Env();
    ElfImage elf;
    if (const int code = ReadElf(env, QString::fromUtf8(run.inputHost), elf)) {
        env.DebugTrace("Parse zxa file failed.\n");
        return code;
    }
    const quint64 base = BaseOfSection(env, elf);
    std::optional<LogCopy> phases;
    if (run.info.options.once && base == 0)
        phases.emplace(env);
    std::optional<PackImage> image(std::in_place, run.memory, EntryPadding::FourBytes);
    if (const int code = BuildPayload(run, base, *image))
        return code;
    if (phases)
        phases->End();
    OutputFile output(env);
    if (const int code = WriteTarget(run, elf, *image, output))
        return code;

    OutputFile side(env);
    int code = PACK_OK;
    if (phases && output.Made()) {
        phases->Repeat();
        const qint64 size = qint64(image->Total());
        image.reset(); // the side file may need the room that its temporary file has on the disk
        code = WriteSideFile(run, side, [&] { return CopySection(run, elf, size, *output.Made(), side); });
    } else {
        if (phases) {
            phases->Repeat();
        } else {
            image.emplace(run.memory, EntryPadding::FourBytes);
            code = BuildPayload(run, 0, *image);
        }
        if (code == PACK_OK)
            code = image->CheckParts(env);
        if (code == PACK_OK)
            code = WriteSideFile(run, side, [&] { return image->Write(env, side); });
    }
    code = PutInPlace(run, output, side, code);
    env.DebugTrace("leave Packer::PackToTarget(): result=%d", code);
    return code;
}
