// SPDX-License-Identifier: MIT
#pragma once

#include "ScreenSize.h"

#include <QHash>

class CResDoc;

/// Where the elements of a project's resource list (res/NAME.res.xml) are in the file.
class ListPositions
{
public:
    /// The document must outlive this object, unless `Read` is called before the document ends.
    explicit ListPositions(CResDoc &openDocument);

    /// The absolute path of the resource list.
    [[nodiscard]] const QString &File() const { return file; }
    /// Reads the file, unless it has been read. Main thread only.
    void Read() const;
    /// Returns the line, from 1, of the element with an ID in a RESOLUTION of that size; in APP, or in a COMPONENT, if
    /// the size is 0x0. Returns 0 if there is no such element. Calls `Read`.
    [[nodiscard]] int LineOf(const QString &id, ScreenSize screen) const;

private:
    CResDoc &document;
    QString file;
    mutable bool isRead = false;
    mutable QHash<std::pair<QString, quint64>, int> lines; // by ID and screen
};
