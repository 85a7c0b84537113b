// SPDX-License-Identifier: MIT
#pragma once

#include "TranslationFormats.h"

#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

inline void Require(bool condition)
{
    if (!condition)
        std::abort();
}

/// The texts that a reader finds, as the source of a new file.
class TranslationTexts : public ITranslationSink, public ITranslationSource
{
public:
    std::vector<TranslationText> texts;
    TranslationHead head;
    int begun = 0;
    int faults = 0;

    void Begin(const TranslationHead &found, int line) override
    {
        Require(line > 0);
        head = found;
        ++begun;
    }

    void Take(TranslationText &text) override
    {
        Require(begun > 0 && text.line > 0 && !text.id.isEmpty());
        texts.push_back(std::exchange(text, {}));
    }

    void Fault(int line, const QString & /*id*/, const QString &what) override
    {
        Require(line > 0 && !what.isEmpty());
        ++faults;
    }

    TranslationHead Head() const override { return head; }
    const TranslationText *Next() override { return next < texts.size() ? &texts[next++] : nullptr; }

private:
    size_t next = 0;
};

/// Reads a file, writes the texts that the format can have, and reads them again. Aborts if they differ.
inline void ReadTwice(const uint8_t *data, size_t size, const TranslationFormat &format)
{
    TranslationTexts first;
    format.read(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)), first);
    Require(first.begun > 0 || first.faults > 0);
    std::erase_if(first.texts, [&format](const TranslationText &text) {
        return !format.fits(text.id) || !format.fits(text.source) || !format.fits(text.target);
    });
    for (TranslationText &text : first.texts) {
        if (!format.fitsNote(text.note))
            text.note.clear();
    }
    QByteArray bytes;
    format.write(first, bytes);
    TranslationTexts second;
    format.read(bytes, second);
    Require(second.faults == 0 && second.texts.size() == first.texts.size());
    for (size_t i = 0; i < first.texts.size(); ++i) {
        const TranslationText &a = first.texts[i];
        const TranslationText &b = second.texts[i];
        Require(a.id == b.id && a.source == b.source && a.target == b.target && a.note == b.note);
    }
}
