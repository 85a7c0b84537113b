// SPDX-License-Identifier: MIT
#include "ProjectInputs.h"

#include "CResDoc.h"
#include "CatalogueFile.h"
#include "Environment.h"
#include "HostFiles.h"
#include "Paths.h"

using namespace Qt::StringLiterals;

QStringList ProjectInputs(CResDoc &doc)
{
    const Environment &env = doc.env;
    QStringList inputs = doc.ProjectFiles();
    inputs += env.SettingsFiles();
    if (const QString sizes = env.settings.String("Path", "reso_set"); !sizes.isEmpty())
        inputs.append(ResolvePath(sizes, env.ProgramDir()));
    inputs.append(CataloguePath(env));
    inputs.removeIf([](const QString &file) { return file.isEmpty() || !PathExists(file); });
    return inputs;
}
