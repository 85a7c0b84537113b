#pragma once

#include <QStringList>

class CResDoc;
class IViewBoxes;

/// Import and export of the string table through files that the user names or drops. What goes wrong is told in a box,
/// with its details in the output.
class StringTransfer
{
public:
    /// Both must live longer.
    StringTransfer(CResDoc &projectDocument, IViewBoxes &viewBoxes) : document(projectDocument), boxes(viewBoxes) {}

    /// Asks for a workbook and imports it. False when the user cancels: nothing has been done.
    [[nodiscard]] bool Import();
    void Export();
    /// Imports the workbooks among files that were dropped. False when none was imported.
    [[nodiscard]] bool ImportDropped(const QStringList &paths);

private:
    [[nodiscard]] bool ImportFile(const QString &path);

    CResDoc &document;
    IViewBoxes &boxes;
};
