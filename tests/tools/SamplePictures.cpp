#include "SamplePictures.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>
// jpeglib.h wants <cstdio> before it.
#include <jpeglib.h>
#include <png.h>

Pixel Motley(int x, int y)
{
    return {(x * 37 + y * 11) % 256, (x * 5 + y * 71 + 90) % 256, (x * 113 + y * 29 + 200) % 256};
}

void AppendU16(ByteVector &bytes, std::uint32_t value)
{
    bytes.push_back(static_cast<std::uint8_t>(value));
    bytes.push_back(static_cast<std::uint8_t>(value >> 8));
}

void AppendU32(ByteVector &bytes, std::uint32_t value)
{
    AppendU16(bytes, value);
    AppendU16(bytes, value >> 16);
}

namespace
{

std::uint8_t Byte(int value)
{
    return static_cast<std::uint8_t>(value);
}

void WritePalette(png_structp png, png_infop info, const PngRecipe &recipe)
{
    std::vector<png_color> colours;
    ByteVector alphas;
    for (const Pixel &pixel : recipe.palette) {
        colours.push_back({Byte(pixel.red), Byte(pixel.green), Byte(pixel.blue)});
        alphas.push_back(Byte(pixel.alpha));
    }
    if (!colours.empty())
        png_set_PLTE(png, info, colours.data(), static_cast<int>(colours.size()));
    if (!recipe.hasTransparency)
        return;
    png_color_16 transparent{};
    transparent.red = static_cast<png_uint_16>(recipe.transparent.red);
    transparent.green = static_cast<png_uint_16>(recipe.transparent.green);
    transparent.blue = static_cast<png_uint_16>(recipe.transparent.blue);
    transparent.gray = transparent.red;
    png_set_tRNS(png, info, alphas.data(), static_cast<int>(alphas.size()), colours.empty() ? &transparent : nullptr);
}

} // namespace

ByteVector MakePng(const PngRecipe &recipe)
{
    ByteVector bytes;
    png_structp png = png_create_write_struct(
        PNG_LIBPNG_VER_STRING, nullptr, [](png_structp, png_const_charp text) { throw std::runtime_error(text); },
        [](png_structp, png_const_charp) {});
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(
        png, &bytes,
        [](png_structp writer, png_bytep data, std::size_t size) {
            auto *to = static_cast<ByteVector *>(png_get_io_ptr(writer));
            to->insert(to->end(), data, data + size);
        },
        nullptr);
    png_set_IHDR(png, info, static_cast<png_uint_32>(recipe.width), static_cast<png_uint_32>(recipe.height),
                 recipe.depth, recipe.type, recipe.isInterlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    WritePalette(png, info, recipe);
    if (recipe.chunkSize > 0)
        png_set_compression_buffer_size(png, recipe.chunkSize);
    png_write_info(png, info);
    const int passes = recipe.isInterlaced ? png_set_interlace_handling(png) : 1;
    for (int pass = 0; pass < passes; ++pass)
        for (const ByteVector &row : recipe.rows)
            png_write_row(png, row.data());
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return bytes;
}

ByteVector MakeJpeg(const JpegRecipe &recipe, const std::function<ByteVector(int x, int y)> &sample)
{
    jpeg_compress_struct jpeg{};
    jpeg_error_mgr errors{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    unsigned char *memory = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&jpeg, &memory, &size);
    jpeg.image_width = static_cast<JDIMENSION>(recipe.width);
    jpeg.image_height = static_cast<JDIMENSION>(recipe.height);
    jpeg.input_components = recipe.components;
    jpeg.in_color_space = recipe.components == 1 ? JCS_GRAYSCALE : recipe.components == 3 ? JCS_RGB : JCS_CMYK;
    jpeg_set_defaults(&jpeg);
    if (recipe.components == 4) {
        jpeg_set_colorspace(&jpeg, recipe.isYcck ? JCS_YCCK : JCS_CMYK);
        jpeg.write_Adobe_marker = recipe.hasAdobeMarker ? TRUE : FALSE;
    }
    jpeg_set_quality(&jpeg, 100, TRUE);
    for (int number = 0; number < jpeg.num_components; ++number)
        jpeg.comp_info[number].h_samp_factor = jpeg.comp_info[number].v_samp_factor = 1;
    jpeg.restart_in_rows = recipe.restartEvery;
    if (recipe.isProgressive)
        jpeg_simple_progression(&jpeg);
    jpeg_start_compress(&jpeg, TRUE);
    for (int y = 0; y < recipe.height; ++y) {
        ByteVector row;
        for (int x = 0; x < recipe.width; ++x)
            for (const std::uint8_t value : sample(x, y))
                row.push_back(value);
        JSAMPROW start = row.data();
        jpeg_write_scanlines(&jpeg, &start, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    const ByteVector bytes(memory, memory + size);
    std::free(memory);
    return bytes;
}

namespace
{

ColorMapObject *MakeColorMap(const std::vector<Pixel> &palette)
{
    std::vector<GifColorType> colours;
    for (const Pixel &pixel : palette)
        colours.push_back({Byte(pixel.red), Byte(pixel.green), Byte(pixel.blue)});
    return colours.empty() ? nullptr : GifMakeMapObject(static_cast<int>(colours.size()), colours.data());
}

void WriteFrame(GifFileType *gif, const GifFrame &frame)
{
    if (frame.transparentIndex >= 0) {
        const GraphicsControlBlock control{DISPOSAL_UNSPECIFIED, false, 0, frame.transparentIndex};
        GifByteType block[4];
        EGifGCBToExtension(&control, block);
        EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, sizeof block, block);
    }
    ColorMapObject *colours = MakeColorMap(frame.palette);
    EGifPutImageDesc(gif, frame.left, frame.top, frame.width, frame.height, frame.isInterlaced, colours);
    GifFreeMapObject(colours);
    std::vector<int> order;
    if (frame.isInterlaced) {
        for (const auto &[first, step] : {std::pair{0, 8}, {4, 8}, {2, 4}, {1, 2}})
            for (int y = first; y < frame.height; y += step)
                order.push_back(y);
    } else {
        for (int y = 0; y < frame.height; ++y)
            order.push_back(y);
    }
    for (const int y : order) {
        ByteVector row;
        for (int x = 0; x < frame.width; ++x)
            row.push_back(Byte(frame.index(x, y)));
        EGifPutLine(gif, row.data(), frame.width);
    }
}

} // namespace

ByteVector MakeGif(int width, int height, const std::vector<Pixel> &palette, const std::vector<GifFrame> &frames)
{
    ByteVector bytes;
    int error = 0;
    GifFileType *gif = EGifOpen(
        &bytes,
        [](GifFileType *file, const GifByteType *data, int size) {
            auto *to = static_cast<ByteVector *>(file->UserData);
            to->insert(to->end(), data, data + size);
            return size;
        },
        &error);
    EGifSetGifVersion(gif, true);
    ColorMapObject *colours = MakeColorMap(palette);
    EGifPutScreenDesc(gif, width, height, 8, 0, colours);
    GifFreeMapObject(colours);
    for (const GifFrame &frame : frames)
        WriteFrame(gif, frame);
    EGifCloseFile(gif, &error);
    return bytes;
}

ByteVector MakeBmp(const BmpRecipe &recipe)
{
    const std::size_t pixelsAt = 54 + recipe.masks.size() * 4 + recipe.palette.size() * 4;
    ByteVector bytes{'B', 'M'};
    AppendU32(bytes, static_cast<std::uint32_t>(pixelsAt + recipe.data.size()));
    AppendU32(bytes, 0);
    AppendU32(bytes, static_cast<std::uint32_t>(pixelsAt));
    AppendU32(bytes, 40);
    AppendU32(bytes, static_cast<std::uint32_t>(recipe.width));
    AppendU32(bytes, static_cast<std::uint32_t>(recipe.height));
    AppendU16(bytes, 1);
    AppendU16(bytes, static_cast<std::uint32_t>(recipe.bits));
    AppendU32(bytes, static_cast<std::uint32_t>(recipe.compression));
    AppendU32(bytes, static_cast<std::uint32_t>(recipe.data.size()));
    AppendU32(bytes, 0);
    AppendU32(bytes, 0);
    AppendU32(bytes, static_cast<std::uint32_t>(recipe.palette.size()));
    AppendU32(bytes, 0);
    for (const std::uint32_t mask : recipe.masks)
        AppendU32(bytes, mask);
    for (const Pixel &pixel : recipe.palette)
        bytes.insert(bytes.end(), {Byte(pixel.blue), Byte(pixel.green), Byte(pixel.red), 0});
    bytes.insert(bytes.end(), recipe.data.begin(), recipe.data.end());
    return bytes;
}
