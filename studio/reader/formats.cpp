#include "studio/reader/formats.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>

namespace {

using namespace std::string_view_literals;

constexpr const char* kMagick = "magickload_buffer";

constexpr Format kFormats[] = {
    {"JPEG", "jpg jpeg jpe jfif", "image/jpeg", "jpegload_source", {}},
    {"PNG", "png", "image/png", "pngload_source", {}},
    {"TIFF", "tif tiff", "image/tiff", "tiffload_source", {"II*\0"sv, "MM\0*"sv}},
    {"WebP", "webp", "image/webp", "webpload_source", {}},
    {"HEIC, AVIF", "heic heif hif avif", "image/heic image/heif image/avif", "heifload_source", {}},
    {"JPEG XL", "jxl", "image/jxl", "jxlload_source", {}},
    {"JPEG 2000", "jp2 j2k jpc j2c jpt", "image/jp2", "jp2kload_source", {}},
    {"GIF", "gif", "image/gif", "gifload_source", {}},
    {"SVG", "svg svgz", "image/svg+xml image/svg+xml-compressed", "svgload_source", {}},
    {"PSD", "psd psb", "image/x-psd", nullptr, {"8BPS"sv}},
    {"BMP", "bmp dib", "image/bmp", nullptr, {"BM"sv}},
    {"PPM",
     "ppm pgm pbm pnm pfm",
     "image/x-portable-pixmap image/x-portable-graymap image/x-portable-bitmap",
     "ppmload_source",
     {}},
    {"HDR", "hdr", "image/vnd.radiance", "radload_source", {}},
    {"ICO", "ico", "image/x-icon", nullptr, {"\0\0\1\0"sv}},
    {"XPM", "xpm", "image/x-xpixmap", nullptr, {"/* XPM */"sv}},
};

bool IsThere(const Format& format) {
  return vips_type_find("VipsForeignLoad", format.loader ? format.loader : kMagick) != 0;
}

}  // namespace

const Format* FormatOf(const vips::VSource& source) {
  const char* const type = vips_foreign_find_load_source(source.get_source());
  const char* const loader = type ? vips_nickname_find(g_type_from_name(type)) : nullptr;
  const auto begins = [&](std::string_view signature) {
    const auto* const start =
        signature.empty() ? nullptr : vips_source_sniff(source.get_source(), signature.size());
    return start && std::memcmp(start, signature.data(), signature.size()) == 0;
  };
  const auto matches = [&](const Format& format) {
    const bool isLoaders = loader && format.loader && std::strcmp(loader, format.loader) == 0;
    return isLoaders || begins(format.signatures[0]) || begins(format.signatures[1]);
  };
  const auto* const found = std::find_if(std::begin(kFormats), std::end(kFormats), matches);
  return found != std::end(kFormats) && IsThere(*found) ? found : nullptr;
}

void PrintFormats() {
  for (const Format& format : kFormats) {
    if (IsThere(format)) std::printf("%s\t%s\t%s\n", format.name, format.endings, format.mimeTypes);
  }
}
