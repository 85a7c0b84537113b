// SPDX-License-Identifier: MIT
#include "FileRules.h"

#include "PackCodes.h"
#include "Paths.h"
#include "RuleReport.h"

#include <QDir>

#include <algorithm>
#include <cstring>

using namespace Qt::StringLiterals;

void FileMissing(const FileCheckInput &input, RuleReport &report)
{
    for (const SurveyedFile &file : input.files.Files()) {
        if (file.isRegular)
            continue;
        const QString why =
            file.stored.isEmpty()  ? u"the list names no file"_s
            : file.found.isEmpty() ? u"the file %1 doesn't exist"_s.arg(file.stored)
            : file.error == 0
                ? u"%1 isn't a regular file"_s.arg(file.stored)
                : u"the file %1 can't be read: %2"_s.arg(file.stored, QString::fromLocal8Bit(strerror(file.error)));
        report.Add(input.files.About(file, why));
    }
}

void FileEmpty(const FileCheckInput &input, RuleReport &report)
{
    for (const SurveyedFile &file : input.files.Files()) {
        if (file.isRegular && file.isImage && file.size <= IMAGE_TOO_SMALL)
            report.Add(input.files.About(
                file, u"the file %1 has %2 bytes, and a pack refuses images of %3 bytes or less"_s.arg(file.stored)
                          .arg(file.size)
                          .arg(IMAGE_TOO_SMALL)));
    }
}

void FileCase(const FileCheckInput &input, RuleReport &report)
{
    const QDir folder(input.files.Folder());
    for (const SurveyedFile &file : input.files.Files()) {
        const bool isAsWritten = file.found == file.path || file.found == QString(file.path).replace(u'\\', u'/');
        if (file.found.isEmpty() || isAsWritten)
            continue;
        report.Add(input.files.About(
            file, u"the file %1 is called %2 on the disk"_s.arg(file.stored, folder.relativeFilePath(file.found))));
    }
}

void FileOutside(const FileCheckInput &input, RuleReport &report)
{
    const QString folder = CanonicalPath(input.files.Folder()) + u'/';
    const auto isAbove = [&folder](const QString &stored) {
        return stored.contains(u".."_s) && !CanonicalPath(folder + stored).startsWith(folder);
    };
    for (const SurveyedFile &file : input.files.Files()) {
        if (file.stored.isEmpty() || file.isStock)
            continue;
        if (!IsRelativePath(file.stored))
            report.Add(input.files.About(file, u"the path %1 is absolute"_s.arg(file.stored)));
        else if (isAbove(file.stored))
            report.Add(input.files.About(file, u"the file %1 is above the project's folder"_s.arg(file.stored)));
    }
}

void FileType(const FileCheckInput &input, RuleReport &report)
{
    for (const SurveyedFile &file : input.files.Files()) {
        const ContentKind wanted = ContentOfExtension(FileExtension(file.stored));
        if (!file.isRegular || wanted == ContentKind::Unknown || file.content == wanted)
            continue;
        if (file.isImage && (file.content == ContentKind::Unknown || file.content == ContentKind::WebP ||
                             file.content == ContentKind::Svg || !IsConvertible(wanted)))
            continue; // the rules for images check these
        if (file.content != ContentKind::Unknown)
            report.Add(
                input.files.About(file, u"the content of the file %1 is %2"_s.arg(file.stored, NameOf(file.content))));
        else if (HasReliableStart(wanted))
            report.Add(input.files.About(
                file, u"the file %1 doesn't begin as %2 files do"_s.arg(file.stored, NameOf(wanted))));
    }
}

namespace
{

bool IsAllowed(const std::vector<int> &allowed, int value)
{
    return allowed.empty() || std::find(allowed.begin(), allowed.end(), value) != allowed.end();
}

QString Listed(const std::vector<int> &numbers)
{
    QStringList words;
    for (const int number : numbers)
        words.append(QString::number(number));
    return words.join(u", "_s);
}

/// Returns which limits of the settings a sound breaks; empty if it breaks none.
QString WrongAudio(const WaveHeader &wave, const AudioLimits &limits)
{
    if (!wave.fault.isEmpty())
        return wave.fault;
    QStringList codecs;
    for (const int codec : limits.codecs)
        codecs.append(WaveCodecName(codec));
    QStringList faults;
    if (!IsAllowed(limits.codecs, wave.codec))
        faults.append(u"the codec is %1, not %2"_s.arg(WaveCodecName(wave.codec), codecs.join(u", "_s)));
    if (!IsAllowed(limits.rates, int(wave.rate)))
        faults.append(u"it has %1 samples a second, not %2"_s.arg(wave.rate).arg(Listed(limits.rates)));
    if (!IsAllowed(limits.channels, wave.channels))
        faults.append(u"it has %1 channels, not %2"_s.arg(wave.channels).arg(Listed(limits.channels)));
    if (!IsAllowed(limits.bits, wave.bits))
        faults.append(u"a sample has %1 bits, not %2"_s.arg(wave.bits).arg(Listed(limits.bits)));
    return faults.join(u"; "_s);
}

} // namespace

void AudioFormat(const FileCheckInput &input, RuleReport &report)
{
    for (const SurveyedFile &file : input.files.Files()) {
        if (file.content != ContentKind::Wave || file.isImage)
            continue;
        const QString wrong = WrongAudio(file.wave, input.settings.audio);
        if (!wrong.isEmpty())
            report.Add(input.files.About(file, u"%1: %2"_s.arg(file.stored, wrong)));
    }
}
