// tesserae-picture-reader decodes the picture on its standard input to rows on its standard output,
// in a sandbox. picture_protocol.h describes both; the studio starts one process per pass.

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <mutex>
#include <set>
#include <vips/vips8>

#include "studio/reader/decoder.h"
#include "studio/reader/picture_protocol.h"
#include "studio/reader/sandbox.h"

namespace {

constexpr uint64_t kMaxHeldBytes = uint64_t{3} << 29;  // 1.5 GB of the 2 GB that the process has

/// Warnings of the libraries, on whose threads they arrive. A warning that appears only while
/// pixels are decoded means that some are damaged; the others concern metadata.
struct Warnings {
  std::mutex mutex;
  std::set<std::string> ofMetadata;
  bool isDecoding = false;
  std::string ofDamage;

  void Add(const std::string& text) {
    const auto isAbout = [&](const char* words) { return text.find(words) != text.npos; };
    const std::lock_guard lock(mutex);
    if (!isDecoding) ofMetadata.insert(text);
    // "error in tile" accompanies an error, which libvips returns.
    if (ofMetadata.count(text) == 0 && !isAbout("extraneous bytes") && !isAbout("error in tile"))
      ofDamage += text;
  }
} warnings;

void HandleMessage(const gchar*, GLogLevelFlags level, const gchar* text, gpointer) {
  if (level & (G_LOG_LEVEL_WARNING | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_ERROR)) warnings.Add(text);
}

PictureOutcome OutcomeOf(std::string reason) {
  constexpr const char* kTruncation[] = {"premature end of input", "truncated", "unexpected end",
                                         "end of stream", "not enough data"};
  std::transform(reason.begin(), reason.end(), reason.begin(), g_ascii_tolower);
  const auto isAbout = [&](const char* words) { return reason.find(words) != reason.npos; };
  if (std::any_of(std::begin(kTruncation), std::end(kTruncation), isAbout)) return kTruncated;
  return isAbout("memory") ? kTooLarge : kDamaged;
}

/// libvips has one pixel per millimetre where a file states no resolution.
uint32_t DotsPerMeter(double perMillimeter, bool isStated) {
  const double dots = std::round(perMillimeter * 1000);
  return isStated && dots >= 1 && dots < 1e9 ? uint32_t(dots) : 0;
}

PictureHeader HeaderOf(const vips::VImage& image, int orientation) {
  const bool isStated = image.xres() != 1 || image.yres() != 1;
  PictureHeader header{uint32_t(image.width()), uint32_t(image.height()), uint32_t(image.bands()),
                       DotsPerMeter(image.xres(), isStated), DotsPerMeter(image.yres(), isStated)};
  if (orientation > 4) {
    std::swap(header.width, header.height);
    std::swap(header.dotsPerMeterX, header.dotsPerMeterY);
  }
  return header;
}

PictureOutcome Decode() {
  vips::VImage image = Open(vips::VSource::new_from_descriptor(STDIN_FILENO));
  const int orientation = vips_image_get_orientation(image.get_image());
  const bool isHeld = orientation > 2;  // turning needs random access
  const PictureHeader header = HeaderOf(image, orientation);
  const uint64_t pixels = uint64_t{header.width} * header.height;
  if (pixels > kMaxPicturePixels || (isHeld && pixels * header.channels > kMaxHeldBytes))
    return kTooLarge;
  if (write(STDOUT_FILENO, &header, sizeof header) != sizeof header) return kDamaged;
  warnings.isDecoding = true;
  if (isHeld) image = image.copy_memory();
  image.autorot().rawsave_fd(STDOUT_FILENO);
  return warnings.ofDamage.empty() ? kRead : OutcomeOf(warnings.ofDamage);
}

}  // namespace

int main(int argc, char** argv) {
  LimitResources();
  setenv("LC_ALL", "C", 1);         // OutcomeOf looks for English words
  setenv("VIPS_NOVECTOR", "1", 1);  // vector code is compiled at run time, which is forbidden
  g_log_set_default_handler(HandleMessage, nullptr);
  if (VIPS_INIT(argv[0]) != 0) return EXIT_FAILURE;
  if (argc > 1 && std::strcmp(argv[1], kListFormats) == 0) {
    PrintFormats();
    return std::fflush(stdout) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
  }
  vips_cache_set_max(0);
  if (!EnterSandbox()) return kUnconfined;
  PictureOutcome outcome = kDamaged;
  try {
    outcome = Decode();
  } catch (const UnsupportedFormat&) {
    outcome = kUnsupported;
  } catch (const std::bad_alloc&) {
    outcome = kTooLarge;
  } catch (const std::exception& error) {
    outcome = OutcomeOf(warnings.ofDamage + error.what());
  }
  _exit(outcome);  // destructors would take time and could fail after damage
}
