// SPDX-License-Identifier: MIT
// A text for every type of value; its first byte says which value was there before. Aborts when a text that is accepted
// doesn't print as what it parses to, when a value doesn't come back from its stored text, or when a layout's component
// doesn't read as it was written.
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

    // From nothing: what it was before plays no part in a text that is accepted, but for times that name no number.
    const auto fresh = make();
    AttributeRecord freshRecord{"p", text};
    fresh->BindAttribute(&freshRecord);
    const bool isTime = value->GetTypeId() == TYPE_MSEC;
    Require(isTime || fresh->GetText() == shown);

    // Below zero a time prints as a number beyond those that are accepted.
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
    disabled.SetText(disabled.GetText() + 'x'); // the same once more would change nothing
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
        return 0; // no text of a file has a zero
    const NarrowText text(reinterpret_cast<const char *>(data + 1), qsizetype(size - 1));
    for (const char *type : TYPES)
        Try(catalogue, type, BEFORE[data[0] % std::size(BEFORE)], text);
    TryStateImage(catalogue, text);
    return 0;
}
