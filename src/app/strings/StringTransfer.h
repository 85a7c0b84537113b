// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class CResDoc;
class IViewBoxes;

/// Imports and exports the string table through files that the user chooses or drops. Errors are shown in a message
/// box, with details in the output.
class StringTransfer
{
public:
    /// Both arguments must outlive this object.
    StringTransfer(CResDoc &projectDocument, IViewBoxes &viewBoxes) : document(projectDocument), boxes(viewBoxes) {}

    /// Asks for a workbook and imports it. Returns false if the user cancels; then nothing has been done.
    [[nodiscard]] bool Import();
    void Export();
    /// Imports the workbooks among dropped files. Returns false if none was imported.
    [[nodiscard]] bool ImportDropped(const QStringList &paths);

private:
    [[nodiscard]] bool ImportFile(const QString &path);

    CResDoc &document;
    IViewBoxes &boxes;
};
