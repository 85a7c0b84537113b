// SPDX-License-Identifier: MIT
#include "ProcessTables.h"

#include "Environment.h"
#include "Paths.h"

#include <algorithm>

namespace
{

/// Removes the number that a text begins with and returns it; 0 if there is none.
int TakeNumber(QStringView &text)
{
    const bool isSigned = text.startsWith(u'+') || text.startsWith(u'-');
    const auto end = std::find_if(text.begin() + isSigned, text.end(), [](QChar c) { return c < u'0' || c > u'9'; });
    const int number = LeadingNumber(text.first(end - text.begin()));
    text = text.sliced(end - text.begin());
    return number;
}

/// Removes what may be between width and height, and returns how many characters it were.
qsizetype TakeSeparators(QStringView &text)
{
    const auto end =
        std::find_if(text.begin(), text.end(), [](QChar c) { return !QStringView(u"*xX \t").contains(c); });
    const qsizetype count = end - text.begin();
    text = text.sliced(count);
    return count;
}

} // namespace

void ProcessTables::LoadOnce(const Environment &env)
{
    if (resolutions.Count() == 0) {
        QString file = env.settings.String("Path", "reso_set");
        if (!file.isEmpty()) {
            MakeAbsolute(file, env.ProgramDir());
            for (const QString &line : Profile::Load(file).Section(u"Resolution")) {
                QStringView rest = line;
                const int width = TakeNumber(rest);
                const qsizetype separators = TakeSeparators(rest);
                const int height = TakeNumber(rest);
                if (separators > 0)
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
