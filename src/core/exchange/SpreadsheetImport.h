#pragma once

#include "ImportPlan.h"
#include "Sheet.h"
#include "Spreadsheet.h"

#include <memory>

/// Hears of each row of a source that has been planned, before the next is read: what it prints follows the lines
/// of the report about that row.
class IImportWatch
{
public:
    virtual ~IImportWatch() = default;
    virtual void RowPlanned(const ImportPlan &plan, size_t index) = 0;
};

/// The import of a workbook's first sheet: read and planned, then carried out or not.
///
///     SpreadsheetImport import(model, path);
///     const SpreadsheetResult result = import.Read();   // the plan, and the report; the model is as before
///     if (result.code == 0)
///         import.Plan().Apply();
class SpreadsheetImport
{
public:
    SpreadsheetImport(CResModel &model, QString file);

    /// Reads the settings anew, and the workbook, and makes the plan. Logs what is wrong; the errors of a row don't
    /// stop it. After a failure the plan has what the header says of languages before it, and no rows.
    [[nodiscard]] SpreadsheetResult Read(IImportWatch *watch = nullptr);

    [[nodiscard]] ImportPlan &Plan() { return plan; }

private:
    CResModel &document;
    QString path;
    Sheet sheet;
    std::unique_ptr<IImportSource> texts; // of the sheet
    ImportPlan plan;
};
