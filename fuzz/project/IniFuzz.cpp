// SPDX-License-Identifier: MIT
// Settings of any bytes: every reading ends, and a change of one key keeps the rest.

#include "FuzzFolder.h"
#include "ProcessTables.h"
#include "Profile.h"

using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    Profile profile = Profile::Parse(bytes);
    qsizetype used = 1;
    for (const QString &line : profile.Section(u"Resolution"))
        used += line.size() + 1;
    if (used > 4096)
        std::abort();
    (void)profile.Int(u"Resource Type", u"Count", 0);
    const QString before = profile.String(u"Path", u"main_xml", u"(none)"_s);
    profile.Set(u"Frame", u"position", u"1,2,3,4"_s);
    const Profile again = Profile::Parse(profile.Bytes());
    if (again.String(u"Frame", u"position", {}) != u"1,2,3,4"_s ||
        again.String(u"Path", u"main_xml", u"(none)"_s) != before)
        std::abort();

    static const FuzzFolder folder;
    folder.Put("Morvanite.ini", bytes + "\n[Path]\nreso_set=Morvanite.ini\n");
    folder.Put("tuvik.ini", bytes);
    const Environment env(folder.Path(""));
    ProcessTables tables;
    tables.LoadOnce(env);
    (void)env.LanguageNumber(u"English"_s);
    return 0;
}
