#include "ProjectContext.h"

#include "CResDoc.h"
#include "Environment.h"
#include "Paths.h"

ProjectContext::ProjectContext(const QString &path, CResDoc &document)
    : dir(DirectoryOf(path)), name(FileTitle(path)), doc(document), env(document.env)
{
}

QString ProjectContext::ResourceFolder() const
{
    QString folder = env.settings.String("Path", "main_xml", "res");
    if (!folder.endsWith(u'\\') && !folder.endsWith(u'/'))
        folder += u'\\';
    return folder;
}

QString ProjectContext::ResourcePath() const
{
    return ResourceFolder() + name + QStringLiteral(".res.xml");
}

QString ProjectContext::StringPath() const
{
    return ResourceFolder() + QStringLiteral("ref_list_") + name + QStringLiteral(".txt");
}

QString ProjectContext::LayoutPath(int width, int height) const
{
    return ResourceFolder() + QStringLiteral("layout_%1_%2x%3.xml").arg(name).arg(width).arg(height);
}

QString ProjectContext::Absolute(const QString &path) const
{
    return ResolvePath(path, dir);
}
