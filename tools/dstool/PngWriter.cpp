#include "tools/dstool/PngWriter.h"

#include <png.h>

#include <cerrno>
#include <csetjmp>
#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace Dstool {

namespace {

struct PngFailure {
    char text[256] = "";
};

void OnPngError(png_structp png, png_const_charp message)
{
    auto* failure = static_cast<PngFailure*>(png_get_error_ptr(png));
    std::snprintf(failure->text, sizeof failure->text, "%s", message ? message : "libpng failed");
    png_longjmp(png, 1);
}

void OnPngWarning(png_structp, png_const_charp) {}

// libpng leaves by a long jump on failure, so nothing in this frame may
// need a destructor.
bool WriteRows(std::FILE* file, int width, int height, const Rgb* pixels, PngFailure* failure)
{
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, failure, OnPngError, OnPngWarning);
    if (!png) {
        std::snprintf(failure->text, sizeof failure->text, "libpng could not start");
        return false;
    }
    png_infop info = png_create_info_struct(png);
    if (!info || setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        return false;
    }
    png_init_io(png, file);
    png_set_IHDR(png, info, static_cast<png_uint_32>(width), static_cast<png_uint_32>(height), 8, PNG_COLOR_TYPE_RGB,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    static_assert(sizeof(Rgb) == 3, "a row of colours is a row of RGB bytes");
    for (int y = 0; y < height; ++y) {
        const Rgb* row = pixels + static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
        png_write_row(png, reinterpret_cast<png_const_bytep>(row));
    }
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return true;
}

}  // namespace

void PngWriter::Write(const std::string& path, int width, int height, const std::vector<Rgb>& pixels)
{
    if (width <= 0 || height <= 0)
        throw std::runtime_error("an image without pixels has no PNG form");
    if (pixels.size() != static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
        throw std::runtime_error("the colours do not fill the image");
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file)
        throw std::runtime_error(path + ": " + std::strerror(errno));
    PngFailure failure;
    const bool written = WriteRows(file, width, height, pixels.data(), &failure);
    const bool closed = std::fclose(file) == 0;
    if (!written)
        throw std::runtime_error(path + ": " + failure.text);
    if (!closed)
        throw std::runtime_error(path + ": " + std::strerror(errno));
}

}  // namespace Dstool
