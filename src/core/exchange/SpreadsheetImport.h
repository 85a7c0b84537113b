// SPDX-License-Identifier: MIT
#pragma once

#include "ImportWatch.h"
#include "SheetReading.h"
#include "Spreadsheet.h"

#include <memory>

/// Imports a workbook's first sheet, or that of the options: reads it and makes a plan, which can then be applied.
///
///     SpreadsheetImport import(model, {path, path});    // begins to read the workbook
///     const SpreadsheetResult result = import.Read();   // makes the plan and the report; doesn't change the model
///     if (result.code == 0)
///         import.Plan().Apply();
class SpreadsheetImport
{
public:
    /// Begins to read the workbook.
    SpreadsheetImport(CResModel &model, ImportFile workbook, const ImportOptions &importOptions = {});
    /// The sheet of the options is being read already. `begun` isn't null.
    SpreadsheetImport(CResModel &model, std::unique_ptr<SheetReading> begun, const ImportOptions &importOptions);

    /// Reads the settings again, waits for the workbook, and makes the plan. Logs what is wrong; errors in a row don't
    /// stop it. After a failure the plan has the languages that the header has before it, and no rows. Call it only
    /// once.
    [[nodiscard]] SpreadsheetResult Read(IImportWatch *watch = nullptr);

    [[nodiscard]] ImportPlan &Plan() { return plan; }

private:
    CResModel &document;
    std::unique_ptr<SheetReading> reading;
    bool ownNames;
    Sheet sheet;
    std::unique_ptr<IImportSource> texts; // the texts of the sheet
    ImportPlan plan;
};
