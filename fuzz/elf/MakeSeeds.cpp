// Writes the seeds of this fuzz target. Usage: make_elf_seeds FOLDER
#include "ArmElf.h"

#include <fstream>
#include <iostream>

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::cerr << "usage: make_elf_seeds FOLDER\n";
        return 2;
    }
    const auto write = [argv](const char *name, char payloadSize, const QByteArray &elf) {
        std::ofstream file(std::string(argv[1]) + "/" + name, std::ios::binary);
        file << payloadSize;
        file.write(elf.constData(), elf.size());
        file.close();
        if (!file)
            std::cerr << name << ": can't be written\n";
        return file.good();
    };
    const bool written =
        write("least", 0, ArmElf().Bytes()) &&
        write("program", 8, ArmElf().Segment().Section(".text", 40).Section(".bss", 4096, ArmElf::NOBITS).Bytes()) &&
        write("odd", 5, ArmElf().Section(".data", 3).Tail(3).Bytes()) &&
        write("wide-steps", 4, ArmElf().Section(".text", 8).HeaderStep(64).Bytes()) &&
        write("no-names", 4, ArmElf().Section(".text", 8).NameTableType(ArmElf::NOBITS).Bytes());
    return written ? 0 : 1;
}
