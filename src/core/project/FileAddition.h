// SPDX-License-Identifier: MIT
#pragma once

#include "FileArrival.h"
#include "FileClassifier.h"
#include "ResFolder.h"

class CResModel;

/// Turns the absolute path of a file into the form that the project stores: relative to its folder if the file is in
/// it. Returns a FileEdit.
[[nodiscard]] int ToStoredPath(const CResModel &model, QString &path);

/// Makes the resource of a file, with a default ID, and adds it to `folder`, or for the folder of all files to that of
/// its kind. The file is at `path` now, and the project will find it at `storedAt`; both are absolute. Returns a
/// FileEdit, and sets `made` to the resource, which its folder owns, or to null.
[[nodiscard]] int AddFileResource(CResModel &model, CResFolder &folder, const QString &path, const QString &storedAt,
                                  const FileClassifier &types, CFileRes *&made);
