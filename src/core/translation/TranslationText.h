// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// What a translation file says of all its texts.
struct TranslationHead
{
    QString project;     ///< the project's name; only written
    QString original;    ///< the file that the texts come from, relative to the project's folder; only written
    QString sourceCode;  ///< the code of the source language (BCP 47), as the file spells it; empty if it names none
    QString targetCode;  ///< the code of the translations' language; empty if it names none, or in a template
    qint64 revision = 0; ///< the time of the last change, in seconds since 1970; only written
};

/// A text and its translation.
struct TranslationText
{
    QString id;
    QString source;
    QString target;            ///< empty if it isn't translated
    QString note;              ///< the description for translators
    int length = 0;            ///< the most characters of the translation; 0 for no limit; only written
    int width = 0;             ///< the most pixels; 0 for no limit; only written
    bool isFormat = false;     ///< the source is a format of printf; only written
    bool isUnfinished = false; ///< the translation isn't finished; only read
    int line = 0;              ///< of the file, from 1; only read
};

/// The source from which a translation file is written.
class ITranslationSource
{
public:
    virtual ~ITranslationSource() = default;
    [[nodiscard]] virtual TranslationHead Head() const = 0;
    /// Returns the next text, which is valid until the next call; null at the end.
    [[nodiscard]] virtual const TranslationText *Next() = 0;
};

/// Gets what a reader finds, in the order of the file.
class ITranslationSink
{
public:
    virtual ~ITranslationSink() = default;
    /// Begins the texts of one language. A file may have several.
    virtual void Begin(const TranslationHead &head, int line) = 0;
    /// Takes a text. Its fields are the reader's own; the sink may move them away.
    virtual void Take(TranslationText &text) = 0;
    /// Takes a fault of the file: its line, the ID that it is about (empty if there is none), and what is wrong, as a
    /// sentence without a full stop. The reader goes on behind a fault in one text and stops at any other.
    virtual void Fault(int line, const QString &id, const QString &what) = 0;
};
