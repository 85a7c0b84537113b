// SPDX-License-Identifier: MIT
// A .xlf file.
#include "TranslationTexts.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    ReadTwice(data, size, *TranslationFormatOf(QStringLiteral("a.xlf")));
    return 0;
}
