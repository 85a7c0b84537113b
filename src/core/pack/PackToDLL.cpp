// SPDX-License-Identifier: MIT
#include "ElfImage.h"
#include "OutputFile.h"
#include "PackRun.h"
#include "PayloadFormat.h"

#include <QtEndian>

#include <cerrno>
#include <cstring>

// A packed DLL: the input's bytes, PAYLOAD_NAME, the payload, and the input's size in 4 bytes, little-endian. A reader
// uses that last field to find the name.

namespace
{

int WriteOutputFile(PackRun &run, const FileHandle &input, quint32 inputSize, const PackImage &image)
{
    Environment &env = run.Env();
    if (const int code = image.CheckParts(env))
        return code;
    env.FlushOutput();
    OutputFile output(env);
    if (const int error = output.Begin(run.outputHost, RightsOfInput(input))) {
        env.DebugTrace("[error] could not open file while write data to file: %s", run.outputHost.constData());
        return error;
    }
    const qint64 copied = output.Copy(input, run.inputHost);
    if (copied >= 0 && copied != inputSize) {
        env.Explain(QStringLiteral("%1 had %2 bytes when it was read, but %3 when it was copied")
                        .arg(QString::fromUtf8(run.inputHost))
                        .arg(inputSize)
                        .arg(copied));
        return int(ElfCode::InputChanged);
    }
    int code = copied >= 0 && output.Write({PAYLOAD_NAME, sizeof PAYLOAD_NAME}) ? image.Write(env, output) : PACK_WRITE;
    char trailer[4];
    qToLittleEndian(inputSize, trailer);
    if (code == PACK_OK && !(output.Write({trailer, sizeof trailer}) && output.Flush()))
        code = PACK_WRITE;
    if (code == PACK_WRITE)
        env.DebugTrace("[error] write res data to file error.\n");
    return code == PACK_OK ? output.PutInPlace() : code;
}

} // namespace

int Packer::PackToDLL(PackRun &run)
{
    const FileHandle input = OpenRead(QString::fromUtf8(run.inputHost));
    const qint64 inputSize = input.IsOpen() ? input.Size() : -1;
    if (inputSize < 0) {
        run.Env().Explain(QStringLiteral("cannot read %1: %2")
                              .arg(QString::fromUtf8(run.inputHost), QString::fromLocal8Bit(strerror(errno))));
        return PACK_INPUT_SIZE;
    }
    PackImage image(run.memory, EntryPadding::None);
    if (const int code = BuildPayload(run, PackedDll::PayloadOffset(quint64(inputSize)), image))
        return code;
    const int code = WriteOutputFile(run, input, quint32(inputSize), image);
    run.Env().DebugTrace("leave Packer::PackToDLL(): result=%d", code);
    return code;
}
