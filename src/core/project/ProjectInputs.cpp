#include "ProjectInputs.h"

#include "CResDoc.h"
#include "Environment.h"
#include "HostFiles.h"
#include "Paths.h"

using namespace Qt::StringLiterals;

QStringList ProjectInputs(CResDoc &doc)
{
    const Environment &env = doc.env;
    QStringList inputs = doc.ProjectFiles();
    inputs += env.SettingsFiles();
    const auto addInProgramDir = [&](const char *section, const char *key) {
        if (const QString file = env.settings.String(section, key); !file.isEmpty())
            inputs.append(ResolvePath(file, env.ProgramDir()));
    };
    addInProgramDir("Path", "reso_set");
    addInProgramDir("Layout", "catalogue");
    inputs.removeIf([](const QString &file) { return !PathExists(file); });
    return inputs;
}
