// SPDX-License-Identifier: MIT
#include "FloatText.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <locale.h> // NOLINT(modernize-deprecated-headers): newlocale isn't standard C++
#include <string>

namespace
{

locale_t PlainLocale()
{
    static locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    return plain;
}

/// While this object lives, the calling thread reads and prints numbers in the plain locale.
class InPlainLocale
{
public:
    InPlainLocale() : before(uselocale(PlainLocale())) {}
    ~InPlainLocale() { uselocale(before); }
    InPlainLocale(const InPlainLocale &) = delete;
    InPlainLocale &operator=(const InPlainLocale &) = delete;

private:
    locale_t before;
};

} // namespace

float ParseFloat(const NarrowText &text)
{
    return float(strtod_l(text.toStdString().c_str(), nullptr, PlainLocale()));
}

FloatPair ScanFloatPair(const NarrowText &text, float &x, float &y)
{
    const InPlainLocale plain;
    char behind[2];
    const int fields = sscanf(text.toStdString().c_str(), "(%f, %f%1[^)]", &x, &y, behind);
    return {std::max(fields, 0), fields == 3};
}

NarrowText PrintFloat(float number)
{
    char buffer[128]; // the largest has 46 characters
    const auto printed =
        std::to_chars(std::begin(buffer), std::end(buffer), double(number), std::chars_format::fixed, 6);
    QByteArrayView text(buffer, printed.ptr - buffer);
    if (text.contains('.')) {
        while (text.endsWith('0'))
            text.chop(1);
        if (text.endsWith('.'))
            text.chop(1);
    }
    return text.toByteArray();
}
