// SPDX-License-Identifier: MIT
#include "Packer.h"

#include "FilePlace.h"
#include "OutputFile.h"
#include "PackPaths.h"
#include "PackRun.h"
#include "Paths.h"
#include "ProjectFiles.h"

namespace
{

void TraceParameters(Environment &env, const packinfo &info)
{
    env.DebugTrace("Pack Parameters:");
    env.DebugTrace("packinfo.inputfilename=%s\n", env.Shown(info.inputfilename).constData());
    env.DebugTrace("packinfo.outputfilename=%s\n", env.Shown(info.outputfilename).constData());
    env.DebugTrace("packinfo.packmode=%d (0=PACK_TO_TARGET, 1=PACK_TO_DLL)\n", info.packmode);
    env.DebugTrace("packinfo.scope=%d\n", info.scope);
    env.DebugTrace("packinfo.imageconvert=%d\n", info.imageconvert);
    env.DebugTrace("packinfo.ver=%d\n", info.ver);
}

int RefuseSameFile(Environment &env, const packinfo &info, const QString &reason)
{
    env.DebugTrace("[error] the packed file and output file cannot be same : %s",
                   env.Shown(info.outputfilename).constData());
    env.Explain(reason);
    return PACK_SAME_FILE;
}

} // namespace

int Packer::Pack(const packinfo &parameters, CResModel &document, std::vector<QByteArray> *inputs)
{
    Environment &env = document.env;
    packinfo info = parameters;
    env.WriteOutput("\r\npack resource started\r\n");
    if (info.inputfilename.isEmpty()) {
        env.DebugTrace("[error] the packed file name empty");
        return PACK_NO_INPUT;
    }
    if (info.inputfilename == info.outputfilename)
        return RefuseSameFile(
            env, info, QStringLiteral("%1 is both the input and the output").arg(env.NarrowToWide(info.inputfilename)));
    if (info.outputfilename.isEmpty())
        info.outputfilename = info.inputfilename + ".pkd";
    const PackPaths paths = PackPaths::Of(env, info);
    if (const QString same = paths.SameFileText(); !same.isEmpty())
        return RefuseSameFile(env, info, same);
    OutputGuard guard({paths.output, paths.side, paths.depfile});
    CompareProjectFiles(guard, info, document);
    if (guard.HasClash())
        return RefuseSameFile(env, info, guard.ClashText());
    TraceParameters(env, info);
    const ScratchFolder scratch(info.temp.isEmpty() ? "" : AbsoluteHost(OutputPath(info.temp)));
    if (!scratch.Prepare(env))
        return PACK_TEMP_FOLDER;

    PackRun run{document, info,        guard,        PackFiles(inputs, guard, info.fileMemory),
                scratch,  paths.input, paths.output, paths.side};
    int code = PACK_UNKNOWN_MODE;
    if (info.packmode == PACK_TO_TARGET)
        code = PackToTarget(run);
    else if (info.packmode == PACK_TO_DLL)
        code = PackToDLL(run);
    else
        return code;
    env.WriteOutput("\r\npack resource done, result=%d\r\n", code);
    return code;
}

namespace
{

/// Compares the payload with the budget. A trial notes the sizes.
int CheckSize(PackRun &run, const PackImage &image)
{
    const quint64 budget = run.info.budget;
    QString over = OverBudgetText(image.Total(), budget);
    std::vector<PackedSize> largest;
    if (run.trial || !over.isEmpty())
        largest = LargestResources(image, run.Env(), LARGEST_NAMED);
    if (!over.isEmpty())
        over += QStringLiteral("; the largest resources are") + SizeLines(largest);
    if (run.trial) {
        run.trial->payload = image.Total();
        run.trial->largest = std::move(largest);
    }
    if (over.isEmpty())
        return PACK_OK;
    run.Env().Explain(over);
    return AfterStep(run.trial, PACK_BUDGET);
}

} // namespace

int BuildPayload(PackRun &run, quint64 base, PackImage &image)
{
    image.room = run.info.fileMemory;
    image.folder = run.scratch.IsNamed() ? run.scratch.Path() : FolderOf(run.outputHost);
    PackContext context{run.document, run.info,       image,     run.files,
                        run.scratch,  run.converters, run.trial, DirectoryOf(run.document.PathName())};
    if (const int code = ConstructResources(context))
        return code;
    if (run.guard.HasClash()) {
        const int code = RefuseSameFile(run.Env(), run.info, run.guard.ClashText());
        if (AfterStep(run.trial, code) != 0)
            return code;
    }
    if (run.trial && !run.trial->isExact)
        return PACK_OK;
    image.base = qint64(base);
    if (run.info.options.sorted)
        image.SortItems();
    if (!image.LayOut())
        return AfterStep(run.trial, PACK_MEMORY);
    return CheckSize(run, image);
}
