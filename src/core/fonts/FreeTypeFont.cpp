// SPDX-License-Identifier: MIT
#include "DeviceFont.h"

#include "FileFault.h"
#include "HostFiles.h"
#include "TakeCodePoint.h"

#include <QHash>
#include <QStringList>
#include <QtEndian>

#include <ft2build.h>
#include <hb-ft.h>
#include <hb.h>

#include <algorithm>
#include <climits>
#include <mutex>

#include FT_FREETYPE_H
#include FT_ADVANCES_H

using namespace Qt::StringLiterals;

namespace
{

constexpr qint64 LARGEST_FILE = 64 << 20; // bytes
constexpr int FRACTION = 64;              // units of FreeType and HarfBuzz in a pixel

/// Returns whether a TrueType or OpenType font lacks the end of a table that its directory names. FreeType ignores such
/// a table, so characters or ligatures would be missing silently.
bool IsCutOff(QByteArrayView font)
{
    constexpr qsizetype HEADER = 12;
    constexpr qsizetype ENTRY = 16;
    const bool isKnown = font.startsWith(QByteArrayView("\0\1\0\0", 4)) || font.startsWith("OTTO");
    if (!isKnown || font.size() < HEADER)
        return false;
    const auto number = [font](qsizetype at) { return qFromBigEndian<quint32>(font.data() + at); };
    const qsizetype tables = qFromBigEndian<quint16>(font.data() + 4);
    for (qsizetype i = 0; i < tables; ++i) {
        const qsizetype entry = HEADER + ENTRY * i;
        if (entry + ENTRY > font.size() || quint64(number(entry + 8)) + number(entry + 12) > quint64(font.size()))
            return true;
    }
    return false;
}

/// A width for callers. Only a damaged font has one that an int can't have.
int Bounded(qint64 width)
{
    return int(std::clamp<qint64>(width, 0, INT_MAX));
}

struct LibraryDeleter
{
    void operator()(FT_Library library) const { FT_Done_FreeType(library); }
};
struct FaceDeleter
{
    void operator()(FT_Face face) const { FT_Done_Face(face); }
};
struct FontDeleter
{
    void operator()(hb_font_t *font) const { hb_font_destroy(font); }
};
struct BufferDeleter
{
    void operator()(hb_buffer_t *buffer) const { hb_buffer_destroy(buffer); }
};

class FreeTypeFont final : public IDeviceFont
{
public:
    /// Returns what is wrong; empty on success.
    QString Open(const QString &file, int pixels, bool isShaped)
    {
        if (const int error = ReadFile(file, bytes, LARGEST_FILE); error != 0)
            return u"the file can't be read: "_s + ReadFault(error);
        FT_Library newLibrary = nullptr;
        if (FT_Init_FreeType(&newLibrary) != 0)
            return u"the library for fonts can't be started"_s;
        library.reset(newLibrary);
        FT_Face newFace = nullptr;
        if (FT_New_Memory_Face(newLibrary, reinterpret_cast<const FT_Byte *>(bytes.constData()), FT_Long(bytes.size()),
                               0, &newFace) != 0)
            return u"the file isn't a font, or it is damaged"_s;
        face.reset(newFace);
        if (IsCutOff(bytes))
            return u"the file is cut off"_s;
        if (!newFace->charmap)
            return u"the font has no table of Unicode characters"_s;
        if (const QString wrong = SelectSize(pixels); !wrong.isEmpty())
            return wrong;
        if (isShaped)
            shaper.reset(hb_ft_font_create_referenced(newFace));
        return {};
    }

    bool Has(char32_t character) override
    {
        const std::scoped_lock guard(lock);
        return FT_Get_Char_Index(face.get(), character) != 0;
    }

    int WidthOf(QStringView line) override
    {
        const std::scoped_lock guard(lock);
        if (shaper)
            return ShapedWidth(line);
        qint64 width = 0;
        for (qsizetype at = 0; at < line.size();) {
            const char32_t character = TakeCodePoint(line, at);
            width += Advance(QChar::isSurrogate(character) ? char32_t(QChar::ReplacementCharacter) : character);
        }
        return Bounded(width);
    }

private:
    /// A font of bitmaps has only some sizes.
    QString SelectSize(int pixels)
    {
        if (FT_IS_SCALABLE(face.get()))
            return FT_Set_Pixel_Sizes(face.get(), 0, FT_UInt(pixels)) == 0
                       ? QString()
                       : u"the font can't have a size of %1 pixels"_s.arg(pixels);
        QStringList sizes;
        for (int i = 0; i < face->num_fixed_sizes; ++i) {
            const int size = int(face->available_sizes[i].y_ppem / FRACTION);
            if (size == pixels && FT_Select_Size(face.get(), i) == 0)
                return {};
            sizes.append(QString::number(size));
        }
        return u"the font has no size of %1 pixels; it has %2"_s.arg(pixels).arg(sizes.isEmpty() ? u"none"_s
                                                                                                 : sizes.join(u", "_s));
    }

    int Advance(char32_t character)
    {
        const auto known = advances.constFind(character);
        if (known != advances.constEnd())
            return *known;
        constexpr int FIXED = 65536; // FT_Get_Advance has 16 bits after the point
        FT_Fixed advance = 0;
        const FT_UInt glyph = FT_Get_Char_Index(face.get(), character);
        if (FT_Get_Advance(face.get(), glyph, FT_LOAD_DEFAULT, &advance) != 0)
            advance = 0;
        return *advances.insert(character, Bounded((advance + FIXED / 2) / FIXED));
    }

    [[nodiscard]] int ShapedWidth(QStringView line) const
    {
        const std::unique_ptr<hb_buffer_t, BufferDeleter> buffer(hb_buffer_create());
        hb_buffer_add_utf16(buffer.get(), reinterpret_cast<const uint16_t *>(line.utf16()), int(line.size()), 0,
                            int(line.size()));
        hb_buffer_guess_segment_properties(buffer.get());
        hb_shape(shaper.get(), buffer.get(), nullptr, 0);
        unsigned count = 0;
        const hb_glyph_position_t *const positions = hb_buffer_get_glyph_positions(buffer.get(), &count);
        qint64 width = 0;
        for (unsigned i = 0; i < count; ++i)
            width += positions[i].x_advance;
        return Bounded((width + FRACTION - 1) / FRACTION);
    }

    std::mutex lock;
    QByteArray bytes; // FreeType reads from it until the face is gone
    std::unique_ptr<std::remove_pointer_t<FT_Library>, LibraryDeleter> library;
    std::unique_ptr<std::remove_pointer_t<FT_Face>, FaceDeleter> face;
    std::unique_ptr<hb_font_t, FontDeleter> shaper; // null if texts aren't shaped
    QHash<char32_t, int> advances;                  // in pixels
};

} // namespace

std::unique_ptr<IDeviceFont> OpenDeviceFont(const QString &file, int pixels, bool isShaped, QString &why)
{
    auto font = std::make_unique<FreeTypeFont>();
    why = font->Open(file, pixels, isShaped);
    if (!why.isEmpty())
        return nullptr;
    return font;
}
