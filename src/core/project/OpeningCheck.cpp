// SPDX-License-Identifier: MIT
#include "OpeningCheck.h"

#include "CResDoc.h"
#include "ConflictMarkers.h"
#include "Environment.h"
#include "FileFault.h"
#include "HostFiles.h"
#include "Paths.h"
#include "Profile.h"
#include "ProjectContext.h"
#include "V1ResourceList.h"

#include <cerrno>
#include <utility>

using namespace Qt::StringLiterals;

OpeningCheck::OpeningCheck(Environment &environment, const ProcessTables &processTables, QString path,
                           CResDoc *document)
    : env(environment), tables(processTables), projectPath(std::move(path)), doc(document)
{
}

std::vector<Finding> OpeningCheck::SilentReasons() const
{
    std::vector<Finding> reasons;
    AddConflictMarkers(reasons);
    AddMissingSizes(reasons);
    return reasons;
}

std::vector<Finding> OpeningCheck::AllReasons() const
{
    std::vector<Finding> reasons = SilentReasons();
    const std::vector<Finding> found = doc ? doc->findings.All() : std::vector<Finding>();
    reasons.insert(reasons.end(), found.begin(), found.end());
    if (!doc)
        reasons.push_back(
            {"project.unreadable", Severity::Error, projectPath, 0, {}, u"the project can't be opened"_s});
    else if (found.empty() && env.ErrorCount + env.DroppedCount > 0)
        reasons.push_back(
            {"project.errors", Severity::Error, projectPath, 0, {}, u"opening the project reported an error"_s});
    return reasons;
}

std::optional<Finding> OpeningCheck::UnlistedResolution(int width, int height) const
{
    const CResoTable &sizes = tables.resolutions;
    if (sizes.IndexOf(width, height) >= 0)
        return std::nullopt;
    QStringList known;
    for (int i = 0; i < sizes.Count(); ++i)
        known.append(QString::fromUtf8(sizes.At(i).name));
    return Finding{"settings.size-unlisted",
                   Severity::Error,
                   SizesFile(),
                   0,
                   {},
                   u"the list of screen sizes doesn't contain %1x%2, so the pack would have no pictures for that "
                   "screen; the list contains %3"_s.arg(width)
                       .arg(height)
                       .arg(known.isEmpty() ? u"no sizes"_s : known.join(u", "_s))};
}

QString OpeningCheck::SizesFile() const
{
    const QString file = env.settings.String("Path", "reso_set");
    return ResolvePath(file.isEmpty() ? u"Morvanite.ini"_s : file, env.ProgramDir());
}

void OpeningCheck::AddMissingSizes(std::vector<Finding> &reasons) const
{
    if (tables.resolutions.Count() > 0)
        return;
    const QString file = SizesFile();
    const bool isNamed = !env.settings.String("Path", "reso_set").isEmpty();
    QString text = u"there is no list of screen sizes, so the project's pictures and layouts are left out: "_s;
    Profile content;
    if (const int error = Profile::Read(file, content); error == ENOENT)
        text += isNamed ? u"the key reso_set in section Path of Morvanite.ini names this file, but it does not exist "
                          u"or is a link to nothing; install it again or correct the key"_s
                        : u"this file, which has the program's settings, does not exist or is a link to nothing; "
                          u"install it again"_s;
    else if (error != 0)
        text += u"this file can't be read: "_s + ReadFault(error);
    else if (!isNamed)
        text += u"the key reso_set in section Path does not name one; add the line reso_set=resolutions.ini there"_s;
    else
        text += u"this file has no section Resolution with lines such as 240x320"_s;
    reasons.push_back({"settings.no-sizes", Severity::Error, file, 0, {}, text});
}

void OpeningCheck::AddConflictMarkers(std::vector<Finding> &reasons) const
{
    QStringList files;
    if (doc) {
        files = doc->ProjectFiles();
    } else {
        const ProjectPaths paths(projectPath, env);
        files = {paths.ConfigPath(), paths.Absolute(paths.ResourcePath()), paths.Absolute(paths.StringPath())};
    }
    const QString folder = DirectoryOf(projectPath);
    HostPaths paths; // most projects have none of these files
    for (const QString &file : {folder + u"/morvanite.ini"_s, folder + u"/preview.lst"_s, V1ListPath(projectPath)}) {
        if (paths.Exists(file))
            files.append(file);
    }
    for (const QString &file : files) {
        for (const ConflictMarker &found : FindConflictMarkers(file))
            reasons.push_back(
                {"project.conflict-marker",
                 Severity::Error,
                 file,
                 found.line,
                 {},
                 u"the line begins with \"%1\": a merge has left a conflict in the file"_s.arg(found.marker)});
    }
}

QString FindingText(const Finding &finding)
{
    const QString place = finding.line > 0 ? u"%1:%2"_s.arg(finding.file).arg(finding.line) : finding.file;
    return place + u": "_s + finding.text;
}
