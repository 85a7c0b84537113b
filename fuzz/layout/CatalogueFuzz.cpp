// SPDX-License-Identifier: MIT
// A catalogue. If it is valid, creates an object of each of its types with all members, binds it to a component with a
// value for each property, and aborts if a value isn't found in the component.
#include "CatalogueFile.h"
#include "Environment.h"
#include "ZulValues.h"

#include <cstdlib>

namespace
{

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

constexpr int MOST_VALUES = 1000;

/// Returns the number of values in an object. Each member must be found by its name, unless a derived class hides it.
int CountAndSet(CZulCustom &object)
{
    int count = 0;
    for (const auto &member : object.Members()) {
        Require(member && member->owner == &object && object.FindMember(member->propName) == member.get());
        ++count;
        if (auto *custom = dynamic_cast<CZulStateImg *>(member.get()))
            static_cast<CZulBase &>(*custom->Members()[0]).SetText("@ID");
        else if (auto *composite = dynamic_cast<CZulCustom *>(member.get()))
            count += CountAndSet(*composite);
        else
            static_cast<CZulBase &>(*member).SetText("(1, 2, 3, 4)");
    }
    if (auto *derived = dynamic_cast<CZulClass *>(&object); derived && derived->super)
        count += CountAndSet(*derived->super);
    return count;
}

size_t CountElements(const ComponentObject &component)
{
    size_t count = 1;
    for (const auto &child : component.children)
        count += CountElements(*child);
    return count;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const Environment env(QStringLiteral("/nonexistent"));
    ClassCatalogue catalogue;
    std::vector<Finding> errors;
    const QByteArrayView bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const bool fine = ParseCatalogue(env, bytes, QStringLiteral("c.xml"), catalogue, errors);
    Require(fine == errors.empty() && fine == catalogue.loaded && (fine || catalogue.entries.empty()));
    for (const QString &error : CatalogueErrors(errors))
        Require(error.startsWith(u"c.xml"));
    for (const auto &entry : catalogue.entries) {
        Require(catalogue.Find(entry->name) == entry.get());
        if (entry->kind == CLASS_ENUMERATION)
            continue;
        ComponentObject component;
        component.className = entry->name;
        const auto object = CreateType(catalogue, {}, entry->name);
        auto &custom = static_cast<CZulCustom &>(*object);
        Require(BindComponent(custom, &component));
        Require(CountAndSet(custom) <= MOST_VALUES && CountElements(component) <= MOST_VALUES + 1);
        const auto again = CreateType(catalogue, {}, entry->name);
        Require(BindComponent(static_cast<CZulCustom &>(*again), &component));
    }
    return 0;
}
