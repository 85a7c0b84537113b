// SPDX-License-Identifier: MIT
#pragma once

#include "TranslationText.h"

#include <span>

// Each format has a reader and a writer. A reader gets the whole file and doesn't trust its content. A writer appends
// the file to `bytes`; it writes the same bytes for the same texts.

/// Gettext's PO files, without plural forms, in UTF-8. The context of a message (msgctxt) is the ID.
void ReadPo(const QByteArray &file, ITranslationSink &sink);
/// Writes the form of "msgcat --no-wrap".
void WritePo(ITranslationSource &source, QByteArray &bytes);
/// Returns whether a PO file can have the text.
[[nodiscard]] bool FitsPo(QStringView text);
/// Returns whether a PO file can have the note.
[[nodiscard]] bool FitsPoNote(QStringView note);

/// XLIFF 1.2; files of version 1.1 are read too.
void ReadXliff(const QByteArray &file, ITranslationSink &sink);
void WriteXliff(ITranslationSource &source, QByteArray &bytes);
/// Returns whether XML can have the text.
[[nodiscard]] bool FitsXliff(QStringView text);

/// A format of translation files.
struct TranslationFormat
{
    const char16_t *extension; ///< in lower case
    void (*read)(const QByteArray &file, ITranslationSink &sink);
    void (*write)(ITranslationSource &source, QByteArray &bytes);
    bool (*fits)(QStringView text);
    bool (*fitsNote)(QStringView note);
    bool isTemplate; ///< its files have no translations
    bool hasLocales; ///< names of files have locales (pt_BR) instead of codes of languages (pt-BR)
};

/// All formats. Those with the same reader and writer are one after another, the most usual extension first.
[[nodiscard]] std::span<const TranslationFormat> TranslationFormats();
/// Returns the format of a file by its name's extension, in any case; null for another extension.
[[nodiscard]] const TranslationFormat *TranslationFormatOf(const QString &path);
/// Returns the usual name of a language's file: "pt_BR.po" or "pt-BR.xlf" for "pt-BR".
[[nodiscard]] QString FileNameOf(const QString &code, const TranslationFormat &format);
