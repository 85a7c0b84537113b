#pragma once

#include "Text.h"

class Settings;

/// Tells which kind of folder a file belongs to, by its extension and the patterns that the settings had when this was
/// made. Make one for each operation: the patterns can change between two of them.
class FileClassifier
{
public:
    explicit FileClassifier(const Settings &settings);

    /// The kind of folder, among those that `mask` allows; KIND_BINARY for a file of no known type.
    [[nodiscard]] quint32 Classify(quint32 mask, const QString &path) const;

    /// The patterns of the files that are "image", "audio" or "video".
    [[nodiscard]] static QString Patterns(const Settings &settings, const char *type);
    /// The three of them together, to compare with those of another time.
    [[nodiscard]] static QString AllPatterns(const Settings &settings);

private:
    // in lower case
    QString image;
    QString audio;
    QString video;
};
