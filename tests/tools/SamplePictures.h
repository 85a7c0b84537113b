#pragma once

#include "ConverterRun.h"

#include <functional>
#include <gif_lib.h>

/// What a test draws: a pixel for each place.
using Drawing = std::function<Pixel(int x, int y)>;

/// Colours that differ from place to place in all channels. Opaque.
Pixel Motley(int x, int y);

/// Rows of samples as libpng takes them; `type` and `depth` are the header's.
struct PngRecipe
{
    int width = 0, height = 0;
    int type = 0, depth = 8;
    bool isInterlaced = false;
    std::vector<ByteVector> rows = {};
    std::vector<Pixel> palette = {}; ///< alpha counts if `hasTransparency`
    bool hasTransparency = false;    ///< tRNS: the palette's alphas, or `transparent`
    Pixel transparent = {};          ///< samples of the colour that is transparent
    std::size_t chunkSize = 0;       ///< of the IDAT chunks; 0: whatever libpng does
};
ByteVector MakePng(const PngRecipe &recipe);

struct JpegRecipe
{
    int width = 0, height = 0;
    int components = 3; ///< 1: grey, 3: colour, 4: four inks
    bool isProgressive = false;
    bool isYcck = false;
    bool hasAdobeMarker = true; ///< of four inks
    int restartEvery = 0;       ///< rows of blocks
};
/// `sample` gives `components` bytes for a place. Quality 100, no subsampling: flat areas come back within 2.
ByteVector MakeJpeg(const JpegRecipe &recipe, const std::function<ByteVector(int x, int y)> &sample);

struct GifFrame
{
    int left = 0, top = 0, width = 0, height = 0;
    bool isInterlaced = false;
    int transparentIndex = -1;
    std::vector<Pixel> palette = {}; ///< of the frame's own; empty: the file's
    std::function<int(int x, int y)> index = {};
};
/// The palette has a power of two colours; empty: none.
ByteVector MakeGif(int width, int height, const std::vector<Pixel> &palette, const std::vector<GifFrame> &frames);

/// A bmp with a header of 40 bytes, of pixel data as they stand. `masks` come behind the header.
struct BmpRecipe
{
    int width = 0, height = 0; ///< a negative height: from the top
    int bits = 24;
    int compression = 0;
    std::vector<Pixel> palette = {};
    std::vector<std::uint32_t> masks = {};
    ByteVector data = {};
};
ByteVector MakeBmp(const BmpRecipe &recipe);

void AppendU16(ByteVector &bytes, std::uint32_t value);
void AppendU32(ByteVector &bytes, std::uint32_t value);
