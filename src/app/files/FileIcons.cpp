// SPDX-License-Identifier: MIT
#include "FileIcons.h"

#include "Paths.h"
#include "UiIcons.h"

#include <QMimeDatabase>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

/// The drawn icon of a kind of file, for desktops without an icon theme.
UiIcon DrawnIconOf(const QMimeType &type)
{
    const QString name = type.name();
    if (name.startsWith(u"image/"_s))
        return UiIcon::Images;
    if (name.startsWith(u"audio/"_s))
        return UiIcon::Audio;
    if (name.startsWith(u"video/"_s) || name == u"application/vnd.rn-realmedia"_s)
        return UiIcon::Video;
    if (type.genericIconName() == u"package-x-generic"_s)
        return UiIcon::Archive;
    return name.startsWith(u"text/"_s) || type.inherits(u"text/plain"_s) ? UiIcon::TextFile : UiIcon::Binary;
}

} // namespace

FileIcons::FileIcons(const QString &projectFolder)
    : folder(projectFolder), icons{MakeIcon(UiIcon::NewFile), MakeIcon(UiIcon::MissingFile), MakeIcon(UiIcon::NoFile)}
{
}

/// Doesn't use ResolvePath, which leaves a path relative if it would become very long.
QString FileIcons::Absolute(const QString &path) const
{
    if (!IsRelativePath(path))
        return path;
    if (path == u'.')
        return folder;
    const bool hasDot = path.startsWith(u".\\"_s) || path.startsWith(u"./"_s);
    return folder + u'/' + path.sliced(hasDot ? 2 : 0);
}

QByteArray FileIcons::HostPathOf(const QString &path)
{
    return paths->Resolve(Absolute(path));
}

bool FileIcons::IsThere(const QString &path)
{
    const auto known = isThere.find(path);
    if (known != isThere.end())
        return *known;
    QByteArray exact = Absolute(path).toUtf8();
    exact.replace('\\', '/');
    const bool isFound = access(exact.constData(), F_OK) == 0 || paths->Exists(exact);
    return *isThere.insert(path, isFound);
}

void FileIcons::Refresh()
{
    paths.emplace();
    isThere.clear();
}

int FileIcons::ImageOf(const QString &path)
{
    if (path.isEmpty())
        return NO_PATH;
    return IsThere(path) ? KindOf(path).image : MISSING;
}

bool FileIcons::IsPicture(const QString &path)
{
    return KindOf(path).isPicture;
}

const FileIcons::Kind &FileIcons::KindOf(const QString &path)
{
    const QString extension = ToLowerSimple(FileExtension(path));
    const auto known = kinds.find(extension);
    if (known != kinds.end())
        return *known;
    const QMimeType type = QMimeDatabase().mimeTypeForFile(u"x."_s + extension, QMimeDatabase::MatchExtension);
    Kind kind{0, type.name().startsWith(u"image/"_s)};
    const QIcon ofTheme = QIcon::fromTheme(type.iconName(), QIcon::fromTheme(type.genericIconName()));
    const UiIcon drawn = DrawnIconOf(type);
    const QString name = ofTheme.isNull() ? QString::number(int(drawn)) : ofTheme.name();
    const auto image = imageOfIcon.find(name);
    if (image != imageOfIcon.end()) {
        kind.image = *image;
    } else {
        kind.image = Count();
        icons.append(ofTheme.isNull() ? MakeIcon(drawn) : ofTheme);
        imageOfIcon.insert(name, kind.image);
    }
    return *kinds.insert(extension, kind);
}
