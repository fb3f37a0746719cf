#include "studio/reader/decoder.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <string_view>

namespace {

using namespace std::string_view_literals;
using vips::VImage;
using vips::VSource;

struct Format {
  const char* name;
  const char* endings;
  const char* mimeTypes;
  const char* loader;              // the nickname in libvips
  std::string_view signatures[2];  // first bytes, also of files that the loader does not recognize
};

constexpr const char* kMagick = "magickload_buffer";  // of ImageMagick, which would read anything

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
    {"PSD", "psd psb", "image/x-psd", kMagick, {"8BPS"sv}},
    {"BMP", "bmp dib", "image/bmp", kMagick, {"BM"sv}},
    {"PPM",
     "ppm pgm pbm pnm pfm",
     "image/x-portable-pixmap image/x-portable-graymap image/x-portable-bitmap",
     "ppmload_source",
     {}},
    {"HDR", "hdr", "image/vnd.radiance", "radload_source", {}},
    {"ICO", "ico", "image/x-icon", kMagick, {"\0\0\1\0"sv}},
    {"XPM", "xpm", "image/x-xpixmap", kMagick, {"/* XPM */"sv}},
};

/// libvips can be built without a loader.
bool IsAvailable(const Format& format) {
  return vips_type_find("VipsForeignLoad", format.loader) != 0;
}

/// The first bytes of a file, where its metadata are. The whole file would count as memory.
std::string StartOf(const VSource& source) {
  constexpr size_t kSize = 1 << 16;
  unsigned char* bytes = nullptr;
  const gint64 size = vips_source_sniff_at_most(source.get_source(), &bytes, kSize);
  return {reinterpret_cast<const char*>(bytes), size_t(std::max<gint64>(size, 0))};
}

const Format& FormatOf(const VSource& source, std::string_view start) {
  const char* const type = vips_foreign_find_load_source(source.get_source());
  const std::string_view loader = type ? vips_nickname_find(g_type_from_name(type)) : "";
  const auto matches = [&](const Format& format) {
    const auto isSignature = [&](std::string_view signature) {
      return !signature.empty() && start.starts_with(signature);
    };
    return format.loader == loader || isSignature(format.signatures[0]) ||
           isSignature(format.signatures[1]);
  };
  const auto* const found = std::find_if(std::begin(kFormats), std::end(kFormats), matches);
  if (found == std::end(kFormats) || !IsAvailable(*found)) throw UnsupportedFormat();
  return *found;
}

std::string_view BytesOf(const VSource& source) {
  size_t size = 0;
  const void* const bytes = vips_source_map(source.get_source(), &size);
  return {static_cast<const char*>(bytes), bytes ? size : 0};
}

uint64_t BigEndian(std::string_view bytes) {
  uint64_t number = 0;
  for (const char byte : bytes) number = number << 8 | uint8_t(byte);
  return number;
}

/// Whether a PSD or PSB ends before its merged picture does, which ImageMagick does not report.
/// Three sections precede that picture, each with its length. It is raw (0), or compressed row by
/// row with the lengths of all rows in front (1).
bool IsCutPsd(std::string_view file) {
  const auto number = [&](uint64_t at, size_t size) {
    return at < file.size() ? BigEndian(file.substr(at, size)) : 0;
  };
  constexpr uint64_t kHeader = 26;
  const size_t isLarge = number(4, 2) == 2 ? 1 : 0;
  uint64_t at = kHeader;
  for (const size_t lengthSize : {size_t{4}, size_t{4}, 4 + 4 * isLarge})
    at += lengthSize + std::min<uint64_t>(number(at, lengthSize), file.size());
  const uint64_t compression = number(at, 2), depth = number(22, 2);
  const uint64_t rows = number(12, 2) * number(14, 4), rowSize = (number(18, 4) * depth + 7) / 8;
  at += 2;
  if (compression == 0) return at + rows * rowSize > file.size();
  if (compression != 1) return at >= file.size();
  const size_t countSize = 2 + 2 * isLarge;
  uint64_t end = at + rows * countSize;
  for (uint64_t row = 0; row < rows && end <= file.size(); ++row)
    end += number(at + row * countSize, countSize);
  return end > file.size();
}

/// For EXIF data without a resolution libvips assumes 72 dots per inch. This takes the resolution
/// of the JFIF header instead, in dots per inch (1) or per centimetre (2).
VImage WithJfifResolution(const VImage& image, std::string_view header) {
  if (header.size() < 18 || header.substr(6, 5) != "JFIF\0"sv || header[13] == 0) return image;
  const double unit = header[13] == 1 ? 25.4 : 10;
  const double across = BigEndian(header.substr(14, 2)), down = BigEndian(header.substr(16, 2));
  if (across == 0 || down == 0) return image;
  return image.copy(VImage::option()->set("xres", across / unit)->set("yres", down / unit));
}

VImage Load(const VSource& source, std::string_view start) {
  const Format& format = FormatOf(source, start);
  const std::string_view loader = format.loader;
  auto* const options =
      VImage::option()->set("access", VIPS_ACCESS_SEQUENTIAL)->set("fail_on", VIPS_FAIL_ON_WARNING);
  if (loader == kMagick) {
    const std::string_view bytes = BytesOf(source);
    if (start.starts_with("8BPS") && IsCutPsd(bytes)) throw vips::VError("truncated");
    return VImage::new_from_buffer(bytes.data(), bytes.size(), "", options);
  }
  // The limits of the process bound what a drawing can ask for.
  if (loader == "svgload_source") options->set("unlimited", true);
  VImage image = VImage::new_from_source(source, "", options);
  return loader == "jpegload_source" ? WithJfifResolution(image, start) : image;
}

/// HEIC and AVIF can name their primaries by a number ("nclx", ISO/IEC 23091-2) instead of a
/// profile, which libvips ignores.
bool IsDisplayP3(std::string_view start) {
  return start.substr(4, 4) == "ftyp" && start.find("colrnclx\0\x0C"sv) != start.npos;
}

std::string_view ProfileOf(const VImage& image) {
  if (image.get_typeof(VIPS_META_ICC_NAME) == 0) return {};
  size_t size = 0;
  const void* const profile = image.get_blob(VIPS_META_ICC_NAME, &size);
  return {static_cast<const char*>(profile), size};
}

bool HasProfile(const VImage& image) {
  const std::string_view profile = ProfileOf(image);
  return !profile.empty() &&
         vips_icc_is_compatible_profile(image.get_image(), profile.data(), profile.size());
}

/// Relative colorimetric with black point compensation. A profile whose only table is the
/// perceptual one (A2B0), as scanners have, uses it for every intent (ICC.1, 8.10); libvips
/// then accepts only the perceptual intent.
VImage Converted(const VImage& image, const char* defaultProfile) {
  const std::string_view profile = ProfileOf(image);
  const auto has = [&](const char* tag) { return profile.find(tag) != profile.npos; };
  const bool isPerceptual = has("A2B0") && !has("A2B1");
  return image.icc_transform(
      "srgb", VImage::option()
                  ->set("intent", isPerceptual ? VIPS_INTENT_PERCEPTUAL : VIPS_INTENT_RELATIVE)
                  ->set("black_point_compensation", true)
                  ->set("embedded", true)
                  ->set("input_profile", defaultProfile));
}

/// Lab of ICC profiles has the white of D50; Bradford's matrix adapts it to the D65 of sRGB. A
/// conversion by profiles would interpolate in a table, with errors up to 5 of 255.
VImage FromLab(const VImage& image) {
  const VImage adaptation =
      VImage::new_matrixv(3, 3, 0.9555766, -0.0230393, 0.0631636, -0.0282895, 1.0099416, 0.0210077,
                          0.0122982, -0.0204830, 1.3299098);
  const VImage lab = image.colourspace(VIPS_INTERPRETATION_LAB);
  VImage colors =
      lab.extract_band(0, VImage::option()->set("n", 3))
          .Lab2XYZ(VImage::option()->set("temp", std::vector<double>{96.42, 100, 82.49}))
          .recomb(adaptation)
          .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_XYZ));
  if (lab.has_alpha()) colors = colors.bandjoin(lab[3]);
  return colors.colourspace(VIPS_INTERPRETATION_sRGB);
}

/// Whether the profile of 8-bit RGB leaves its values as they are, apart from rounding. Most
/// photographs have such a profile; converting them would take time and accuracy.
bool HasProfileOfSrgb(const VImage& image) {
  if (image.interpretation() != VIPS_INTERPRETATION_sRGB) return false;
  const VImage ramp = VImage::identity();
  const VImage colors = VImage::bandjoin({ramp, ramp.invert(), ramp})
                            .copy(VImage::option()->set("interpretation", image.interpretation()));
  const std::string_view profile = ProfileOf(image);
  vips_image_set_blob_copy(colors.get_image(), VIPS_META_ICC_NAME, profile.data(), profile.size());
  return (Converted(colors, "srgb") - colors).abs().max() <= 1;
}

VImage ToSrgb(VImage image, bool isDisplayP3) {
  if (image.coding() == VIPS_CODING_RAD) image = image.rad2float();
  const VipsInterpretation stored = image.interpretation();
  const bool isCmyk = stored == VIPS_INTERPRETATION_CMYK;
  const int colors = isCmyk ? 4 : image.bands() >= 3 ? 3 : 1;
  const int wanted = colors + (image.has_alpha() ? 1 : 0);
  if (image.bands() > wanted) image = image.extract_band(0, VImage::option()->set("n", wanted));
  if (stored == VIPS_INTERPRETATION_LAB || stored == VIPS_INTERPRETATION_LABS)
    return FromLab(image);
  const auto as = [&](VipsInterpretation rgb, VipsInterpretation grey) {
    return image.copy(VImage::option()->set("interpretation", colors == 3 ? rgb : grey));
  };
  const bool hasProfile = HasProfile(image);
  if (vips_band_format_isfloat(image.format())) {
    if (!hasProfile) {  // linear light
      if (colors == 1) image = VImage::bandjoin(std::vector<VImage>(3, image[0]));
      return as(VIPS_INTERPRETATION_scRGB, VIPS_INTERPRETATION_scRGB)
          .colourspace(VIPS_INTERPRETATION_sRGB);
    }
    image = image.linear(65535, 0.5);
  }
  if (image.format() != VIPS_FORMAT_UCHAR)
    image = image.cast(VIPS_FORMAT_USHORT, VImage::option()->set("shift", true));
  if (image.format() != VIPS_FORMAT_UCHAR && (isCmyk || !hasProfile))
    image = image.linear(1.0 / 257, 0.5, VImage::option()->set("uchar", true));
  if (isCmyk) return Converted(image, "cmyk");
  image = image.format() == VIPS_FORMAT_UCHAR
              ? as(VIPS_INTERPRETATION_sRGB, VIPS_INTERPRETATION_B_W)
              : as(VIPS_INTERPRETATION_RGB16, VIPS_INTERPRETATION_GREY16);
  if (hasProfile) return HasProfileOfSrgb(image) ? image : Converted(image, "srgb");
  if (isDisplayP3) return Converted(image, "p3");
  return image.colourspace(VIPS_INTERPRETATION_sRGB);
}

}  // namespace

VImage Open(const VSource& source) {
  const std::string start = StartOf(source);
  return ToSrgb(Load(source, start), IsDisplayP3(start));
}

void PrintFormats() {
  for (const Format& format : kFormats) {
    if (IsAvailable(format))
      std::printf("%s\t%s\t%s\n", format.name, format.endings, format.mimeTypes);
  }
}
