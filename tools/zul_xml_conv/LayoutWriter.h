// SPDX-License-Identifier: MIT
#pragma once

#include "IdNumbers.h"
#include "LayoutTables.h"
#include "ZulType.h"

#include <functional>
#include <unordered_map>

/// Turns a layout's components into the device's form (docs/layout-format.md).
class LayoutWriter
{
public:
    /// Called with each error and its component, or null. The result is then unusable.
    using ErrorSink = std::function<void(const ComponentObject *, const QByteArray &)>;

    LayoutWriter(const ClassCatalogue &catalogue, const LayoutTables &layoutTables, const IdNumbers &idNumbers,
                 ErrorSink errorSink)
        : types(catalogue), tables(layoutTables), ids(idNumbers), tell(std::move(errorSink))
    {
    }

    /// Returns the whole layout. Binds typed values to the components, which gives colours their normal form.
    [[nodiscard]] QByteArray Write(const NarrowText &id,
                                   const std::vector<std::unique_ptr<ComponentObject>> &components);

private:
    void WriteComponent(QByteArray &out, ComponentObject &component);
    void WriteTyped(QByteArray &out, const CZulClass &object);
    void WriteUntyped(QByteArray &out, const ComponentObject &component);
    void WriteName(QByteArray &parts, const NarrowText &name);
    void WriteContent(QByteArray &parts, const CZulCustom &object, const CZulClass *asClass);
    void Remember(const ComponentObject &component);
    [[nodiscard]] const NarrowText &AsWritten(const AttributeRecord &record) const;
    void WriteAttribute(QByteArray &parts, const CZulCustom &object, const AttributeRecord &record);
    void WriteValue(QByteArray &parts, quint16 property, CZulType &member, const NarrowText &text,
                    const ComponentObject &where);
    void WriteReference(QByteArray &parts, quint16 property, const NarrowText &typeName, const NarrowText &text,
                        const ComponentObject &where);
    void WriteStateImage(QByteArray &parts, quint16 property, const CZulStruct &member, const NarrowText &text,
                         const ComponentObject &where);
    quint32 Reference(const NarrowText &text, const ComponentObject &where);
    void Part(QByteArray &out, quint16 number, quint8 type, const QByteArray &value);

    const ClassCatalogue &types;
    const LayoutTables &tables;
    const IdNumbers &ids;
    ErrorSink tell;
    std::unordered_map<const AttributeRecord *, NarrowText> written; // the text in the file, if it may differ
    int depth = 0;
    int levels = 0;
};
