// SPDX-License-Identifier: MIT
#include "FileRules.h"
#include "ImageRules.h"

#include "RuleReport.h"

#include <algorithm>
#include <map>
#include <set>

using namespace Qt::StringLiterals;

namespace
{

/// Returns whether a payload can have both files, in the same form.
bool AreInOnePayload(const SurveyedFile &a, const SurveyedFile &b)
{
    return a.isImage == b.isImage && (a.screen == b.screen || a.screen < 0 || b.screen < 0);
}

/// Returns the least number of bytes that a file needs in a payload. A picture can be packed as it is, or in the
/// device's format, which has 24 bytes and 2 for each pixel, in rows of whole 4 bytes.
qint64 PayloadBytes(const SurveyedFile &file)
{
    if (!file.HasPicture())
        return file.size;
    const qint64 converted = 24 + (qint64(file.picture.width) * 2 + 3) / 4 * 4 * qint64(file.picture.height);
    return std::min(file.size, converted);
}

using Files = std::vector<const SurveyedFile *>;

/// Reports the files of a group that have the same bytes as an earlier one of another ID.
void ReportGroup(const FileSurvey &survey, const Files &group, RuleReport &report)
{
    std::set<std::pair<QString, QString>> reported; // pairs of IDs: they may be equal for several screens
    for (size_t i = 1; i < group.size(); ++i) {
        const SurveyedFile &file = *group[i];
        for (size_t k = 0; k < i; ++k) {
            const SurveyedFile &other = *group[k];
            if (other.id == file.id || !AreInOnePayload(file, other))
                continue;
            if (reported.insert({file.id, other.id}).second)
                report.Add(survey.About(
                    file, u"the file %1 has the same bytes as %2 of %3; one resource for both saves %4 bytes"_s
                              .arg(file.stored, other.stored, other.id)
                              .arg(PayloadBytes(file))));
            break;
        }
    }
}

/// Calls `function(group)` for each group of two or more regular files with the same size and the same first bytes.
template <typename Function> void ForEachSimilar(const FileSurvey &survey, Function &&function)
{
    std::map<std::pair<qint64, size_t>, Files> similar;
    for (const SurveyedFile &file : survey.Files()) {
        if (file.isRegular && file.size > 0 && !file.isStock) // nobody can take an image away from the program
            similar[{file.size, file.startHash}].push_back(&file);
    }
    for (const auto &[key, files] : similar) {
        if (files.size() > 1)
            function(files);
    }
}

bool HaveSeveralIds(const Files &files)
{
    return std::any_of(files.begin(), files.end(),
                       [&](const SurveyedFile *file) { return file->id != files.front()->id; });
}

} // namespace

void DuplicateFile(const FileCheckInput &input, RuleReport &report)
{
    const FileSurvey &survey = input.files;
    ForEachSimilar(survey, [&](const Files &similar) {
        if (!HaveSeveralIds(similar))
            return;
        std::map<QByteArray, Files> byContent;
        for (const SurveyedFile *file : similar) {
            if (const QByteArray &digest = survey.DigestOf(*file); !digest.isEmpty())
                byContent[digest].push_back(file);
        }
        for (const auto &[digest, group] : byContent)
            ReportGroup(survey, group, report);
    });
}

void ImageSameEverywhere(const FileCheckInput &input, RuleReport &report)
{
    const FileSurvey &survey = input.files;
    if (survey.Screens().size() < 2)
        return;
    std::map<QString, Files> byId;
    for (const SurveyedFile &file : survey.Files()) {
        if (file.isImage && file.screen >= 0 && file.isRegular)
            byId[file.id].push_back(&file);
    }
    for (const auto &[id, files] : byId) {
        const SurveyedFile &first = *files.front();
        if (files.size() == survey.Screens().size() &&
            std::all_of(files.begin() + 1, files.end(),
                        [&](const SurveyedFile *file) { return survey.HaveSameBytes(first, *file); }))
            report.Add(survey.About(
                first, u"all %1 screens have this image with the same bytes; put the image into Default once"_s.arg(
                           files.size())));
    }
}
