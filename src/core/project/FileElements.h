// SPDX-License-Identifier: MIT
#pragma once

#include "FileClassifier.h"
#include "HostFiles.h"
#include "ListReport.h"
#include "ResModel.h"

/// Reads the elements of a resource list that describe file resources: FILE and IMAGE.
class FileElements
{
public:
    /// The arguments must outlive this object.
    FileElements(const ProjectContext &context, ListReport &listReport);

    /// Reads a FILE into the folder of the file's kind, which depends on the end of its path.
    void ReadFile(const TiXmlElement &element);
    /// Reads an image into the folder for images of any resolution.
    void ReadDefaultImage(const TiXmlElement &element);
    /// Reads an image into `folder`, which has the images of the resolution `scope`.
    void ReadImage(const TiXmlElement &element, CResFolder *folder, qint16 scope);

private:
    [[nodiscard]] quint32 KindOf(const QByteArray &path);
    [[nodiscard]] CResFolder *FilesFolder(quint32 kind);
    void CheckElement(const TiXmlElement &element, const char *id, const char *text);
    void AddFileRes(const TiXmlElement &element, const char *tag, CResFolder *folder, qint16 scope, PushKind pushKind);

    CResDoc &doc;
    Environment &env;
    ListReport &report;
    HostPaths hostPaths;
    CResFolder *defaultImages = nullptr;
    CResFolder *files[3] = {};
    FileClassifier classifier;
    QByteArray lastEnd;
    quint32 lastKind = 0;
};
