// SPDX-License-Identifier: MIT
#pragma once

#include "RowNotes.h"
#include "TextFeatures.h"

#include <QString>

class IDeviceFont;
struct TextLimit;

/// A language of the checked project.
struct CheckedLanguage
{
    qint32 number = -1;
    QString name;
    QString code;                ///< its BCP 47 tag, such as "pt-BR"; empty if it isn't known
    IDeviceFont *font = nullptr; ///< the device's font for it; null if the settings name none. Owned by TextContext
    int fontLine = 0;            ///< the line of the settings that names the font
    /// The primary subtag, such as "pt"; empty if it isn't known.
    [[nodiscard]] QStringView Primary() const { return QStringView(code).first(qMax(0, PrimarySize())); }

private:
    [[nodiscard]] int PrimarySize() const
    {
        const qsizetype dash = code.indexOf(u'-');
        return int(dash < 0 ? code.size() : dash);
    }
};

/// A text of a row and the source text of the row, as the text rules get them. For the source language itself both are
/// the same text.
struct TextPair
{
    QStringView source;
    QStringView text;
    quint32 sourceFeatures = 0; ///< TextFeature
    quint32 features = 0;       ///< TextFeature
    const CheckedLanguage &sourceLanguage;
    const CheckedLanguage &language;
    const RowNotes &notes;  ///< of the row
    const TextLimit &limit; ///< of the row; all of it 0 if there is none

    /// True for the source text itself.
    [[nodiscard]] bool IsSource() const { return &sourceLanguage == &language; }
    /// True for a translation that can be compared with its source text: neither is empty or has only blanks, which is
    /// a finding of its own.
    [[nodiscard]] bool IsTranslation() const
    {
        return !IsSource() && ((sourceFeatures | features) & (IS_EMPTY | IS_BLANK)) == 0;
    }
};
