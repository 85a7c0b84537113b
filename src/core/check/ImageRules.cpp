// SPDX-License-Identifier: MIT
#include "ImageRules.h"

#include "ImageConversion.h"
#include "PackCodes.h"
#include "Paths.h"
#include "RuleReport.h"

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace
{

/// Calls `function(file)` for each image whose file can be read and isn't too short.
template <typename Function> void ForEachImage(const FileCheckInput &input, Function &&function)
{
    for (const SurveyedFile &file : input.files.Files()) {
        if (file.isImage && file.isRegular && file.size > IMAGE_TOO_SMALL)
            function(file);
    }
}

/// The images of one ID, by the place of the screen among those that are checked; null where a screen has none.
struct ImageSet
{
    std::vector<const SurveyedFile *> byScreen;
    const SurveyedFile *first = nullptr;
};

/// The images that belong to screens, by ID.
std::map<QString, ImageSet> ImageSets(const FileSurvey &survey)
{
    std::map<qint32, size_t> places;
    for (size_t place = 0; place < survey.Screens().size(); ++place)
        places[survey.Screens()[place].index] = place;
    std::map<QString, ImageSet> sets;
    for (const SurveyedFile &file : survey.Files()) {
        if (!file.isImage || file.screen < 0)
            continue;
        ImageSet &set = sets[file.id];
        set.byScreen.resize(survey.Screens().size());
        set.byScreen[places[file.screen]] = &file;
        if (!set.first)
            set.first = &file;
    }
    return sets;
}

/// Returns whether two sides of images are in proportion to their screens: the change from one to the other is between
/// `least` and `most`, the changes of the screens' sides, with a tolerance of a tenth or one pixel.
bool GoesWith(quint32 from, quint32 to, double least, double most)
{
    constexpr double TOLERANCE = 0.1;
    return to + 1.0 >= from * least * (1 - TOLERANCE) && to - 1.0 <= from * most * (1 + TOLERANCE);
}

/// Returns whether two images of an ID have sizes in proportion to their screens. A picture may keep its shape or
/// follow the shape of the screen.
bool HaveMatchingSizes(const PictureHeader &a, ScreenSize screenA, const PictureHeader &b, ScreenSize screenB)
{
    const double wide = double(screenB.width) / screenA.width;
    const double high = double(screenB.height) / screenA.height;
    const double least = std::min(wide, high);
    const double most = std::max(wide, high);
    return GoesWith(a.width, b.width, least, most) && GoesWith(a.height, b.height, least, most);
}

/// Reports the images of an ID whose sizes aren't in proportion to the one that is in proportion to the most others.
void CompareSizes(const FileSurvey &survey, const ImageSet &set, RuleReport &report)
{
    const std::vector<CheckedScreen> &screens = survey.Screens();
    const auto isKnown = [&set](size_t place) {
        const SurveyedFile *const file = set.byScreen[place];
        return file && file->HasPicture() && file->picture.fault.isEmpty();
    };
    const auto match = [&](size_t a, size_t b) {
        const SurveyedFile &from = *set.byScreen[a];
        const SurveyedFile &to = *set.byScreen[b];
        return HaveMatchingSizes(from.picture, screens[a].size, to.picture, screens[b].size) ||
               survey.HaveSameBytes(from, to); // the rule "image-same-everywhere" may report these
    };
    size_t reference = 0;
    int most = 0;
    for (size_t a = 0; a < screens.size(); ++a) {
        int matches = 0;
        for (size_t b = 0; isKnown(a) && b < screens.size(); ++b)
            matches += isKnown(b) && match(a, b);
        if (matches > most) {
            reference = a;
            most = matches;
        }
    }
    for (size_t place = 0; place < screens.size(); ++place) {
        if (!isKnown(place) || match(reference, place))
            continue;
        const PictureHeader &own = set.byScreen[place]->picture;
        const PictureHeader &other = set.byScreen[reference]->picture;
        report.Add(survey.About(*set.byScreen[place],
                                u"the size %1 x %2 on %3 isn't in proportion to %4 x %5 on %6"_s.arg(own.width)
                                    .arg(own.height)
                                    .arg(screens[place].Name())
                                    .arg(other.width)
                                    .arg(other.height)
                                    .arg(screens[reference].Name())));
    }
}

} // namespace

void ImageUnreadable(const FileCheckInput &input, RuleReport &report)
{
    ForEachImage(input, [&](const SurveyedFile &file) {
        if (!file.picture.fault.isEmpty())
            report.Add(
                input.files.About(file, u"the image %1 can't be read: %2"_s.arg(file.stored, file.picture.fault)));
        else if (file.content == ContentKind::Unknown && NeedImageConvert(file.stored))
            report.Add(input.files.About(
                file, u"the image %1 doesn't begin as BMP, GIF, JPEG and PNG files do"_s.arg(file.stored)));
    });
}

void ImageFormat(const FileCheckInput &input, RuleReport &report)
{
    ForEachImage(input, [&](const SurveyedFile &file) {
        if (file.content == ContentKind::WebP || file.content == ContentKind::Svg) {
            report.Add(input.files.About(file, u"the format of the image %1 is %2, which can't be converted"_s.arg(
                                                   file.stored, NameOf(file.content))));
            return;
        }
        // A pack can leave images as they are, unless they are of type Push.
        const bool isConverted = file.content == ContentKind::DeviceImage && !file.isPush;
        if (!NeedImageConvert(file.stored) && !isConverted)
            report.Add(input.files.About(
                file, u"the name %1 doesn't end in bmp, gif, jpg or png, so the image can't be converted"_s.arg(
                          FileName(file.stored))));
    });
}

void ImageTooLarge(const FileCheckInput &input, RuleReport &report)
{
    ForEachImage(input, [&](const SurveyedFile &file) {
        const CheckedScreen *const screen = input.files.ScreenOf(file);
        if (!screen || !file.HasPicture() || !file.picture.fault.isEmpty())
            return;
        if (file.picture.width > quint32(screen->size.width) || file.picture.height > quint32(screen->size.height))
            report.Add(
                input.files.About(file, u"the image %1 has %2 x %3 pixels, more than the screen %4"_s.arg(file.stored)
                                            .arg(file.picture.width)
                                            .arg(file.picture.height)
                                            .arg(screen->Name())));
    });
}

void ImageSizeDiffers(const FileCheckInput &input, RuleReport &report)
{
    const FileSurvey &survey = input.files;
    for (const auto &[id, set] : ImageSets(survey))
        CompareSizes(survey, set, report);
}

void ImageResolutionMissing(const FileCheckInput &input, RuleReport &report)
{
    const std::vector<CheckedScreen> &screens = input.files.Screens();
    for (const auto &[id, set] : ImageSets(input.files)) {
        QStringList missing;
        for (size_t place = 0; place < screens.size(); ++place) {
            if (!set.byScreen[place])
                missing.append(screens[place].Name());
        }
        if (!missing.isEmpty())
            report.Add(
                input.files.About(*set.first, u"there is an image for %1, but none for %2"_s.arg(
                                                  input.files.ScreenOf(*set.first)->Name(), missing.join(u", "_s))));
    }
}
