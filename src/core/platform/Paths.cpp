// SPDX-License-Identifier: MIT
#include "Paths.h"

#include "Utf16Paths.h"

#include <algorithm>

namespace
{

bool IsSeparator(QChar c)
{
    return c == u'\\' || c == u'/';
}

qsizetype LastSeparator(QStringView path)
{
    return std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/'));
}

/// True if two paths are equal without regard to case and to the kind of separator.
bool SamePath(QStringView a, QStringView b)
{
    if (a.size() != b.size())
        return false;
    for (qsizetype i = 0; i < a.size(); ++i) {
        const bool same = IsSeparator(a[i]) ? IsSeparator(b[i]) : a[i] == b[i] || a[i].toUpper() == b[i].toUpper();
        if (!same)
            return false;
    }
    return true;
}

} // namespace

bool IsRelativePath(QStringView path)
{
    return IsRelativeUtf16Path(UnitsOf(path));
}

QString DirectoryOf(QStringView path)
{
    const qsizetype at = LastSeparator(path);
    if (at == 0 && path[0] == u'/')
        return QStringLiteral("/");
    return at <= 0 ? QStringLiteral(".") : path.first(at).toString();
}

QString FileName(QStringView path)
{
    return path.sliced(LastSeparator(path) + 1).toString();
}

QString FileTitle(QStringView path)
{
    const QString name = FileName(path);
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 0 ? name : name.first(dot);
}

QString FileExtension(QStringView path)
{
    const qsizetype dot = path.lastIndexOf(u'.');
    return dot <= LastSeparator(path) ? QString() : path.sliced(dot + 1).toString();
}

QString CanonicalPath(QStringView path)
{
    return QString::fromStdU16String(CanonicalUtf16Path(UnitsOf(path)));
}

bool IsSamePath(QStringView a, QStringView b)
{
    return EqualsNoCase(a, b) || EqualsNoCase(CanonicalPath(a), CanonicalPath(b));
}

bool MakeAbsolute(QString &path, const QString &base)
{
    if (!IsRelativePath(path))
        return true;
    const QString joined = CanonicalPath(base + u'/' + path);
    if (joined.size() > LONGEST_PATH)
        return false;
    path = joined;
    return true;
}

bool MakeRelative(QString &path, const QString &base)
{
    if (base.isEmpty() || IsRelativePath(path))
        return true;
    if (SamePath(path, base)) {
        path = QStringLiteral(".");
        return true;
    }
    if (path.size() <= base.size() || !SamePath(QStringView(path).first(base.size()), base))
        return false;
    qsizetype rest = -1;
    if (IsSeparator(base.back()))
        rest = base.size() - 1;
    else if (IsSeparator(path[base.size()]))
        rest = base.size();
    if (rest < 0)
        return false;
    path = u'.' + path.sliced(rest);
    path.replace(u'/', u'\\');
    return true;
}

QString ResolvePath(const QString &path, const QString &base)
{
    QString joined = path;
    MakeAbsolute(joined, base);
    return joined;
}
