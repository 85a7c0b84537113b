// SPDX-License-Identifier: MIT
#include "FileClassifier.h"

#include "Paths.h"
#include "ResFolder.h"
#include "Settings.h"

namespace
{

/// True when `list` (in lower case) has the pattern "*.ext" itself, not only a longer one that begins with it.
bool HasPattern(const QString &list, const QString &pattern)
{
    for (qsizetype at = list.indexOf(pattern); at >= 0; at = list.indexOf(pattern, at + 1)) {
        const qsizetype behind = at + pattern.size();
        const QChar c = behind < list.size() ? list[behind] : QChar(u';');
        if (!(c == u'_' || (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z')))
            return true;
    }
    return false;
}

} // namespace

FileClassifier::FileClassifier(const Settings &settings)
    : image(ToLowerSimple(Patterns(settings, "image"))), audio(ToLowerSimple(Patterns(settings, "audio"))),
      video(ToLowerSimple(Patterns(settings, "video")))
{
}

QString FileClassifier::Patterns(const Settings &settings, const char *type)
{
    const char *const fallback = qstrcmp(type, "image") == 0   ? "*.bmp; *.png; *.gif; *.jpg"
                                 : qstrcmp(type, "audio") == 0 ? "*.wav; *.wma; *.mp3"
                                                               : "*.avi; *.asf; *.wmv; *.3gp; *.rm; *.rmvb";
    return settings.String("FileType", type, fallback);
}

quint32 FileClassifier::Classify(quint32 mask, const QString &path) const
{
    const QString pattern = QStringLiteral("*.") + ToLowerSimple(FileExtension(path));
    if ((mask & KIND_AUDIO) && HasPattern(audio, pattern))
        return KIND_AUDIO;
    if ((mask & KIND_VIDEO) && HasPattern(video, pattern))
        return KIND_VIDEO;
    if ((mask == KIND_RESO_IMAGES || mask == KIND_COMPONENT) && HasPattern(image, pattern))
        return mask;
    return KIND_BINARY;
}

QString FileClassifier::AllPatterns(const Settings &settings)
{
    return Patterns(settings, "image") + u'\n' + Patterns(settings, "audio") + u'\n' + Patterns(settings, "video");
}
