// SPDX-License-Identifier: MIT
#include "ZulValues.h"

#include "FloatText.h"
#include "IDPool.h"
#include "TextScan.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>

namespace
{

constexpr qint64 LARGEST = std::numeric_limits<qint32>::max();

bool FitsS32(qint64 number)
{
    return number >= std::numeric_limits<qint32>::min() && number <= LARGEST;
}

bool AreDigits(QByteArrayView text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), TextScan::IsDigit);
}

bool IsOneOf(const NarrowText &text, const std::array<QByteArrayView, 5> &words)
{
    return std::any_of(words.begin(), words.end(), [&text](QByteArrayView word) { return word == text; });
}

constexpr std::array<QByteArrayView, 5> TRUE_WORDS{"1", "true", "TRUE", "ZulTrue", "ZUL_TRUE"};
constexpr std::array<QByteArrayView, 5> FALSE_WORDS{"0", "false", "FALSE", "ZulFalse", "ZUL_FALSE"};

__attribute__((format(printf, 1, 2))) NarrowText Print(const char *format, ...)
{
    char buffer[64]; // enough for four numbers
    va_list arguments;
    va_start(arguments, format);
    const int length = vsnprintf(buffer, sizeof(buffer), format, arguments);
    va_end(arguments);
    return {buffer, length};
}

/// Scans "(%d,%d)" with that many numbers; numbers after a mismatch are unchanged.
template <size_t count> void ScanNumbers(const NarrowText &text, const std::array<qint32 *, count> &numbers)
{
    TextScan scan(text);
    char before = '(';
    for (qint32 *number : numbers) {
        if (!scan.Char(before) || !scan.Number(*number))
            return;
        before = ',';
    }
}

/// True if a text has that many numbers in range, with nothing between the last and ")".
bool AreNumbers(const NarrowText &text, int count, QByteArrayView opening = "(", qint64 lowest = -LARGEST - 1,
                qint64 highest = LARGEST)
{
    TextScan scan(text);
    for (int i = 0; i < count; ++i) {
        qint64 number = 0;
        if (!scan.Text(i == 0 ? opening : QByteArrayView(",")) || !scan.Number(number) || number < lowest ||
            number > highest)
            return false;
    }
    return !scan.HasTextBefore(')');
}

bool EqualsUnit(QByteArrayView word, QByteArrayView unit)
{
    return word.compare(unit, Qt::CaseInsensitive) == 0;
}

} // namespace

NarrowText CZulBool::GetText() const
{
    if (!attr)
        return {};
    return value ? NarrowText("true") : NarrowText("false");
}

bool CZulBool::IsValid(const NarrowText &text) const
{
    return IsOneOf(text, TRUE_WORDS) || IsOneOf(text, FALSE_WORDS);
}

void CZulBool::SetText(const NarrowText &text)
{
    value = IsOneOf(text, TRUE_WORDS);
    CZulBase::SetText(text);
}

NarrowText CZulFloat::GetText() const
{
    return attr ? PrintFloat(value) : NarrowText();
}

bool CZulFloat::IsValid(const NarrowText &text) const
{
    const bool isSigned = text.startsWith('+') || text.startsWith('-');
    const QByteArrayView number = QByteArrayView(text).sliced(isSigned);
    return !number.isEmpty() && number[0] != '.' && number.count('.') <= 1 &&
           std::all_of(number.begin(), number.end(), [](char c) { return c == '.' || TextScan::IsDigit(c); });
}

void CZulFloat::SetText(const NarrowText &text)
{
    value = ParseFloat(text);
    CZulBase::SetText(text);
}

NarrowText CZulS32::GetText() const
{
    return attr ? NarrowText::number(value) : NarrowText();
}

bool CZulS32::IsValid(const NarrowText &text) const
{
    const bool isSigned = text.startsWith('+') || text.startsWith('-');
    qint64 number = 0;
    return AreDigits(QByteArrayView(text).sliced(isSigned)) && TextScan(text).Number(number) && FitsS32(number);
}

void CZulS32::SetText(const NarrowText &text)
{
    value = 0;
    TextScan(text).Number(value);
    CZulBase::SetText(text);
}

NarrowText CZulU32::GetText() const
{
    return attr ? NarrowText::number(value) : NarrowText();
}

bool CZulU32::IsValid(const NarrowText &text) const
{
    qint64 number = 0;
    return AreDigits(text) && TextScan(text).Number(number) && FitsS32(number);
}

void CZulU32::SetText(const NarrowText &text)
{
    qint64 number = 0;
    TextScan(text).Number(number);
    value = quint32(number);
    CZulBase::SetText(text);
}

NarrowText CZulMsec::GetText() const
{
    if (!attr)
        return {};
    const bool isSeconds = value >= 1000 && value % 1000 == 0;
    return isSeconds ? NarrowText::number(value / 1000) + 's' : NarrowText::number(value) + "ms";
}

bool CZulMsec::IsValid(const NarrowText &text) const
{
    TextScan scan(text);
    qint64 number = 0;
    if (!scan.Number(number))
        return true;
    if (!FitsS32(number))
        return false;
    const QByteArrayView unit = scan.Word();
    return unit.isEmpty() || EqualsUnit(unit, "ms") || (EqualsUnit(unit, "s") && FitsS32(number * 1000));
}

bool CZulMsec::HasNumber(const NarrowText &text)
{
    qint64 number = 0;
    return TextScan(text).Number(number);
}

void CZulMsec::SetText(const NarrowText &text)
{
    TextScan scan(text);
    qint64 number = 0;
    if (scan.Number(number)) {
        value = quint32(number);
        if (EqualsUnit(scan.Word(), "s"))
            value *= 1000;
    }
    CZulBase::SetText(text);
}

NarrowText CZulColor::GetText() const
{
    return attr ? Print("RGB(%d, %d, %d)", red, green, blue) : NarrowText();
}

bool CZulColor::IsValid(const NarrowText &text) const
{
    if (AreNumbers(text, 3, "RGB(", 0, 255))
        return true;
    TextScan scan(text);
    quint8 byte = 0;
    return scan.Char('#') && scan.HexByte(byte) && scan.HexByte(byte) && scan.HexByte(byte);
}

void CZulColor::SetText(const NarrowText &text)
{
    std::array<quint8, 4> bytes{};
    TextScan hex(text);
    size_t fields = 0;
    if (hex.Char('#')) {
        while (fields < 4 && hex.HexByte(bytes[fields]))
            ++fields;
    }
    if (fields == 4) {
        alpha = bytes[0];
        red = bytes[1];
        green = bytes[2];
        blue = bytes[3];
        CZulBase::SetText(Print("#%02X%02X%02X%02X", alpha, red, green, blue));
        return;
    }
    if (fields < 3) {
        TextScan scan(text);
        for (fields = 0; fields < 3; ++fields) {
            qint32 number = 0;
            if (fields == 0 ? !scan.Text("RGB(") : !scan.Char(','))
                return;
            if (!scan.Number(number))
                return;
            bytes[fields] = quint8(number);
        }
    }
    alpha = 0;
    red = bytes[0];
    green = bytes[1];
    blue = bytes[2];
    CZulBase::SetText(Print("#%02X%02X%02X", red, green, blue));
}

NarrowText CZulPoint::GetText() const
{
    return attr ? Print("(%d, %d)", x, y) : NarrowText();
}

bool CZulPoint::IsValid(const NarrowText &text) const
{
    return AreNumbers(text, 2);
}

void CZulPoint::SetText(const NarrowText &text)
{
    ScanNumbers<2>(text, {&x, &y});
    CZulBase::SetText(text);
}

NarrowText CZulFPoint::GetText() const
{
    return attr ? PrintFloat(x) + ',' + PrintFloat(y) : NarrowText();
}

bool CZulFPoint::IsValid(const NarrowText &text) const
{
    float first = 0;
    float second = 0;
    const FloatPair pair = ScanFloatPair(text, first, second);
    return pair.fields >= 2 && !pair.behind;
}

void CZulFPoint::SetText(const NarrowText &text)
{
    ScanFloatPair(text, x, y);
    CZulBase::SetText(text);
}

NarrowText CZulSize::GetText() const
{
    return attr ? Print("(%d, %d)", width, height) : NarrowText();
}

bool CZulSize::IsValid(const NarrowText &text) const
{
    return AreNumbers(text, 2);
}

void CZulSize::SetText(const NarrowText &text)
{
    ScanNumbers<2>(text, {&width, &height});
    CZulBase::SetText(text);
}

NarrowText CZulRect::GetText() const
{
    return attr ? Print("(%d, %d, %d, %d)", left, top, width, height) : NarrowText();
}

bool CZulRect::IsValid(const NarrowText &text) const
{
    return AreNumbers(text, 4);
}

void CZulRect::SetText(const NarrowText &text)
{
    ScanNumbers<4>(text, {&left, &top, &width, &height});
    CZulBase::SetText(text);
}

void CZulResId::SetText(const NarrowText &text)
{
    value = text;
    CZulBase::SetText(text);
}

void CZulResId::SetReference(const IDRecord &id)
{
    SetText('@' + id.name);
}

bool CZulEnum::IsValid(const NarrowText &text) const
{
    return descriptor && std::any_of(descriptor->items.begin(), descriptor->items.end(),
                                     [&text](const ClassDescriptor::Item &item) { return item.name == text; });
}

void CZulEnum::SetText(const NarrowText &text)
{
    value = text;
    CZulBase::SetText(text);
}
