// SPDX-License-Identifier: MIT
#include "PackFailure.h"

#include "ElfImage.h"
#include "PackCodes.h"

#include <cerrno>
#include <cstring>

namespace
{

constexpr CodeText FAILURES[] = {
    {PACK_INPUT_SIZE, "the input file does not exist or can't be read",
     "Check the path of --input; build the application first."},
    {PACK_NO_INPUT, "no input file is named", "Give the application file with --input."},
    {PACK_SAME_FILE,
     "the input, the output and the side file in the folder arm must be different files, and none of "
     "them may be a file of the project",
     "Choose another --output. Standard error names both files; they may be links to the same file."},
    {PACK_UNKNOWN_MODE, "the target kind is neither axf nor dll", "Use axf for an ELF file, or dll."},
    {PACK_MEMORY, "there is not enough memory for the resources, or they have more than 4 GiB",
     "A payload has at most 4 GiB. pack --dry-run shows which kind of resource is that large."},
    {PACK_LANGUAGE_LIST, "the project has no strings folder", "Add a string file to the resource list of the project."},
    {PACK_FILE_LIST, "a file resource has no ID", "Give each file of the resource list an ID."},
    {PACK_IMAGE_LIST, "an image has no ID", "Give each image of the resource list an ID."},
    {PACK_LANGUAGE_NUMBER, "a language's number isn't from 0 to 65534",
     "Correct the number of the language in line 2 of the string file."},
    {PACK_STRING_TABLE, "there is not enough memory for the strings of a language, or they have more than 4 GiB",
     "Close other programs, or remove texts."},
    {PACK_STRING_LIST, "a string has no ID", "Give each row of the string file an ID."},
    {PACK_FILE_INFO,
     "the size of a resource's file can't be read, or the layout converter didn't write the file of a layout",
     "The lines above name the file. For a layout they have the messages of the converter, or the ID whose number "
     "differs from that in the header: save the project, and compile the application with the new header."},
    {PACK_FILE_OPEN, "a resource's file can't be opened",
     "Check whether the file that is named above is a regular file, and its permissions."},
    {PACK_FILE_READ, "a resource's file ended or changed while it was packed",
     "Pack again, and change nothing meanwhile. If it happens again, check the disk."},
    {PACK_NOT_THERE,
     "a resource's file does not exist, or an image couldn't be converted; the last lines above name it",
     "Restore the file, or remove the resource. If an image is damaged or of an unknown form, export it again. pack "
     "--dry-run names all such files at once."},
    {PACK_IMAGE_TYPE, "an image that must be converted is not a bmp, gif, jpg or png file",
     "Use one of these formats, with a name that ends in bmp, gif, jpg or png. Images are converted with "
     "--convert-images 1, and those of type Push always."},
    {PACK_IMAGE_INFO, "the size of an image can't be read", "Check the permissions of the file that is named above."},
    {PACK_IMAGE_SIZE, "an image has 8 bytes or fewer", "The file is empty or cut off. Restore it."},
    {PACK_IMAGE_OPEN, "an image can't be opened",
     "Check whether the file that is named above is a regular file, and its permissions."},
    {PACK_IMAGE_READ, "an image ended or changed while it was packed",
     "Pack again, and change nothing meanwhile. If it happens again, check the disk."},
    {CONVERT_NO_TARGET, "the converter of pictures made no file; the pack ends with -1016",
     "Standard error has the message of the converter."},
    {CONVERT_TARGET_SIZE, "the size of a converted picture can't be read; the pack ends with -1016",
     "Check the permissions of the folder of the picture, or name another with --temp."},
    {CONVERT_TARGET_SHORT, "a converted picture has 8 bytes or fewer; the pack ends with -1016",
     "Check the converter: that of this program makes no such file."},
    {CONVERT_TARGET_STATE, "the permissions of a converted picture can't be read; the pack ends with -1016",
     "Check the permissions of the folder of the picture, or name another with --temp."},
    {PACK_WRITE, "an output couldn't be written completely; check whether the disk is full",
     "Free some space, and pack again. The old output is still there."},
    {PACK_NO_ICON, "there is no icon beside the project or beside the program",
     "Put AppLogo.img, or the file that the setting app_icon names, beside the project."},
    {int(ElfCode::OpenRead), "the input file does not exist or can't be opened",
     "Check the path of --input; build the application first."},
    {int(ElfCode::ReadHeader), "the input file is shorter than an ELF header",
     "Check whether --input is the linked application, and build it again."},
    {int(ElfCode::SeekProgramHeaders), "a seek in the input or output file failed",
     "Use a file on a disk, not a pipe."},
    {int(ElfCode::ReadProgramHeader), "the input's program headers are outside the file: it is not a 32-bit ELF file",
     "Link the application for a 32-bit processor, or use --target dll for a DLL."},
    {int(ElfCode::SeekSectionHeader), "the seek to the input's section table failed",
     "Use a file on a disk, not a pipe."},
    {int(ElfCode::ReadSectionHeader), "the input's section table is outside the file: it is not a 32-bit ELF file",
     "Link the application for a 32-bit processor, or use --target dll for a DLL."},
    {int(ElfCode::SeekSectionData), "the seek to a section of the input failed", "Use a file on a disk, not a pipe."},
    {int(ElfCode::ReadSectionData), "a section of the input is outside the file: it is not a 32-bit ELF file",
     "Link the application for a 32-bit processor, or use --target dll for a DLL."},
    {int(ElfCode::WriteHeader), "the output's header couldn't be updated",
     "Write to a file on a disk, and pack again."},
    {int(ElfCode::NoNameTable),
     "the input has no section name table: it is not a 32-bit ELF file, or the table was stripped",
     "Don't remove the section table with strip, or pack the file before that."},
    {int(ElfCode::TooLarge), "the packed file would have more than 65535 sections or more than 4 GiB",
     "Make the resources or the application smaller."},
    {int(ElfCode::InputChanged), "the input changed while it was packed",
     "Let the build pack only after the linker has ended."},
    {PACK_LAYOUT_FILE,
     "a layout file wasn't loaded completely, and without its layouts the IDs would get other numbers",
     "Standard error says what is wrong with which layout file. Correct it."},
    {PACK_CODE_PAGE, "the path of the input or output can't be expressed in the project's code page",
     "Standard error says which character the code page lacks. Rename the folder or file, or choose another code page "
     "(section Text, key code_page)."},
    {PACK_UNREADABLE,
     "another program has changed the project's files since the project was opened, and they can't be read",
     "Repair the files, or close the project and open it again."},
    {PACK_BUDGET, "the resources are larger than the budget",
     "Standard error lists the ten largest. Make some smaller, or raise the budget."},
    {PACK_TEMP_FOLDER, "the folder for temporary files can't be created or is not writable",
     "The folder of --temp must be in an existing folder that you can write to."},
};

} // namespace

QString PackFailureText(int code)
{
    if (code > 0)
        return QStringLiteral("an output can't be opened: %1%2")
            .arg(QString::fromLocal8Bit(std::strerror(code)),
                 code == ENOENT ? QStringLiteral("; its folder must exist, and so must the folder arm beside the input")
                                : QString());
    for (const CodeText &failure : FAILURES) {
        if (failure.code == code)
            return QString::fromLatin1(failure.when);
    }
    return code == 0 ? QString() : QStringLiteral("this code is unknown");
}

std::span<const CodeText> PackFailures()
{
    return FAILURES;
}
