// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>

/// A font as the device has it: the characters that it can draw, and how wide texts are. All functions may be called
/// from several threads.
class IDeviceFont
{
public:
    virtual ~IDeviceFont() = default;
    /// Returns whether the font has a glyph for a character (a Unicode code point).
    [[nodiscard]] virtual bool Has(char32_t character) = 0;
    /// Returns the width of a line of text, in pixels. A character that the font lacks is as wide as the glyph that the
    /// font has for such characters.
    [[nodiscard]] virtual int WidthOf(QStringView line) = 0;
};

/// Opens a font file (TrueType, OpenType, BDF, PCF) at a size in pixels. Returns null on failure, and sets `why` to a
/// sentence without its full stop. Without `isShaped`, the width of a line is the sum of the widths of its characters,
/// as simple devices draw; with it, the line is shaped first: ligatures, joined letters, kerning.
[[nodiscard]] std::unique_ptr<IDeviceFont> OpenDeviceFont(const QString &file, int pixels, bool isShaped, QString &why);
