// SPDX-License-Identifier: MIT
#include "PackTrial.h"

#include "ElfImage.h"
#include "Environment.h"
#include "OutputFile.h"
#include "PackCodes.h"
#include "PackFailure.h"
#include "PackPaths.h"
#include "PackRun.h"
#include "ProjectFiles.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

void CheckOutput(PackTrial &trial, const QByteArray &host, const OutputRights &rights)
{
    if (const int error = ErrorOfOutput(host, rights))
        trial.Note(error, QString::fromUtf8(host));
}

void TryTarget(PackRun &run)
{
    PackTrial &trial = *run.trial;
    ElfImage elf;
    const int code = ReadElf(run.Env(), QString::fromUtf8(run.inputHost), elf);
    if (code != 0)
        trial.Note(code, QString::fromUtf8(run.inputHost));
    PackImage image(run.memory, EntryPadding::FourBytes);
    (void)BuildPayload(run, BaseOfSection(run.Env(), elf), image);
    if (code != 0 || trial.payload == 0)
        return;
    AddResSection(elf, trial.payload);
    if (const int tooLarge = SetElfLayout(run.Env(), elf))
        trial.Note(tooLarge, QString::fromUtf8(run.outputHost));
    else
        trial.output = elf.Size();
}

void TryDll(PackRun &run)
{
    PackTrial &trial = *run.trial;
    const FileHandle input = OpenRead(QString::fromUtf8(run.inputHost));
    const qint64 size = input.IsOpen() ? input.Size() : -1;
    const bool isThere = size >= 0;
    if (!isThere)
        trial.Note(PACK_INPUT_SIZE, QString::fromUtf8(run.inputHost));
    PackImage image(run.memory, EntryPadding::None);
    const quint64 inputSize = isThere ? quint64(size) : 0;
    (void)BuildPayload(run, PackedDll::PayloadOffset(inputSize), image);
    if (isThere && trial.payload != 0)
        trial.output = PackedDll::Size(inputSize, trial.payload);
}

} // namespace

void PackTrial::Note(int code, const QString &about)
{
    faults.push_back({code, about, reasons.isEmpty() ? PackFailureText(code) : reasons.join(u"; "_s)});
    reasons.clear();
}

int AfterStep(PackTrial *trial, int code, const QString &about)
{
    if (code == 0 || !trial)
        return code;
    trial->Note(code, about);
    return 0;
}

TrialOutput::TrialOutput(Environment &environment, PackTrial &packTrial)
    : env(environment), output(std::exchange(environment.output, {})),
      explain(
          std::exchange(environment.explain, [&packTrial](const QString &text) { packTrial.reasons.append(text); })),
      failures(environment.FailureCount)
{
}

TrialOutput::~TrialOutput()
{
    env.output = std::move(output);
    env.explain = std::move(explain);
    env.FailureCount = failures;
}

void Packer::Try(const packinfo &parameters, CResModel &document, PackTrial &trial)
{
    Environment &env = document.env;
    const TrialOutput quiet(env, trial);
    packinfo info = parameters;
    if (info.outputfilename.isEmpty())
        info.outputfilename = info.inputfilename + ".pkd";
    const PackPaths paths = PackPaths::Of(env, info);
    if (const QString same = paths.SameFileText(); !same.isEmpty()) {
        trial.reasons.append(same);
        trial.Note(PACK_SAME_FILE, {});
    }
    OutputGuard guard({paths.output, paths.side, paths.depfile});
    CompareProjectFiles(guard, info, document);
    const ScratchFolder scratch(info.temp.isEmpty() ? "" : AbsoluteHost(OutputPath(info.temp)));
    if (!scratch.IsUsable(env))
        trial.Note(PACK_TEMP_FOLDER, {});
    PackRun run{document,     info,       guard, PackFiles(nullptr, guard, 0, true), scratch, paths.input,
                paths.output, paths.side, &trial};
    if (info.packmode == PACK_TO_TARGET)
        TryTarget(run);
    else
        TryDll(run);
    CheckOutput(trial, paths.output, {.replacesReadOnly = true});
    if (!paths.side.isEmpty())
        CheckOutput(trial, paths.side, {});
}

void Packer::Measure(const packinfo &info, CResModel &document, PackTrial &trial)
{
    trial.isOfResources = true;
    const TrialOutput quiet(document.env, trial);
    OutputGuard guard({});
    PackRun run{document, info, guard, PackFiles(nullptr, guard, 0, true), ScratchFolder({}), {}, {}, {}, &trial};
    PackImage image(run.memory, info.packmode == PACK_TO_TARGET ? EntryPadding::FourBytes : EntryPadding::None);
    (void)BuildPayload(run, 0, image);
}
