// SPDX-License-Identifier: MIT
#include "StringTransfer.h"

#include "CResDoc.h"
#include "Paths.h"
#include "Spreadsheet.h"
#include "StringGridRules.h"
#include "ViewBoxes.h"
#include "WaitCursor.h"

namespace
{

/// Explains what a result has in addition to the lines of the report.
void Explain(CResDoc &document, const SpreadsheetResult &result)
{
    if (!result.reason.isEmpty())
        document.env.Explain(result.reason);
}

} // namespace

bool StringTransfer::ImportFile(const QString &path)
{
    const WaitCursor cursor;
    const SpreadsheetResult result = ImportSpreadsheet(document, path);
    Explain(document, result);
    return result.code == 0;
}

bool StringTransfer::Import()
{
    const QString path =
        boxes.OpenFileDialog(QString::fromLatin1(EXCEL_FILTER), 1, /*multiSelect=*/false, QString()).value(0);
    if (path.isEmpty())
        return false;
    if (!ImportFile(path))
        boxes.ShowMessage(QStringLiteral("Failed to import from Excel."));
    return true;
}

void StringTransfer::Export()
{
    const QString path = boxes.SaveFileDialog(QString::fromLatin1(EXCEL_FILTER), QString());
    if (path.isEmpty())
        return;
    SpreadsheetResult result;
    {
        const WaitCursor cursor;
        result = ExportSpreadsheet(document, path);
    }
    Explain(document, result);
    if (result.code != 0)
        boxes.ShowMessage(QStringLiteral("Failed to export to Excel."));
}

bool StringTransfer::ImportDropped(const QStringList &paths)
{
    bool isAny = false;
    for (const QString &path : paths) {
        const QString name = FileName(path);
        switch (JudgeDrop(path)) {
        case DropVerdict::Skip:
            break;
        case DropVerdict::WrongType:
            boxes.ShowMessage(QStringLiteral("\"%1\": %2").arg(name, QStringLiteral("Inappropriate file type.")));
            break;
        case DropVerdict::Import:
            if (ImportFile(path))
                isAny = true;
            else
                boxes.ShowMessage(QStringLiteral("Failed to import \"%1\".").arg(name));
        }
    }
    return isAny;
}
