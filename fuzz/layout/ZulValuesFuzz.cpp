// SPDX-License-Identifier: MIT
// A text for every type of value; its first byte selects the previous value. Aborts if an accepted text parses to
// another value than it prints, if a value doesn't read back from its stored text, or if the component of a layout
// doesn't read back as written.
#include "ZulValues.h"

#include <cstdlib>
#include <cstring>

namespace
{

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

constexpr const char *TYPES[] = {"ZulBool",   "ZulFloat", "ZulS32",     "ZulU32",     "ZulId",
                                 "ZulMsec",   "ZulColor", "ZulPoint",   "ZulSize",    "ZulRect",
                                 "ZulFPoint", "ZulResId", "ZulWString", "ZulImageSrc"};
constexpr const char *BEFORE[] = {"", "(1, 2, 3, 4)", "#80FF8040", "7", "2s", "(0.5, 1)", "true"};

void Try(const ClassCatalogue &catalogue, const char *type, const char *before, const NarrowText &text)
{
    const auto make = [&] {
        return std::unique_ptr<CZulBase>(static_cast<CZulBase *>(CreateType(catalogue, "p", type).release()));
    };
    const auto value = make();
    AttributeRecord record{"p", before};
    Require(value->BindAttribute(&record));
    const bool isColor = value->GetTypeId() == TYPE_COLOR;
    value->SetText(text);
    Require(isColor || record.value == text);
    if (!value->IsValid(text))
        return;
    const NarrowText shown = value->GetText();

    // The previous value doesn't affect an accepted text, except for times without a number.
    const auto fresh = make();
    AttributeRecord freshRecord{"p", text};
    fresh->BindAttribute(&freshRecord);
    const bool isTime = value->GetTypeId() == TYPE_MSEC;
    Require(isTime || fresh->GetText() == shown);

    // A time below zero prints as a number beyond the accepted range.
    const bool isBelowZero = isTime && static_cast<CZulMsec &>(*value).value > 0x7FFFFFFF;
    const NarrowText typed = value->GetTypeId() == TYPE_FPOINT ? '(' + shown + ')' : shown;
    const bool isNumber = !shown.contains("nan") && !shown.contains("inf");
    Require(isBelowZero || !isNumber || value->IsValid(typed));
    if (!isBelowZero && isNumber) {
        value->SetText(typed);
        Require(value->GetText() == shown);
    }
}

void TryStateImage(const ClassCatalogue &catalogue, const NarrowText &text)
{
    CZulStateImg images(catalogue);
    AttributeRecord record{"p", text};
    Require(images.BindAttribute(&record) && record.value == text);
    auto &disabled = static_cast<CZulBase &>(*images.Members()[2]);
    disabled.SetText(disabled.GetText() + 'x'); // the same text again would change nothing
    Require(record.value.startsWith('(') && record.value.endsWith(')'));
    const NarrowText written = record.value;
    CZulStateImg again(catalogue);
    Require(again.BindAttribute(&record));
    for (size_t i = 0; i < 4; ++i) {
        const NarrowText image = images.Members()[i]->GetText();
        const NarrowText read = again.Members()[i]->GetText();
        Require(read == (image.isEmpty() ? NarrowText("0") : image));
    }
    Require(record.value == written);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const ClassCatalogue catalogue;
    if (size < 1 || memchr(data + 1, 0, size - 1))
        return 0; // a text in a file has no zeros
    const NarrowText text(reinterpret_cast<const char *>(data + 1), qsizetype(size - 1));
    for (const char *type : TYPES)
        Try(catalogue, type, BEFORE[data[0] % std::size(BEFORE)], text);
    TryStateImage(catalogue, text);
    return 0;
}
