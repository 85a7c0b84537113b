// SPDX-License-Identifier: MIT
#pragma once

#include "TestModel.h"

/// Adds IDs to the pool of a model, in the order of the calls.
struct PoolBuilder
{
    PoolBuilder &Normal(const NarrowText &name, qint16 scope = ANY_RESOLUTION)
    {
        holders.push_back(model.CreateFileRes(name, scope));
        return *this;
    }

    PoolBuilder &Push(const NarrowText &name, qint32 pushKind, qint16 scope = ANY_RESOLUTION)
    {
        Normal(name, scope);
        holders.back()->Id()->push = true;
        holders.back()->Id()->pushKind = pushKind;
        return *this;
    }

    /// Returns "NAME=value" for all records, in the order of the pool.
    [[nodiscard]] QByteArray Values() const
    {
        QByteArrayList values;
        for (const auto &res : holders)
            values.append(res->Id()->name + '=' + QByteArray::number(res->Id()->value));
        return values.join(' ');
    }

    CResModel &model;
    std::vector<std::unique_ptr<CFileRes>> holders{};
};
