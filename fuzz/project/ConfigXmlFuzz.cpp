// SPDX-License-Identifier: MIT
// A project's configuration of any bytes: reading ends, in UTF-8 and in a code page with two bytes for a character.

#include "FuzzFolder.h"
#include "ProjectConfig.h"

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, size_t size)
{
    static const FuzzFolder folder;
    static const auto utf8 = folder.Program("[Text]\ncode_page=utf-8\n");
    static const auto chinese = folder.Program("[Text]\ncode_page=936\n");
    folder.Put("config.xml", QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
    for (const Environment *env : {utf8.get(), chinese.get()}) {
        ProjectConfig config;
        ReadConfig(*env, folder.Path("demo.vcproj"), config);
    }
    return 0;
}
