// A project's configuration of any bytes: reading ends, in UTF-8 and in a code page of two bytes.

#include "Environment.h"
#include "ProjectConfig.h"
#include "ScratchFolder.h"

namespace
{

struct Program
{
    explicit Program(const char *codePage)
    {
        folder.Put("bin/Morvanite.ini", QByteArray("[Text]\ncode_page=") + codePage + "\n");
        env = std::make_unique<Environment>(folder.Path("bin"));
    }
    ScratchFolder folder;
    std::unique_ptr<Environment> env;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, size_t size)
{
    static const Program programs[] = {Program("utf-8"), Program("936")};
    for (const Program &program : programs) {
        program.folder.Put("config.xml", QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
        ProjectConfig config;
        ReadConfig(*program.env, program.folder.Path("demo.vcproj"), config);
    }
    return 0;
}
