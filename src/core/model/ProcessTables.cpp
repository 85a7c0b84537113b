// SPDX-License-Identifier: MIT
#include "ProcessTables.h"

#include "Environment.h"
#include "Paths.h"

#include <cstdio>

void ProcessTables::LoadOnce(const Environment &env)
{
    if (resolutions.Count() == 0) {
        QString file = env.settings.String("Path", "reso_set");
        if (!file.isEmpty()) {
            MakeAbsolute(file, env.ProgramDir());
            for (const QString &line : Profile::Load(file).Section(u"Resolution")) {
                int width = 0;
                int height = 0;
                if (std::sscanf(line.toUtf8().constData(), "%9d%*[*xX \t]%9d", &width, &height) == 2)
                    resolutions.Add({}, width, height);
            }
        }
    }
    if (!typesRead) {
        typesRead = true;
        const int count = std::min(env.settings.Int("Resource Type", "Count", 0), 1000);
        for (int i = 0; i < count; ++i) {
            const QByteArray key = "Type_" + QByteArray::number(i);
            resourceTypes.append(env.settings.String("Resource Type", key.constData()));
        }
    }
}
