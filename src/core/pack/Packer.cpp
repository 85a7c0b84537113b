// SPDX-License-Identifier: MIT
#include "Packer.h"

#include "OutputFile.h"
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

/// The side file of an input: in the folder "arm" beside it, with the extension "res".
QByteArray SideFile(const QString &input)
{
    const QByteArray host = OutputPath(input);
    const qsizetype name = host.lastIndexOf('/') + 1;
    const qsizetype dot = host.lastIndexOf('.');
    const QByteArray title = dot < name ? host.mid(name) + '.' : host.mid(name, dot + 1 - name);
    return OutputPath(QString::fromUtf8(host.left(name) + "arm/" + title + "res"));
}

int RefuseSameFile(Environment &env, const packinfo &info, const QString &reason)
{
    env.DebugTrace("[error] the packed file and output file cannot be same : %s",
                   env.Shown(info.outputfilename).constData());
    env.Explain(reason);
    return PACK_SAME_FILE;
}

/// Says which two files of a pack are the same file, whatever their names; empty if there are none.
QString FindSameFile(const QByteArray &input, const QByteArray &output, const QByteArray &side,
                     const QByteArray &depfile)
{
    const auto compare = [](const char *what, const QByteArray &a, const char *asWhat, const QByteArray &b) {
        return (a == b && !a.isEmpty()) || IsSameFile(a, b)
                   ? QStringLiteral("the %1 %2 is the same file as the %3 %4")
                         .arg(QLatin1String(what), QString::fromUtf8(a), QLatin1String(asWhat), QString::fromUtf8(b))
                   : QString();
    };
    for (const QString &found :
         {compare("output", output, "input", input), compare("side file", side, "input", input),
          compare("output", output, "side file", side), compare("dependency file", depfile, "input", input),
          compare("dependency file", depfile, "output", output),
          compare("dependency file", depfile, "side file", side)}) {
        if (!found.isEmpty())
            return found;
    }
    return {};
}

QString ProjectFileText(const OutputGuard &guard)
{
    return QStringLiteral("%1 is not written because it is the same file as %2 of the project")
        .arg(QString::fromUtf8(guard.Output()), QString::fromUtf8(guard.File()));
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
    const QByteArray inputHost = HostPath(env.NarrowToWide(info.inputfilename));
    const QByteArray outputHost = OutputPath(env.NarrowToWide(info.outputfilename));
    const QByteArray sideHost = info.packmode == PACK_TO_TARGET ? SideFile(env.NarrowToWide(info.inputfilename)) : "";
    const QByteArray depfileHost = HostPath(info.depfile);
    // The names may differ in spelling, or one may be a link; writing one file would destroy the other.
    if (const QString found = FindSameFile(inputHost, outputHost, sideHost, depfileHost); !found.isEmpty())
        return RefuseSameFile(env, info, found);
    OutputGuard guard({outputHost, sideHost, depfileHost});
    CompareProjectFiles(guard, info, document);
    if (guard.HasClash())
        return RefuseSameFile(env, info, ProjectFileText(guard));
    TraceParameters(env, info);
    const ScratchFolder scratch(info.temp.isEmpty() ? "" : AbsoluteHost(OutputPath(info.temp)));
    if (!scratch.Prepare(env))
        return PACK_TEMP_FOLDER;

    PackRun run{document, info, guard, PackFiles(inputs, guard), scratch, inputHost, outputHost, sideHost};
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

int BuildPayload(PackRun &run, EntryPadding padding, quint64 base, QByteArrayView prefix, QByteArrayView &payload)
{
    PackImage image(run.memory, padding);
    PackContext context{run.document, run.info, image, run.files, run.scratch, DirectoryOf(run.document.PathName())};
    if (const int code = ConstructResources(context))
        return code;
    if (run.guard.HasClash())
        return RefuseSameFile(run.Env(), run.info, ProjectFileText(run.guard));
    image.base = qint64(base);
    if (!image.LayOut())
        return PACK_MEMORY;
    payload = image.Serialise(prefix);
    return payload.isNull() ? PACK_MEMORY : PACK_OK;
}
