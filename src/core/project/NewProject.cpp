// SPDX-License-Identifier: MIT
#include "NewProject.h"

#include "CResDoc.h"
#include "LanguageFolders.h"
#include "ListedSize.h"
#include "NewProjectTexts.h"
#include "Paths.h"
#include "ProjectContext.h"
#include "ProjectFolders.h"
#include "RowBuilder.h"
#include "StringFile.h"
#include "StringFileFormat.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr qsizetype LONGEST_NAME = 64;

bool IsLetterOrDigit(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9');
}

/// Fills the tree of a document as it is after a load of the new project.
void Fill(CResDoc &doc, const NewProjectChoice &choice)
{
    const CResoTable &sizes = doc.tables.resolutions;
    MakeProjectFolders(doc, sizes.IndexOf(choice.resolutions.front().width, choice.resolutions.front().height));
    const bool hasLayouts = doc.root.FindFolder(KIND_LAYOUTS, 1) != nullptr;
    for (const ScreenSize &size : choice.resolutions) {
        doc.UseResolutionImages(sizes.IndexOf(size.width, size.height));
        if (hasLayouts)
            doc.UseResolutionLayouts(sizes.IndexOf(size.width, size.height));
    }
    LanguageFolders folders(doc);
    RowBuilder title(doc, TITLE_ID);
    CResFolder &descriptions = folders.Ensure(StringFileFormat::DESCRIPTION, {});
    if (choice.hasBuild)
        title.Add(descriptions, u"The name of the application [same]"_s);
    for (const KnownLanguage &language : choice.languages) {
        CResFolder &folder = folders.Ensure(language.number, language.name);
        if (choice.hasBuild)
            title.Add(folder, choice.name);
    }
}

QByteArray StringFileBytes(const CResDoc &doc)
{
    QByteArray bytes;
    (void)PutStringFile(doc, [&](QByteArrayView piece) {
        bytes += piece;
        return 0;
    });
    return bytes;
}

/// Returns `path`, which is absolute, relative to the project's folder, with "/"; empty if it isn't below that.
QString Inside(const QString &path, const QString &folder)
{
    const QString canonical = CanonicalPath(path);
    return canonical.startsWith(folder + u'/') ? canonical.sliced(folder.size() + 1) : QString();
}

QString WhyNot(const NewProjectChoice &choice, const CResoTable &sizes)
{
    if (QString why = WhyNotProjectName(choice.name, choice.hasBuild); !why.isEmpty())
        return why;
    QFileInfo place(choice.folder);
    while (!place.exists() && !place.isRoot())
        place.setFile(place.path());
    if (!place.isDir())
        return u"\"%1\" isn't a folder; choose another one"_s.arg(place.filePath());
    if (choice.resolutions.empty() || choice.languages.empty())
        return u"a project needs at least one screen size and one language"_s;
    for (const ScreenSize &size : choice.resolutions) {
        if (QString why = WhyNotListed(sizes, size); !why.isEmpty())
            return why;
    }
    return {};
}

void AddGitFiles(NewFiles &files, const NewProjectChoice &choice, const ProjectPaths &paths)
{
    if (choice.git == GitForm::None)
        return;
    const QString headers = paths.Absolute(paths.env.settings.String("Path", "header_output", ".\\ResID"));
    const QString lists = Inside(DirectoryOf(paths.Absolute(paths.StringPath())), paths.dir);
    const QString strings = (lists.isEmpty() ? QString() : lists + u'/') + u"ref_list_*.txt"_s;
    files.Add(paths.dir + u"/.gitignore"_s, GitIgnoreText(choice, Inside(headers, paths.dir)));
    files.Add(paths.dir + u"/.gitattributes"_s, GitAttributesText(choice.git, strings));
}

} // namespace

QString PathOfNewProject(const NewProjectChoice &choice)
{
    return choice.folder + u'/' + choice.name + u".vcproj"_s;
}

QString WhyNotProjectName(const QString &name, bool hasBuild)
{
    static const QStringList RESERVED = {u"all"_s,  u"clean"_s,   u"edit_cache"_s,    u"help"_s,
                                         u"test"_s, u"install"_s, u"rebuild_cache"_s, u"package"_s};
    const bool hasOnlyAllowed =
        std::all_of(name.begin(), name.end(), [](QChar c) { return IsLetterOrDigit(c) || c == u'_' || c == u'-'; });
    if (name.isEmpty() || name.size() > LONGEST_NAME || !hasOnlyAllowed || !IsLetterOrDigit(name.front()))
        return u"a project can't have the name \"%1\": a name has 1 to %2 letters from a to z, digits, \"_\" and "
               "\"-\", and begins with a letter or a digit"_s.arg(name)
                   .arg(LONGEST_NAME);
    if (hasBuild && RESERVED.contains(name.toLower()))
        return u"a project with a CMake build can't have the name \"%1\", which CMake uses itself"_s.arg(name);
    return {};
}

std::optional<NewFiles> PlanNewProject(Environment &process, ProcessTables &tables, const NewProjectChoice &choice,
                                       QString &problem)
{
    const CFrameServices services;
    CResDoc doc(process, tables, services);
    problem = WhyNot(choice, tables.resolutions);
    if (!problem.isEmpty())
        return std::nullopt;
    doc.m_strPathName = PathOfNewProject(choice);
    if (!doc.env.UseProjectSettings(choice.folder)) {
        problem = u"the settings in the folder \"%1\" can't be used, so no project is made there"_s.arg(choice.folder);
        return std::nullopt;
    }
    Fill(doc, choice);

    const ProjectPaths paths(doc.PathName(), doc.env);
    const QString lists = paths.Absolute(paths.StringPath());
    if (lists.size() > LONGEST_PATH) {
        problem = u"the path \"%1\" has %2 characters, but at most %3 are allowed; choose a shorter path"_s.arg(lists)
                      .arg(lists.size())
                      .arg(LONGEST_PATH);
        return std::nullopt;
    }
    NewFiles files;
    files.Add(doc.PathName(), IdeProjectText(choice));
    files.Add(paths.ConfigPath(), ConfigText(choice.resolutions.front()));
    files.Add(paths.Absolute(paths.ResourcePath()), MakeResourceList(doc));
    files.Add(lists, StringFileBytes(doc));
    files.Add(choice.folder + u"/morvanite-check.ini"_s, CheckSettingsText(choice));
    AddGitFiles(files, choice, paths);
    if (choice.hasBuild) {
        files.Add(choice.folder + u"/CMakeLists.txt"_s, CMakeListsText(choice));
        files.Add(choice.folder + u"/arm.cmake"_s, ToolchainText());
        files.Add(choice.folder + u"/main.c"_s, MainText(choice));
    }
    return files;
}
