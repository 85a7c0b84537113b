// Writes the seeds of this fuzz target. Usage: make_device_seeds FOLDER
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
        .Entry("zep.preview_0", {0xA0})
        .Entry("tune.mid", {})
        .Language(0, {{7, u"Hello"}, {3, u""}, {104000, u"\U0001F600"}})
        .Language(1, {})
        .Language(2, {{3, u"\u4F60\u597D"}, {3, {0xD800}}})
        .Item(1, {0, 0, 0, 0, 0, 0, 0, 0, 'a', 'u', 'd', 'i', 'o'})
        .Item(103000, {9, 9, 9, 9})
        .Item(1, {8})
        .Base(base);
}

Bytes WithBase(std::uint32_t base, const Bytes &payload)
{
    Bytes bytes;
    PayloadBuilder::AppendU32(bytes, base);
    bytes.insert(bytes.end(), payload.begin(), payload.end());
    return bytes;
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
        std::cerr << "usage: make_device_seeds FOLDER\n";
        return 2;
    }
    const std::string folder = std::string(argv[1]) + "/";
    const Bytes text(33, 0x90);
    const bool written =
        Write(folder + "icon-only", WithBase(0, PayloadBuilder().Entry("AppLogo.img", {1, 2, 3}).Build())) &&
        Write(folder + "section", WithBase(0, Project(0).Build())) &&
        Write(folder + "file-relative", WithBase(0x1234, Project(0x1234).Build())) &&
        Write(folder + "unpadded", WithBase(77, Project(77).Unpadded().Build())) &&
        Write(folder + "appended", PayloadBuilder::AppendedTo(text, Project(33 + 8).Unpadded().Build())) &&
        Write(folder + "elf", ElfBuilder().Section(".text", text).Section(".zp_res", Project(0).Build()).Build());
    return written ? 0 : 1;
}
