// SPDX-License-Identifier: MIT
#include "CheckOutputs.h"

#include "CResDoc.h"
#include "HostFiles.h"
#include "OutputGuard.h"
#include "Paths.h"
#include "ProjectContext.h"
#include "ProjectFiles.h"
#include "ProjectInputs.h"
#include "SourceFiles.h"

using namespace Qt::StringLiterals;

QString ClashOfOutputs(const QStringList &outputs, Environment &env, const QString &project, CResDoc *document,
                       const CheckSettings &settings)
{
    std::vector<QByteArray> hosts;
    for (const QString &output : outputs) {
        if (!output.isEmpty())
            hosts.push_back(HostPath(output));
    }
    if (hosts.size() > 1 && hosts.front() == hosts.back())
        return u"%1 is not written because both outputs have this name"_s.arg(QString::fromUtf8(hosts.front()));
    OutputGuard guard(hosts);
    if (!guard.IsNeeded())
        return {};
    if (document) {
        CompareAllProjectFiles(guard, ProjectInputs(*document), *document);
    } else {
        const ProjectPaths paths(project, env);
        for (const QString &file : {project, paths.ConfigPath(), paths.Absolute(paths.ResourcePath()),
                                    paths.Absolute(paths.StringPath()), DirectoryOf(project) + u"/morvanite.ini"_s})
            guard.Compare(HostPath(file));
    }
    guard.Compare(HostPath(settings.file));
    for (const QString &pattern : settings.sourceFiles) {
        for (const QString &source : FilesOfPattern(DirectoryOf(project), pattern))
            guard.Compare(HostPath(source));
    }
    return guard.HasClash() ? guard.ClashText() : QString();
}
