// SPDX-License-Identifier: MIT
#include "NewProjectForm.h"

#include "Paths.h"
#include "ProjectFile.h"
#include "StringFileFormat.h"

#include <algorithm>

using namespace Qt::StringLiterals;

NewProjectForm::NewProjectForm(const CResoTable &resolutions, std::vector<KnownLanguage> knownLanguages,
                               QString parentFolder)
    : languages(std::move(knownLanguages)), parent(std::move(parentFolder)), folder(parent)
{
    for (int i = 0; i < resolutions.Count(); ++i)
        screens.push_back({resolutions.At(i).width, resolutions.At(i).height});
    std::erase_if(languages, [](const auto &language) { return language.number == StringFileFormat::DESCRIPTION; });
}

void NewProjectForm::SetName(const QString &text)
{
    name = text.trimmed();
    if (!isOwnFolder)
        folder = name.isEmpty() ? parent : CanonicalPath(parent + u'/' + name);
}

void NewProjectForm::SetFolder(const QString &text)
{
    isOwnFolder = true;
    folder = text.trimmed();
}

void NewProjectForm::Check(std::vector<size_t> &checked, size_t index, bool isChecked)
{
    std::erase(checked, index);
    if (isChecked)
        checked.push_back(index);
}

QString NewProjectForm::Problem() const
{
    if (name.isEmpty())
        return u"Type a name for the project."_s;
    if (const QString why = WhyNotProjectName(name, hasBuild); !why.isEmpty())
        return why.left(1).toUpper() + why.sliced(1) + u'.';
    if (IsRelativePath(folder))
        return u"The folder needs its whole path, such as /home/me/clock."_s;
    if (checkedScreens.empty())
        return screens.empty() ? u"There is no list of screen sizes: see reso_set in Morvanite.ini."_s
                               : u"Choose the screens, first the one of the application's configuration."_s;
    if (checkedLanguages.empty())
        return languages.empty() ? u"The file tuvik.ini beside the program has no languages."_s
                                 : u"Choose the languages, first the one to translate from."_s;
    return {};
}

QString NewProjectForm::Summary() const
{
    if (checkedScreens.empty() || checkedLanguages.empty())
        return {};
    const ScreenSize &screen = screens[checkedScreens.front()];
    const QString summary = u"Screen of the configuration: %1x%2. Language to translate from: %3."_s.arg(screen.width)
                                .arg(screen.height)
                                .arg(languages[checkedLanguages.front()].name);
    const QString warning = WarnOfNeighbour(PathOfNewProject(Choice()));
    return warning.isEmpty() ? summary : summary + u"\nNote: %1."_s.arg(warning);
}

NewProjectChoice NewProjectForm::Choice() const
{
    NewProjectChoice choice{CanonicalPath(folder), name, {}, {}, git, hasBuild};
    for (const size_t index : checkedScreens)
        choice.resolutions.push_back(screens[index]);
    for (const size_t index : checkedLanguages)
        choice.languages.push_back(languages[index]);
    return choice;
}
