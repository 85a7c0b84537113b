// SPDX-License-Identifier: MIT
#include "ProjectContext.h"

#include "CResDoc.h"
#include "Environment.h"
#include "Paths.h"

ProjectPaths::ProjectPaths(const QString &path, Environment &environment)
    : dir(DirectoryOf(path)), name(FileTitle(path)), env(environment)
{
}

ProjectContext::ProjectContext(const QString &path, CResDoc &document) : ProjectPaths(path, document.env), doc(document)
{
}

QString ProjectPaths::ConfigPath() const
{
    return Absolute(env.settings.String("Path", "proj_cfg", ".\\config.xml"));
}

QString ProjectPaths::ResourceFolder() const
{
    QString folder = env.settings.String("Path", "main_xml", "res");
    if (!folder.endsWith(u'\\') && !folder.endsWith(u'/'))
        folder += u'\\';
    return folder;
}

QString ProjectPaths::ResourcePath() const
{
    return ResourceFolder() + name + QStringLiteral(".res.xml");
}

QString ProjectPaths::StringPath() const
{
    return ResourceFolder() + QStringLiteral("ref_list_") + name + QStringLiteral(".txt");
}

QString ProjectPaths::LayoutPath(int width, int height) const
{
    return ResourceFolder() + QStringLiteral("layout_%1_%2x%3.xml").arg(name).arg(width).arg(height);
}

QString ProjectPaths::Absolute(const QString &path) const
{
    return ResolvePath(path, dir);
}
