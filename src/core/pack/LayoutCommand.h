#pragma once

#include "Text.h"

/// The options of one run of the layout converter.
struct LayoutCommand
{
    QString tool;    ///< the program
    QString input;   ///< -i
    QString output;  ///< -o
    QString xml;     ///< -x
    QString table;   ///< -t
    QString header;  ///< -h
    bool p = true;   ///< -p
    QString subtool; ///< -e -E

    [[nodiscard]] QString CommandLine() const;
};
