// SPDX-License-Identifier: MIT
#include "PackPaths.h"

#include "Environment.h"
#include "FilePlace.h"
#include "HostFiles.h"
#include "OutputFile.h"
#include "Paths.h"

namespace
{

/// The side file of an input: in the folder "arm" beside it, with the extension "res".
QByteArray SideFile(const QString &input)
{
    const QByteArray host = OutputPath(input);
    const qsizetype name = host.lastIndexOf('/') + 1;
    const qsizetype dot = host.lastIndexOf('.');
    const QByteArray title = dot < name ? host.mid(name) + '.' : host.mid(name, dot + 1 - name);
    return OutputPath(QString::fromUtf8(host.left(name) + "arm/" + title + "res"));
}

} // namespace

PackPaths PackPaths::Of(const Environment &env, const packinfo &info)
{
    return {HostPath(env.NarrowToWide(info.inputfilename)), OutputPath(env.NarrowToWide(info.outputfilename)),
            info.packmode == PACK_TO_TARGET ? SideFile(env.NarrowToWide(info.inputfilename)) : QByteArray(),
            HostPath(info.depfile)};
}

namespace
{

/// Returns whether two files that may not exist yet have one name in one folder.
bool IsSameName(const QByteArray &a, const QByteArray &b)
{
    const auto name = [](const QByteArray &path) { return path.sliced(path.lastIndexOf('/') + 1); };
    return name(a) == name(b) && IsSameFile(FolderOf(a), FolderOf(b));
}

} // namespace

QString PackPaths::SameFileText() const
{
    const auto compare = [](const char *what, const QByteArray &a, const char *asWhat, const QByteArray &b) {
        return !a.isEmpty() && !b.isEmpty() && (a == b || IsSameFile(a, b) || IsSameName(a, b))
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
