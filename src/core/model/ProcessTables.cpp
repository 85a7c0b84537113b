// SPDX-License-Identifier: MIT
#include "ProcessTables.h"

#include "Environment.h"
#include "Paths.h"
#include "ScreenSizeScan.h"

#include <algorithm>

void ProcessTables::LoadOnce(const Environment &env)
{
    if (resolutions.Count() == 0) {
        QString file = env.settings.String("Path", "reso_set");
        if (!file.isEmpty()) {
            MakeAbsolute(file, env.ProgramDir());
            for (const QString &line : Profile::Load(file).Section(u"Resolution")) {
                if (const auto size = ScanScreenSize(line, u"*xX \t"))
                    resolutions.Add({}, size->width, size->height);
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
