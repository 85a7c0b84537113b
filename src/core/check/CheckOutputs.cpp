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
#include "Xml.h"

using namespace Qt::StringLiterals;

namespace
{

/// Compares the files that the elements <File> below a node of the project file name, for the build of the application.
void CompareBuildFiles(OutputGuard &guard, const TiXmlNode &node, const QString &folder, HostPaths &hosts)
{
    const TiXmlElement *const element = node.ToElement();
    const char *const path = element && element->ValueStr() == "File" ? element->Attribute("RelativePath") : nullptr;
    if (path)
        guard.Compare(hosts.Resolve(ResolvePath(QString::fromUtf8(path), folder)));
    for (const TiXmlNode *child = node.FirstChild(); child; child = child->NextSibling())
        CompareBuildFiles(guard, *child, folder, hosts);
}

} // namespace

QString ClashOfOutputs(const QStringList &outputs, Environment &env, const QString &project, CResDoc *document,
                       const CheckSettings &settings, IfBuildFile ifBuildFile)
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
    // The load needs no project file, so one that is missing or isn't XML is no fault here.
    TiXmlDocument projectFile;
    if (ifBuildFile == IfBuildFile::Refuse && LoadXml(env, project, projectFile) == 0) {
        HostPaths paths;
        CompareBuildFiles(guard, projectFile, DirectoryOf(project), paths);
    }
    guard.Compare(HostPath(settings.file));
    for (const QString &pattern : settings.sourceFiles) {
        for (const QString &source : FilesOfPattern(DirectoryOf(project), pattern))
            guard.Compare(HostPath(source));
    }
    return guard.HasClash() ? guard.ClashText() : QString();
}
