// SPDX-License-Identifier: MIT
#pragma once

#include "Environment.h"
#include "ResModel.h"

/// A model without a document.
class BenchModel : public CResModel
{
public:
    using CResModel::CResModel;
    const QString &PathName() const override { return path; }

private:
    QString path = QStringLiteral("/demo.vcproj");
};

/// A process of its own for one model with an empty tree.
struct BenchWorld
{
    Environment env{QStringLiteral("/nowhere")};
    ProcessTables tables;
    BenchModel model{env, tables};
};

/// The same with an empty folder of strings.
struct StringsWorld : BenchWorld
{
    StringsWorld() { model.root.AddFolder(model.CreateFolder(KIND_STRINGS, -1)); }
};
