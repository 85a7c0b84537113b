// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

class Settings;

/// Finds the kind of folder that a file belongs to, from its extension and the patterns in the settings. The patterns
/// are read in the constructor; make a classifier for each operation, because they can change between two operations.
class FileClassifier
{
public:
    explicit FileClassifier(const Settings &settings);

    /// Returns the kind of folder, one of those that `mask` allows, or KIND_BINARY for a file of no known type.
    [[nodiscard]] quint32 Classify(quint32 mask, const QString &path) const;

    /// The patterns of the files that are "image", "audio" or "video".
    [[nodiscard]] static QString Patterns(const Settings &settings, const char *type);
    /// All three lists of patterns in one text, to find out whether they have changed.
    [[nodiscard]] static QString AllPatterns(const Settings &settings);

private:
    // in lower case
    QString image;
    QString audio;
    QString video;
};
