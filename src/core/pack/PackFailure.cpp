// SPDX-License-Identifier: MIT
#include "PackFailure.h"

#include "ElfImage.h"
#include "PackCodes.h"

#include <cerrno>
#include <cstring>

namespace
{

struct Failure
{
    int code;
    const char *text;
};

constexpr Failure FAILURES[] = {
    {PACK_INPUT_SIZE, "the input file does not exist or can't be read"},
    {PACK_NO_INPUT, "no input file is named"},
    {PACK_SAME_FILE, "the input, the output and the side file in the folder arm must be different files, and none of "
                     "them may be a file of the project"},
    {PACK_UNKNOWN_MODE, "the target kind is neither axf nor dll"},
    {PACK_MEMORY, "there is not enough memory for the resources, or they have more than 4 GiB"},
    {PACK_LANGUAGE_LIST, "the project has no strings folder"},
    {PACK_FILE_LIST, "a file resource has no ID"},
    {PACK_IMAGE_LIST, "an image has no ID"},
    {PACK_LANGUAGE_NUMBER, "a language's number isn't from 0 to 65534"},
    {PACK_STRING_TABLE, "there is not enough memory for the strings of a language, or they have more than 4 GiB"},
    {PACK_STRING_LIST, "a string has no ID"},
    {PACK_FILE_INFO,
     "the size of a resource's file can't be read, or the layout converter didn't write the file of a layout"},
    {PACK_FILE_OPEN, "a resource's file can't be opened"},
    {PACK_FILE_READ, "a resource's file ended while it was read"},
    {PACK_NOT_THERE,
     "a resource's file does not exist, or an image couldn't be converted; the last lines above name it"},
    {PACK_IMAGE_TYPE, "an image that must be converted is not a bmp, gif, jpg or png file"},
    {PACK_IMAGE_INFO, "the size of an image can't be read"},
    {PACK_IMAGE_SIZE, "an image has 8 bytes or fewer"},
    {PACK_IMAGE_OPEN, "an image can't be opened"},
    {PACK_IMAGE_READ, "an image ended while it was read"},
    {PACK_WRITE, "an output couldn't be written completely; check whether the disk is full"},
    {PACK_NO_ICON, "there is no icon beside the project or beside the program"},
    {int(ElfCode::OpenRead), "the input file does not exist or can't be opened"},
    {int(ElfCode::ReadHeader), "the input file is shorter than an ELF header"},
    {int(ElfCode::SeekProgramHeaders), "a seek in the input or output file failed"},
    {int(ElfCode::ReadProgramHeader), "the input's program headers are outside the file: it is not a 32-bit ELF file"},
    {int(ElfCode::SeekSectionHeader), "the seek to the input's section table failed"},
    {int(ElfCode::ReadSectionHeader), "the input's section table is outside the file: it is not a 32-bit ELF file"},
    {int(ElfCode::SeekSectionData), "the seek to a section of the input failed"},
    {int(ElfCode::ReadSectionData), "a section of the input is outside the file: it is not a 32-bit ELF file"},
    {int(ElfCode::WriteHeader), "the output's header couldn't be updated"},
    {int(ElfCode::NoNameTable),
     "the input has no section name table: it is not a 32-bit ELF file, or the table was stripped"},
    {int(ElfCode::TooLarge), "the packed file would have more than 65535 sections or more than 4 GiB"},
    {int(ElfCode::InputChanged), "the input changed while it was packed"},
    {PACK_LAYOUT_FILE,
     "a layout file wasn't loaded completely, and without its layouts the IDs would get other numbers"},
    {PACK_CODE_PAGE, "the path of the input or output can't be expressed in the project's code page"},
    {PACK_UNREADABLE,
     "another program has changed the project's files since the project was opened, and they can't be read"},
    {PACK_BUDGET, "the resources are larger than the budget"},
    {PACK_TEMP_FOLDER, "the folder for temporary files can't be created or is not writable"},
};

} // namespace

QString PackFailureText(int code)
{
    if (code > 0)
        return QStringLiteral("an output can't be opened: %1%2")
            .arg(QString::fromLocal8Bit(std::strerror(code)),
                 code == ENOENT ? QStringLiteral("; its folder must exist, and so must the folder arm beside the input")
                                : QString());
    for (const Failure &failure : FAILURES) {
        if (failure.code == code)
            return QString::fromLatin1(failure.text);
    }
    return code == 0 ? QString() : QStringLiteral("this code is unknown");
}
