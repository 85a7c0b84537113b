// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

// Records of a BIFF8 stream: type and size, 2 bytes each, then the data. Numbers are little-endian. Data that doesn't
// fit into one record continues in CONTINUE records.

inline constexpr quint64 MOST_RECORD_DATA = 8224;

inline constexpr quint32 MOST_XLS_ROWS = 65536;
inline constexpr quint32 MOST_XLS_COLUMNS = 256;
inline constexpr qsizetype LONGEST_XLS_TEXT = 32767; ///< in UTF-16 units

enum BiffRecord : quint16
{
    BIFF_FORMULA = 0x0006,
    BIFF_EOF = 0x000A,
    BIFF_SELECTION = 0x001D,
    BIFF_FILEPASS = 0x002F,
    BIFF_FONT = 0x0031,
    BIFF_CONTINUE = 0x003C,
    BIFF_WINDOW1 = 0x003D,
    BIFF_PANE = 0x0041,
    BIFF_CODEPAGE = 0x0042,
    BIFF_COLINFO = 0x007D,
    BIFF_BOUNDSHEET = 0x0085,
    BIFF_MULRK = 0x00BD,
    BIFF_RSTRING = 0x00D6,
    BIFF_XF = 0x00E0,
    BIFF_SST = 0x00FC, ///< the texts of all sheets, each once
    BIFF_LABELSST = 0x00FD,
    BIFF_DIMENSIONS = 0x0200,
    BIFF_NUMBER = 0x0203,
    BIFF_LABEL = 0x0204,
    BIFF_FORMULA3 = 0x0206, ///< the form of BIFF3, which some programs still write; the result is at the same place
    BIFF_STRING = 0x0207,   ///< the text that is a formula's result
    BIFF_ROW = 0x0208,
    BIFF_DEFAULTROWHEIGHT = 0x0225,
    BIFF_WINDOW2 = 0x023E,
    BIFF_RK = 0x027E,
    BIFF_STYLE = 0x0293,
    BIFF_FORMULA4 = 0x0406, ///< the form of BIFF4
    BIFF_BOF = 0x0809,
};

// The fields of BOF: the version, and the kind of the records that follow up to EOF.
inline constexpr quint16 BIFF8 = 0x0600;
inline constexpr quint16 BOF_GLOBALS = 0x0005;
inline constexpr quint16 BOF_WORKSHEET = 0x0010;

// Flags of a text: 2 bytes for each character, not 1; data for East Asian scripts, or formatting runs, follow the
// characters.
inline constexpr quint8 TEXT_WIDE = 0x01;
inline constexpr quint8 TEXT_EXTENDED = 0x04;
inline constexpr quint8 TEXT_RICH = 0x08;
