// SPDX-License-Identifier: MIT
#pragma once

/// Why a pack failed. The command's report shows the number. Failures of the target file have the numbers from -1029 to
/// -1039 of ElfImage.h, and the error number of an output that can't be opened is positive.
enum PackCode : int
{
    PACK_OK = 0,
    PACK_INPUT_SIZE = -1,         ///< the size of the input file couldn't be read
    PACK_NO_INPUT = -1000,        ///< no input file is named
    PACK_SAME_FILE = -1001,       ///< input and output are the same file
    PACK_UNKNOWN_MODE = -1002,    ///< neither of the two modes
    PACK_MEMORY = -1005,          ///< no memory for the payload, or its size exceeds 32 bits
    PACK_LANGUAGE_LIST = -1006,   ///< the tree has no folder of strings
    PACK_FILE_LIST = -1007,       ///< a file resource without an ID
    PACK_IMAGE_LIST = -1008,      ///< an image without an ID
    PACK_LANGUAGE_NUMBER = -1010, ///< a language number below 0
    PACK_STRING_TABLE = -1011,    ///< no memory for a string table
    PACK_STRING_LIST = -1012,     ///< a string without an ID
    PACK_FILE_INFO = -1013,       ///< a file's size couldn't be read, or there is none for a layout
    PACK_FILE_OPEN = -1014,       ///< a file couldn't be opened
    PACK_FILE_READ = -1015,       ///< a file ended early
    PACK_NOT_THERE = -1016,       ///< a file doesn't exist, or an image wasn't converted
    PACK_IMAGE_TYPE = -1017,      ///< an image has to be converted but can't be
    PACK_IMAGE_INFO = -1018,      ///< an image's size couldn't be read
    PACK_IMAGE_SIZE = -1019,      ///< an image file has 8 bytes or fewer
    PACK_IMAGE_OPEN = -1020,      ///< an image couldn't be opened
    PACK_IMAGE_READ = -1021,      ///< an image ended early
    CONVERT_NO_TARGET = -1023,    ///< the converter left nothing to read
    CONVERT_TARGET_SIZE = -1024,  ///< the size of the converted image couldn't be read
    CONVERT_TARGET_SHORT = -1025, ///< the converted image has 8 bytes or fewer
    CONVERT_TARGET_STATE = -1026, ///< the attributes of the converted image couldn't be read
    PACK_WRITE = -1029,           ///< a write fell short
    PACK_NO_ICON = -1032,         ///< neither the project nor the program has an icon
    PACK_TEMP_FOLDER = -1043,     ///< the folder for temporary files can't be made or written
    PACK_LAYOUT_FILE = -1044,     ///< a layout file was loaded only in part, so the numbers would differ
    PACK_UNREADABLE = -1045,      ///< the files of the open project have changed and can no longer be read
    PACK_CODE_PAGE = -1046,       ///< the path of the input or output can't be expressed in the code page
    PACK_BUDGET = -1047,          ///< the payload is larger than its budget
};

/// A file of this size or less, in bytes, isn't an image.
inline constexpr int IMAGE_TOO_SMALL = 8;
