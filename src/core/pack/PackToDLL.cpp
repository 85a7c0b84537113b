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

int WriteOutputFile(PackRun &run, const FileHandle &input, quint32 inputSize, QByteArrayView payload)
{
    Environment &env = run.Env();
    env.FlushOutput();
    OutputFile output(env);
    if (const int error = output.Begin(run.outputHost, RightsOfInput(input))) {
        env.DebugTrace("[error] could not open file while write data to file: %s", run.outputHost.constData());
        return error;
    }
    const qint64 copied = output.Copy(input);
    if (copied >= 0 && copied != inputSize) {
        env.Explain(QStringLiteral("%1 had %2 bytes when it was read, but %3 when it was copied")
                        .arg(QString::fromUtf8(run.inputHost))
                        .arg(inputSize)
                        .arg(copied));
        return int(ElfCode::InputChanged);
    }
    char trailer[4];
    qToLittleEndian(inputSize, trailer);
    if (copied < 0 || !output.Write(payload) || !output.Write({trailer, sizeof trailer})) {
        env.DebugTrace("[error] write res data to file error.\n");
        return PACK_WRITE;
    }
    return output.PutInPlace();
}

} // namespace

int Packer::PackToDLL(PackRun &run)
{
    const FileHandle input = FileHandle::OpenRead(QString::fromUtf8(run.inputHost));
    const qint64 inputSize = input.IsOpen() ? input.Size() : -1;
    if (inputSize < 0) {
        run.Env().Explain(QStringLiteral("cannot read %1: %2")
                              .arg(QString::fromUtf8(run.inputHost), QString::fromLocal8Bit(strerror(errno))));
        return PACK_INPUT_SIZE;
    }
    QByteArrayView payload;
    const quint64 base = PackedDll::PayloadOffset(quint64(inputSize));
    if (const int code = BuildPayload(run, EntryPadding::None, base, {PAYLOAD_NAME, sizeof PAYLOAD_NAME}, payload))
        return code;
    const int code = WriteOutputFile(run, input, quint32(inputSize), payload);
    run.Env().DebugTrace("leave Packer::PackToDLL(): result=%d", code);
    return code;
}
