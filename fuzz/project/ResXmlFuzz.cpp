// SPDX-License-Identifier: MIT
// A resource list of any bytes: it loads or it doesn't, and a loaded list can be saved and loads again.

#include "CResDoc.h"
#include "FuzzFolder.h"
#include "HostFiles.h"
#include "ProjectContext.h"
#include "Xml.h"

/// Returns the number of IDs after a load, or -1 if it fails or there are strings, whose file doesn't exist.
static int Load(Environment &env, const QString &path, bool save)
{
    static ProcessTables tables;
    static const CFrameServices services;
    CondenseWhiteSpace(true);
    CResDoc doc(env, tables, services);
    doc.m_strPathName = path;
    try {
        doc.Serialize(true);
    } catch (const ArchiveException &) {
        return -1;
    }
    if (save && !doc.root.FindFolder(KIND_STRINGS, 1)->subfolders.empty())
        return -1;
    int count = 0;
    for (const IDRecord *id = doc.ids.sentinel.next; id != &doc.ids.sentinel; id = id->next)
        ++count;
    FileTransaction files(doc.env);
    if (save && WriteProject(path, doc, files) != 0)
        std::abort();
    return count;
}

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, size_t size)
{
    static const FuzzFolder folder;
    static const auto env = folder.Program("[Path]\nreso_set=sizes.ini\n");
    folder.Put("bin/sizes.ini", "[Resolution]\n176x220\n240x320\n");
    folder.Put("demo/config.xml", "<c><zxa><zepversion>20</zepversion></zxa></c>");
    folder.Put("demo/res/logo.png", "");
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    folder.Put("demo/res/demo.res.xml", bytes);
    const QString path = folder.Path("demo/demo.vcproj");
    const int count = Load(*env, path, true);
    const int again = count >= 0 ? Load(*env, path, false) : count;
    // Names that aren't valid text may become equal.
    if (again != count && (again < 0 || bytes.isValidUtf8()))
        std::abort();
    return 0;
}
