// SPDX-License-Identifier: MIT
// A .po file.
#include "TranslationTexts.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    ReadTwice(data, size, *TranslationFormatOf(QStringLiteral("a.po")));
    return 0;
}
