// Writes the seeds of this fuzz target. Usage: make_inspect_seeds FOLDER
#include "ElfBuilder.h"

#include <fstream>
#include <iostream>

namespace
{

using Bytes = PayloadBuilder::Bytes;

PayloadBuilder Project(std::uint32_t base)
{
    return PayloadBuilder()
        .Entry("AppLogo.img", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10})
        .Entry("../a\\b\x1B", {0xA0})
        .Language(0, {{7, u"Hello"}, {3, u""}, {104000, u"\U0001F600"}})
        .Language(1, {})
        .Language(2, {{3, u"\u4F60\u597D"}, {3, {0xD800}}})
        .Item(1, {0, 0, 0, 0, 0, 0, 0, 0, 'a', 'u', 'd', 'i', 'o'})
        .Item(103000, {9, 9, 9, 9})
        .Base(base);
}

bool Write(const std::string &path, const Bytes &bytes)
{
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file)
        std::cerr << path << ": can't be written\n";
    return file.good();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::cerr << "usage: make_inspect_seeds FOLDER\n";
        return 2;
    }
    const std::string folder = std::string(argv[1]) + "/";
    const Bytes text(32, 0x90);
    // Where the section stands in the file, for offsets that count from there: behind the header, the names and .text.
    const auto elf = [&text](std::uint32_t base) {
        return ElfBuilder().Section(".text", text).Section(".zp_res", Project(base).Build()).Build();
    };
    constexpr std::uint32_t section = 52 + 25 + 32;
    const bool written = Write(folder + "side-file", Project(0).Build()) && Write(folder + "elf", elf(0)) &&
                         Write(folder + "elf-file-relative", elf(section)) &&
                         Write(folder + "dll", PayloadBuilder::AppendedTo(text, Project(40).Unpadded().Build()));
    return written ? 0 : 1;
}
