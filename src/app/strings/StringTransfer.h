// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class CResDoc;
class IViewBoxes;
struct TranslationFormat;

/// Imports and exports the string table through files that the user chooses or drops: workbooks and translation files.
/// Errors are shown in a message box, with details in the output.
class StringTransfer
{
public:
    /// Both arguments must outlive this object.
    StringTransfer(CResDoc &projectDocument, IViewBoxes &viewBoxes) : document(projectDocument), boxes(viewBoxes) {}

    /// Asks for a workbook, or for translation files, and imports them. Returns false if nothing has been done: the
    /// user cancels, or the translation files have an error.
    [[nodiscard]] bool Import();
    void Export();
    /// Imports the workbooks among dropped files. Returns false if none was imported.
    [[nodiscard]] bool ImportDropped(const QStringList &paths);

private:
    [[nodiscard]] bool ImportWorkbook(const QString &path);
    [[nodiscard]] bool ImportTranslations(const QStringList &paths);
    void ExportWorkbook(const QString &path);
    void ExportToTranslations(const QString &path, const TranslationFormat &format);
    /// Asks whether those of the files that exist may be replaced; not about `confirmed`.
    [[nodiscard]] bool MayReplace(const QStringList &files, const QString &confirmed);

    CResDoc &document;
    IViewBoxes &boxes;
};
