// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

class QWidget;

/// Takes pictures of widgets, and compares them with earlier ones of the same names.
class Pictures
{
public:
    /// The pictures are written to `toFolder`. They are compared with those in `referenceFolder`, unless it is empty.
    Pictures(QString toFolder, QString referenceFolder)
        : folder(std::move(toFolder)), references(std::move(referenceFolder))
    {
    }

    /// Writes NAME.png. A picture with a reference is taken again for up to 10 seconds until it is like the reference,
    /// any other until it no longer changes: threads may still be loading what the widget shows.
    void Take(const char *name, QWidget &widget);

    /// The number of pictures that differ from their references, or have none.
    [[nodiscard]] int Differing() const { return differing; }
    /// Prints the names of the pictures among the references that weren't taken, and returns their number.
    [[nodiscard]] int Missing() const;

private:
    QString folder, references;
    QStringList taken;
    int differing = 0;
};
