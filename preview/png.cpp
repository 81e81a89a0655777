#include "preview/png.h"

#include <png.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace {

struct FileCloser {
  void operator()(std::FILE* f) const { std::fclose(f); }
};

// libpng reports through longjmp; the texts are kept here instead of printed.
void onError(png_structp png, png_const_charp message) {
  *static_cast<std::string*>(png_get_error_ptr(png)) = message;
  png_longjmp(png, 1);
}

void onWarning(png_structp, png_const_charp) {}

// Kept apart from writePng so that no C++ object with a destructor lives
// across the setjmp.
bool encode(std::FILE* file, const Image& image, std::string& error) {
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, &error, onError, onWarning);
  if (!png) return false;
  png_infop info = png_create_info_struct(png);
  if (!info || setjmp(png_jmpbuf(png))) {
    png_destroy_write_struct(&png, &info);
    return false;
  }
  png_init_io(png, file);
  png_set_IHDR(png, info, static_cast<png_uint_32>(image.width),
               static_cast<png_uint_32>(image.height), 8, PNG_COLOR_TYPE_RGBA, PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_write_info(png, info);
  for (int32_t y = 0; y < image.height; ++y) {
    png_write_row(png, image.rgba.data() + static_cast<size_t>(y) * image.width * 4);
  }
  png_write_end(png, nullptr);
  png_destroy_write_struct(&png, &info);
  return true;
}

}  // namespace

std::string writePng(const Image& image, const std::string& path) {
  if (image.width <= 0 || image.height <= 0) return "the picture is empty";
  std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "wb"));
  if (!file) return "cannot write \"" + path + "\": " + std::strerror(errno);
  std::string error = "out of memory";
  if (!encode(file.get(), image, error)) return "cannot write \"" + path + "\": " + error;
  if (std::fflush(file.get()) != 0 || std::ferror(file.get())) {
    return "cannot write \"" + path + "\": " + std::strerror(errno);
  }
  return "";
}
