// One picture in many formats and colour spaces, written by libvips, always has the same colours.

#include <gtest/gtest.h>
#include <lcms2.h>

#include <vips/vips8>
// Before Qt, whose keywords are names there.

#include <QFile>
#include <QTemporaryDir>
#include <cstring>

#include "studio/base/studio_error.h"
#include "studio/picture/picture.h"

/// Asked by the leak checker: the HEIC encoder keeps a table until the process ends.
extern "C" __attribute__((visibility("default"))) const char*
__lsan_default_suppressions();               // NOLINT: the checker's name
const char* __lsan_default_suppressions() {  // NOLINT
  return "leak:libx265";
}

namespace {

using vips::VImage;

/// Patches of colours that ink can print.
VImage Patches() {
  VImage image = VImage::black(64, 48, VImage::option()->set("bands", 3));
  for (int i = 0; i < 12; ++i) {
    image = image.insert(VImage::black(16, 16).new_from_image(
                             {120.0 + 5 * i, 165.0 - 6 * (i % 5), 125.0 + 10 * (i % 4)}),
                         i % 4 * 16, i / 4 * 16);
  }
  return image.cast(VIPS_FORMAT_UCHAR)
      .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
}

vips::VOption* Intent() {
  return VImage::option()
      ->set("intent", VIPS_INTENT_RELATIVE)
      ->set("black_point_compensation", true)
      ->set("input_profile", "srgb");
}

VImage InProfile(const VImage& image, const char* profile, int depth = 8) {
  return image.icc_transform(profile, Intent()->set("depth", depth));
}

VImage WithProfile(const VImage& image, cmsHPROFILE profile) {
  cmsUInt32Number size = 0;
  cmsSaveProfileToMem(profile, nullptr, &size);
  std::vector<char> bytes(size);
  cmsSaveProfileToMem(profile, bytes.data(), &size);
  cmsCloseProfile(profile);
  VImage copy = image.copy();
  vips_image_set_blob_copy(copy.get_image(), VIPS_META_ICC_NAME, bytes.data(), bytes.size());
  return copy;
}

/// The values that a profile of a single curve gives these greys.
VImage GreyOfGamma(const VImage& image, double gamma) {
  cmsToneCurve* const curve = cmsBuildGamma(nullptr, gamma);
  const cmsHPROFILE profile = cmsCreateGrayProfile(cmsD50_xyY(), curve);
  cmsFreeToneCurve(curve);
  const VImage grey = (image.colourspace(VIPS_INTERPRETATION_scRGB)[1].pow(1 / gamma) * 255 + 0.5)
                          .cast(VIPS_FORMAT_UCHAR)
                          .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_B_W));
  return WithProfile(grey, profile);
}

/// Its profile becomes one with a single table, as scanners write it.
VImage WithTableProfile(const VImage& image) {
  size_t size = 0;
  const void* const bytes = image.get_blob(VIPS_META_ICC_NAME, &size);
  const cmsHPROFILE matrix = cmsOpenProfileFromMem(bytes, cmsUInt32Number(size));
  const cmsHPROFILE lab = cmsCreateLab4Profile(nullptr);
  const cmsHTRANSFORM transform =
      cmsCreateTransform(matrix, TYPE_RGB_16, lab, TYPE_Lab_16, INTENT_RELATIVE_COLORIMETRIC, 0);
  const cmsHPROFILE table = cmsTransform2DeviceLink(transform, 4.3, cmsFLAGS_GUESSDEVICECLASS);
  cmsDeleteTransform(transform);
  cmsCloseProfile(lab);
  cmsCloseProfile(matrix);
  return WithProfile(image, table);
}

TEST(PictureFormats, AllHaveTheSameColours) {
  ASSERT_EQ(vips_init("studio_tests"), 0);
  const VImage patches = Patches();
  const VImage ink = InProfile(patches, "cmyk");
  const VImage printed = VImage(ink).icc_transform("srgb", Intent()->set("embedded", true));
  const VImage grey = patches[1];
  const struct {
    const char* name;
    VImage original;
    VImage stored;
    std::string file;  // its ending and how it is written
  } kCases[] = {
      {"JPEG", patches, patches, ".jpg[Q=98]"},
      {"WebP", patches, patches, ".webp[lossless]"},
      {"GIF", patches, patches, ".gif"},
      {"HEIC", patches, patches, ".heic[lossless]"},
      {"AVIF", patches, patches, ".avif[lossless]"},
      {"JPEG XL", patches, patches, ".jxl[lossless]"},
      {"JPEG 2000", patches, patches, ".jp2[lossless]"},
      {"PPM", patches, patches, ".ppm"},
      {"HDR", patches, patches, ".hdr"},
      {"BMP", patches, patches, ".bmp"},
      {"CMYK with a profile", printed, ink, ".tif"},
      {"CMYK without one", printed, ink, ".tif[strip]"},
      {"CMYK in JPEG", printed, ink, ".jpg[Q=98]"},
      {"CMYK of 16 bits", printed, InProfile(patches, "cmyk", 16), ".tif"},
      {"wide gamut", patches, InProfile(patches, "p3"), ".jpg[Q=98]"},
      {"wide gamut of 16 bits", patches, InProfile(patches, "p3", 16), ".png"},
      {"a table profile", patches, WithTableProfile(InProfile(patches, "p3")), ".png"},
      {"16 bits", patches, patches.colourspace(VIPS_INTERPRETATION_RGB16), ".png[bitdepth=16]"},
      {"fractions", patches, patches.colourspace(VIPS_INTERPRETATION_scRGB), ".tif"},
      {"Lab", patches, patches.icc_import(Intent()), ".tif"},
      {"grey", grey, grey, ".png"},
      {"grey of 16 bits", grey, grey.colourspace(VIPS_INTERPRETATION_GREY16), ".tif"},
      {"grey with a profile", grey, GreyOfGamma(patches, 1.4), ".tif"}};
  const QTemporaryDir folder;
  for (const auto& [name, original, stored, file] : kCases) {
    SCOPED_TRACE(name);
    const std::string path = folder.filePath("picture").toStdString() + file;
    ASSERT_NO_THROW(VImage(stored).write_to_file(path.c_str())) << vips_error_buffer();
    const QString onDisk = QString::fromStdString(path.substr(0, path.find('[')));
    const QImage pixels = Picture::Read(PictureFile(onDisk)).Pixels();
    ASSERT_EQ(pixels.size(), QSize(64, 48));
    for (int i = 0; i < 12; ++i) {
      const QPoint at(i % 4 * 16 + 8, i / 4 * 16 + 8);
      const std::vector<double> expected = VImage(original).getpoint(at.x(), at.y());
      const QColor color = pixels.pixelColor(at);
      EXPECT_NEAR(color.red(), expected.front(), 3) << i;
      EXPECT_NEAR(color.green(), expected[expected.size() / 2], 3) << i;
      EXPECT_NEAR(color.blue(), expected.back(), 3) << i;
    }
  }
}

TEST(PictureFormats, CutPicturesAreRefused) {
  ASSERT_EQ(vips_init("studio_tests"), 0);
  for (const char* ending : {".psd", ".psb", ".ico", ".bmp", ".hdr", ".heic", ".jp2"}) {
    SCOPED_TRACE(ending);
    const QTemporaryDir folder;
    const QString path = folder.filePath("picture") + ending;
    const std::string name = path.toStdString();
    const bool isMagick = std::strchr("pi", ending[1]) != nullptr;
    isMagick ? Patches().magicksave(name.c_str()) : Patches().write_to_file(name.c_str());
    EXPECT_NO_THROW(Picture::Read(PictureFile(path)));
    QFile file(path);
    ASSERT_TRUE(file.resize(file.size() - 40));
    EXPECT_THROW(Picture::Read(PictureFile(path)), StudioError);
  }
}

}  // namespace
