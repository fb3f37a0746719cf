#include "studio/reader/decoder.h"

#include <lcms2.h>

#include <cstring>
#include <string_view>

#include "studio/reader/formats.h"

namespace {

using vips::VImage;

constexpr double kMost16 = 65535;

/// The orientation that an EXIF block states, 1 when it states none. The block is a TIFF directory.
int OrientationIn(std::string_view exif) {
  constexpr uint32_t kOrientation = 0x0112;
  const bool isBigEndian = exif.substr(0, 2) == "MM";
  const auto number = [&](size_t at, size_t size) {
    uint32_t value = 0;
    for (size_t i = 0; i < size && at + i < exif.size(); ++i)
      value |= uint32_t(uint8_t(exif[at + i])) << 8 * (isBigEndian ? size - 1 - i : i);
    return value;
  };
  size_t entry = size_t(number(4, 4)) + 2;
  for (uint32_t left = number(entry - 2, 2); left > 0 && entry < exif.size(); --left, entry += 12) {
    const uint32_t value = number(entry + 8, 2);
    if (number(entry, 2) == kOrientation && value >= 1 && value <= 8) return int(value);
  }
  return 1;
}

/// libvips does not read a PNG's eXIf chunk. A chunk has a length, a type, content and a checksum.
int OrientationOfPng(const vips::VSource& source) {
  constexpr size_t kSignature = 8, kFrame = 12;
  size_t size = 0;
  const auto* const bytes = static_cast<const char*>(vips_source_map(source.get_source(), &size));
  const std::string_view file(bytes, bytes ? size : 0);
  for (size_t at = kSignature; at + kFrame <= file.size();) {
    const auto* const field = reinterpret_cast<const uint8_t*>(file.data() + at);
    const size_t length =
        size_t{field[0]} << 24 | size_t{field[1]} << 16 | field[2] << 8 | field[3];
    if (file.substr(at + 4, 4) == "eXIf") return OrientationIn(file.substr(at + 8, length));
    at += kFrame + length;
  }
  return 1;
}

/// libvips takes 72 dots per inch from EXIF data that state no resolution. What the JFIF header
/// states, in dots per inch or centimetre, comes first.
VImage AtJfifResolution(const VImage& image, const vips::VSource& source) {
  constexpr size_t kHeader = 18;
  const uint8_t* const start = vips_source_sniff(source.get_source(), kHeader);
  if (!start || std::memcmp(start + 6, "JFIF", 5) != 0) return image;
  const double unit = start[13] == 1 ? 25.4 : start[13] == 2 ? 10 : 0;
  const int across = start[14] << 8 | start[15], down = start[16] << 8 | start[17];
  if (unit == 0 || across == 0 || down == 0) return image;
  return image.copy(VImage::option()->set("xres", across / unit)->set("yres", down / unit));
}

VImage Load(const vips::VSource& source) {
  const Format* const format = FormatOf(source);
  if (!format) throw UnsupportedFormat();
  auto* const options =
      VImage::option()->set("access", VIPS_ACCESS_SEQUENTIAL)->set("fail_on", VIPS_FAIL_ON_WARNING);
  if (!format->loader) {
    VipsBlob* const blob = vips_source_map_blob(source.get_source());
    if (!blob) throw vips::VError();
    VImage image = VImage::magickload_buffer(blob, options);
    vips_area_unref(VIPS_AREA(blob));
    return image;
  }
  // The process's limits bound what a drawing can ask for.
  if (std::strstr(format->mimeTypes, "svg")) options->set("unlimited", true);
  VImage image = VImage::new_from_source(source, "", options);
  if (std::strcmp(format->name, "JPEG") == 0) return AtJfifResolution(image, source);
  if (std::strcmp(format->name, "PNG") == 0)
    image.set(VIPS_META_ORIENTATION, OrientationOfPng(source));
  return image;
}

std::string ProfileOf(const VImage& image) {
  if (!image.get_typeof(VIPS_META_ICC_NAME)) return {};
  size_t size = 0;
  const void* const bytes = image.get_blob(VIPS_META_ICC_NAME, &size);
  return {static_cast<const char*>(bytes), size};
}

struct Profile {
  cmsHPROFILE handle = nullptr;

  Profile(cmsHPROFILE opened) : handle(opened) {}
  ~Profile() {
    if (handle) cmsCloseProfile(handle);
  }
  Profile(const Profile&) = delete;
  Profile& operator=(const Profile&) = delete;
};

/// Whether a profile has nothing but a curve per channel and a matrix.
bool IsMatrixProfile(const std::string& bytes) {
  const Profile profile(cmsOpenProfileFromMem(bytes.data(), cmsUInt32Number(bytes.size())));
  const auto has = [&](cmsTagSignature tag) { return cmsIsTag(profile.handle, tag); };
  return profile.handle && cmsGetColorSpace(profile.handle) == cmsSigRgbData &&
         cmsIsMatrixShaper(profile.handle) && !has(cmsSigAToB0Tag) && !has(cmsSigAToB1Tag) &&
         !has(cmsSigDToB0Tag) && !has(cmsSigDToB1Tag);
}

/// sRGB's primaries with linear values.
cmsHPROFILE LinearProfile() {
  const cmsCIExyY white{0.3127, 0.3290, 1};
  const cmsCIExyYTRIPLE primaries{{0.64, 0.33, 1}, {0.30, 0.60, 1}, {0.15, 0.06, 1}};
  cmsToneCurve* const curve = cmsBuildGamma(nullptr, 1);
  cmsToneCurve* const curves[] = {curve, curve, curve};
  const cmsHPROFILE profile = cmsCreateRGBProfile(&white, &primaries, curves);
  cmsFreeToneCurve(curve);
  return profile;
}

cmsHPROFILE InkProfile() {
  VipsBlob* blob = nullptr;
  if (vips_profile_load("cmyk", &blob, nullptr) != 0) throw vips::VError();
  size_t size = 0;
  const void* const bytes = vips_blob_get(blob, &size);
  const cmsHPROFILE profile = cmsOpenProfileFromMem(bytes, cmsUInt32Number(size));
  vips_area_unref(VIPS_AREA(blob));
  return profile;
}

/// The profile that gives samples of this kind (PT_RGB and the like) their colours: the embedded
/// one or, without one, that of ink, of CIELAB, or of fractions, which are linear light. Null for
/// sRGB.
cmsHPROFILE ProfileFor(int kind, bool isFraction, const std::string& embedded) {
  if (!embedded.empty()) {
    const cmsHPROFILE own =
        cmsOpenProfileFromMem(embedded.data(), cmsUInt32Number(embedded.size()));
    if (own && _cmsLCMScolorSpace(cmsGetColorSpace(own)) == kind) return own;
    if (own) cmsCloseProfile(own);  // of another kind of picture
  }
  if (kind == PT_CMYK) return InkProfile();
  if (kind == PT_Lab) return cmsCreateLab4Profile(nullptr);
  return isFraction && kind == PT_RGB ? LinearProfile() : nullptr;
}

/// Null when the samples are sRGB.
std::shared_ptr<void> ToSrgb(const VImage& image, int kind, int colors,
                             const std::string& embedded) {
  const bool isFraction = vips_band_format_isfloat(image.format());
  const Profile from(ProfileFor(kind, isFraction, embedded));
  if (!from.handle) return nullptr;
  const Profile to(cmsCreate_sRGBProfile());
  const auto extra = unsigned(image.bands() - colors);
  const unsigned bytes = unsigned(vips_format_sizeof(image.format())) & 7;  // 0 means 8
  const unsigned samples = FLOAT_SH(unsigned(isFraction)) | COLORSPACE_SH(unsigned(kind)) |
                           CHANNELS_SH(unsigned(colors)) | EXTRA_SH(extra) | BYTES_SH(bytes);
  const cmsHTRANSFORM transform = cmsCreateTransform(
      from.handle, samples, to.handle, TYPE_RGB_8 | EXTRA_SH(extra), INTENT_RELATIVE_COLORIMETRIC,
      cmsFLAGS_BLACKPOINTCOMPENSATION | cmsFLAGS_COPY_ALPHA);
  return transform ? std::shared_ptr<void>(transform, cmsDeleteTransform) : nullptr;
}

/// Grey or RGB in sRGB's values, with or without alpha, to 8-bit RGB.
VImage InEightBits(VImage image, int colors) {
  if (image.format() != VIPS_FORMAT_UCHAR)
    image = image.linear(255 / kMost16, 0.5, VImage::option()->set("uchar", true));
  if (colors == 3) return image;
  std::vector<VImage> bands(3, image.extract_band(0));
  if (image.bands() > 1) bands.push_back(image.extract_band(1));
  return VImage::bandjoin(bands);
}

/// Samples as libvips stores them in a pixel: decoded, with at most one band besides the colours.
VImage Plain(VImage image, int colors) {
  if (image.coding() == VIPS_CODING_RAD) return image.rad2float();
  if (image.interpretation() == VIPS_INTERPRETATION_LABS ||
      image.interpretation() == VIPS_INTERPRETATION_LABQ) {
    image = image.colourspace(VIPS_INTERPRETATION_LAB);
  }
  if (!vips_band_format_isfloat(image.format()) && image.format() != VIPS_FORMAT_UCHAR)
    image = image.cast(VIPS_FORMAT_USHORT, VImage::option()->set("shift", true));
  const int wanted = colors + (image.has_alpha() ? 1 : 0);
  if (image.bands() > wanted) image = image.extract_band(0, VImage::option()->set("n", wanted));
  const bool isGreyFraction = colors == 1 && vips_band_format_isfloat(image.format());
  return isGreyFraction ? VImage::bandjoin(std::vector<VImage>(3, image.extract_band(0))) : image;
}

}  // namespace

VImage Decoded::Upright(const VImage& source) const {
  return orientation > 1 ? source.autorot() : source;
}

Decoded Open(const vips::VSource& source, bool converts) {
  Decoded decoded;
  VImage image = Load(source);
  decoded.orientation = vips_image_get_orientation(image.get_image());
  const std::string profile = ProfileOf(image);
  const VipsInterpretation meaning = image.interpretation();
  const bool isLab = meaning == VIPS_INTERPRETATION_LAB || meaning == VIPS_INTERPRETATION_LABS ||
                     meaning == VIPS_INTERPRETATION_LABQ;
  const bool isInk = meaning == VIPS_INTERPRETATION_CMYK;
  int colors = isInk ? 4 : image.bands() >= 3 ? 3 : 1;
  image = Plain(image, colors);
  if (image.bands() >= 3 && colors == 1 && !isInk) colors = 3;  // grey fractions
  const int kind = isInk ? PT_CMYK : isLab ? PT_Lab : colors == 3 ? PT_RGB : PT_GRAY;
  decoded.channels = image.bands() > colors ? 4 : 3;
  if (!converts && kind == PT_RGB && image.format() == VIPS_FORMAT_UCHAR &&
      IsMatrixProfile(profile)) {
    decoded.profile = profile;
  } else {
    decoded.toSrgb = ToSrgb(image, kind, colors, profile);
  }
  decoded.image = decoded.toSrgb ? image : InEightBits(image, colors);
  return decoded;
}
