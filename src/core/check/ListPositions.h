// SPDX-License-Identifier: MIT
#pragma once

#include "ScreenSize.h"

#include <QHash>

class CResDoc;

/// Where the elements of a project's resource list (res/NAME.res.xml) are in the file. Reads the file at the first
/// call of LineOf.
class ListPositions
{
public:
    /// The document must outlive this object.
    explicit ListPositions(CResDoc &openDocument);

    /// The absolute path of the resource list.
    [[nodiscard]] const QString &File() const { return file; }
    /// Returns the line, from 1, of the element with an ID in a RESOLUTION of that size; in APP, or in a COMPONENT, if
    /// the size is 0x0. Returns 0 if there is no such element.
    [[nodiscard]] int LineOf(const QString &id, ScreenSize screen) const;

private:
    void Read() const;

    CResDoc &document;
    QString file;
    mutable bool isRead = false;
    mutable QHash<std::pair<QString, quint64>, int> lines; // by ID and screen
};
