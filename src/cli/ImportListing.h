// SPDX-License-Identifier: MIT
#pragma once

#include "ImportWatch.h"
#include "JsonWriter.h"
#include "StandardOutput.h"

/// Prints what an import would do with each text, one line for each.
class ImportLines : public IImportWatch
{
public:
    explicit ImportLines(StandardOutput &output) : out(output) {}
    void RowPlanned(const ImportPlan &plan, size_t index) override;

private:
    StandardOutput &out;
};

/// Prints the same as JSON, row by row.
class ImportJson : public IImportWatch
{
public:
    explicit ImportJson(StandardOutput &output);
    void RowPlanned(const ImportPlan &plan, size_t index) override;
    /// Ends the JSON. Call it once, after the last row.
    void End();

private:
    StandardOutput &out;
    QByteArray bytes;
    JsonWriter json{bytes};
    std::array<int, IMPORT_FATES> counts{};
};
