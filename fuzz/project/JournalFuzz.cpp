// SPDX-License-Identifier: MIT
// The journal of an interrupted save, of any bytes: recovery ends, and changes no file outside of the project, none
// that a save doesn't write, and none without new content beside it.

#include "FuzzFolder.h"
#include "ProjectSave.h"

namespace
{

QByteArray ContentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, size_t size)
{
    static const FuzzFolder folder;
    static const std::unique_ptr<Environment> env = folder.Program({});
    folder.Put("demo/res/demo.res.xml", "list");
    folder.Put("demo/ResID/ResID.h", "old header");
    folder.Put("demo/ResID/.ResID.h.1-0", "new header"); // process 1 always exists
    folder.Put("demo/demo.c", "source");
    folder.Put("demo/.demo.c.1-0", "new source");
    folder.Put("outside", "the user's");
    folder.Put("demo/res/.demo.journal", {reinterpret_cast<const char *>(data), qsizetype(size)});
    (void)RecoverProjectFiles(*env, folder.Path("demo/demo.vcproj"));
    const QByteArray header = ContentOf(folder.Path("demo/ResID/ResID.h"));
    if (ContentOf(folder.Path("demo/res/demo.res.xml")) != "list" ||
        ContentOf(folder.Path("outside")) != "the user's" || ContentOf(folder.Path("demo/demo.c")) != "source" ||
        (header != "old header" && header != "new header"))
        std::abort();
    return 0;
}
