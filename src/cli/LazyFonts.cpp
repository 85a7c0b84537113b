// SPDX-License-Identifier: MIT
// OpenDeviceFont for a program: it loads libmorvanite-fonts.so, which has the real function, with the first font.

#include "FontsModule.h"
#include "Module.h"

std::unique_ptr<IDeviceFont> OpenDeviceFont(const QString &file, int pixels, bool isShaped, QString &why)
{
    static const auto *const open =
        static_cast<const OpenFontFunction *>(SymbolOfModule("libmorvanite-fonts.so", FONTS_FUNCTION));
    if (open)
        return (*open)(file, pixels, isShaped, why);
    why = QStringLiteral("libmorvanite-fonts.so, which must be beside the program, can't be loaded");
    return nullptr;
}
