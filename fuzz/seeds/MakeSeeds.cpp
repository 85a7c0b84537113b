// SPDX-License-Identifier: MIT
// Writes the seeds of the targets device, elf and inspect. Usage: make_seeds FOLDER
#include "ElfBuilder.h"

#include <fstream>
#include <map>

namespace
{

PayloadBuilder Project(std::size_t base)
{
    return PayloadBuilder()
        .Entry("AppLogo.img", "0123456789")
        .Entry("../a\\b\x1B", "\xA0")
        .Entry("tune.mid", "")
        .Language(0, {{7, u"Hello"}, {3, u""}, {104000, u"\U0001F600"}})
        .Language(1, {})
        .Language(2, {{3, u"\u4F60\u597D"}, {3, {0xD800}}})
        .Item(1, std::string(8, '\0') + "audio")
        .Item(103000, "pict")
        .Item(1, "\x08")
        .Base(static_cast<std::uint32_t>(base));
}

// Of device the first 4 bytes are the base, of elf the first byte is the payload's size.
std::map<std::string, std::string> Seeds()
{
    const std::string text(33, 'x');
    const ElfBuilder elf = ElfBuilder().Section(".text", text);
    const auto packed = [&](std::size_t base) {
        return ElfBuilder(elf).Section(".zp_res", Project(base).Build()).Build();
    };
    const std::string appended = PayloadBuilder::AppendedTo(text, Project(text.size() + 8).Unpadded().Build());
    return {{"device/icon-only", PayloadBuilder::U32({0}) + PayloadBuilder().Entry("AppLogo.img", "123").Build()},
            {"device/section", PayloadBuilder::U32({0}) + Project(0).Build()},
            {"device/file-relative", PayloadBuilder::U32({0x1234}) + Project(0x1234).Build()},
            {"device/unpadded", PayloadBuilder::U32({77}) + Project(77).Unpadded().Build()},
            {"device/appended", appended},
            {"device/elf", packed(0)},
            {"inspect/side-file", Project(0).Build()},
            {"inspect/dll", appended},
            {"inspect/elf", packed(0)},
            {"inspect/elf-file-relative", packed(packed(0).find("AppLogo.img"))},
            {"elf/least", std::string(1, '\0') + ElfBuilder().Build()},
            {"elf/program",
             "\x08" + ElfBuilder(1).Section(".text", text).Section(".bss", "", ElfBuilder::NoBits, 4096).Build()},
            {"elf/odd", "\5" + ElfBuilder().Section(".data", "dat").Build() + "ttt"},
            {"elf/wide-steps", "\4" + ElfBuilder(0, 64).Section(".text", text).Build()},
            {"elf/no-names", "\4" + elf.Build(ElfBuilder::NoBits)}};
}

} // namespace

int main(int, char **argv)
{
    for (const auto &[name, bytes] : Seeds())
        if (!(std::ofstream(std::string(argv[1]) + '/' + name, std::ios::binary) << bytes).flush())
            return 1;
    return 0;
}
