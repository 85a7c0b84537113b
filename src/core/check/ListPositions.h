// SPDX-License-Identifier: MIT
#pragma once

#include "ScreenSize.h"

#include <QHash>

class CResDoc;
class Environment;
class TiXmlElement;

/// Where the elements of a project's resource list (res/NAME.res.xml), or of one of its layout files, are in the file.
class ListPositions
{
public:
    /// Of the resource list. The document must outlive this object, unless `Read` is called before the document ends.
    explicit ListPositions(const CResDoc &document);
    /// Of the layout file with that absolute path. The environment must outlive this object.
    ListPositions(const Environment &environment, QString layoutFile);

    /// The absolute path of the file.
    [[nodiscard]] const QString &File() const { return file; }
    /// Reads the file, unless it has been read. Main thread only.
    void Read() const;
    /// Returns the line, from 1, of the first element with an ID; 0 if there is none. Calls `Read`.
    [[nodiscard]] int LineOf(const QString &id) const;
    /// Returns the line, from 1, of the element with an ID in a RESOLUTION of that size; in APP, or in a COMPONENT, if
    /// the size is 0x0. Returns 0 if there is no such element. Calls `Read`.
    [[nodiscard]] int LineOf(const QString &id, ScreenSize screen) const;

private:
    void AddBelow(const TiXmlElement &parent) const;
    void AddForScreens(const TiXmlElement &app) const;

    const Environment &env;
    QString file;
    mutable bool isRead = false;
    mutable QHash<QString, int> firstLines;                // by ID
    mutable QHash<std::pair<QString, quint64>, int> lines; // by ID and screen
};
