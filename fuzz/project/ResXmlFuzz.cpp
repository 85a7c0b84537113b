// A resource list of any bytes: it loads or it doesn't, and what has loaded can be saved and loads again.

#include "CResDoc.h"
#include "Environment.h"
#include "HostFiles.h"
#include "ProjectContext.h"
#include "ScratchFolder.h"
#include "Xml.h"

namespace
{

struct Program
{
    Program()
    {
        folder.Put("bin/Morvanite.ini", "[Path]\nreso_set=sizes.ini\n");
        folder.Put("bin/sizes.ini", "[Resolution]\n176x220\n240x320\n");
        folder.Put("demo/config.xml", "<c><zxa><zepversion>20</zepversion></zxa></c>");
        folder.Put("demo/res/logo.png", "");
        env = std::make_unique<Environment>(folder.Path("bin"));
        env->output = [](QStringView) {};
    }

    /// The number of IDs that a load gives, or -1.
    int Load(bool save)
    {
        CondenseWhiteSpace(true);
        CResDoc doc(*env, tables, services);
        doc.m_strPathName = folder.Path("demo/demo.vcproj");
        try {
            doc.Serialize(true);
        } catch (const ArchiveException &) {
            return -1;
        }
        int count = 0;
        for (const IDRecord *id = doc.ids.sentinel.next; id != &doc.ids.sentinel; id = id->next)
            ++count;
        if (save && !HasStrings(doc)) {
            FileTransaction files;
            if (WriteProject(doc.m_strPathName, doc, files) != 0)
                std::abort();
        }
        return save && HasStrings(doc) ? -1 : count;
    }

    static bool HasStrings(const CResDoc &doc) { return !doc.root.FindFolder(KIND_STRINGS, 1)->subfolders.empty(); }

    ScratchFolder folder;
    ProcessTables tables;
    CFrameServices services;
    std::unique_ptr<Environment> env;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, size_t size)
{
    static Program program;
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    program.folder.Put("demo/res/demo.res.xml", bytes);
    const int count = program.Load(true);
    const int again = count >= 0 ? program.Load(false) : count;
    // Names that are no text may become equal.
    if (again != count && (again < 0 || bytes.isValidUtf8()))
        std::abort();
    return 0;
}
