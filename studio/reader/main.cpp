// tesserae-picture-reader: decodes the picture on its standard input to rows on its standard
// output, as picture_protocol.h describes it, in a sandbox.

#include <lcms2.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <mutex>
#include <set>
#include <vector>
#include <vips/vips8>

#include "studio/reader/decoder.h"
#include "studio/reader/formats.h"
#include "studio/reader/picture_protocol.h"
#include "studio/reader/sandbox.h"

namespace {

constexpr uint64_t kMostHeldBytes = uint64_t{3} << 29;  // 1.5 GB of the 2 GB that the process has

/// Warnings of the libraries. Those that come with the pixels, and did not come when the file was
/// opened, mean damaged pixels; the others concern metadata.
class Warnings {
 public:
  Warnings() {
    g_log_set_default_handler(
        [](const gchar*, GLogLevelFlags level, const gchar* text, gpointer self) {
          if (level & (G_LOG_LEVEL_WARNING | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_ERROR))
            static_cast<Warnings*>(self)->Add(text);
        },
        this);
  }

  void PixelsBegin() { isReading = true; }
  /// Empty when no pixels are damaged.
  const std::string& OfDamage() const { return damage; }

 private:
  void Add(const std::string& text) {
    const auto isHarmless = [&](const char* words) { return text.find(words) != text.npos; };
    const std::lock_guard lock(mutex);
    if (!isReading) {
      known.insert(text);
    } else if (known.count(text) == 0 && !isHarmless("extraneous bytes") &&
               !isHarmless("error in tile")) {  // which accompanies an error
      damage += text;
    }
  }

  std::mutex mutex;
  std::set<std::string> known;
  bool isReading = false;
  std::string damage;
};

/// A parent that has gone ends this process by SIGPIPE.
bool WriteAll(const void* bytes, size_t size) {
  for (const auto* at = static_cast<const char*>(bytes); size > 0;) {
    const ssize_t written = write(STDOUT_FILENO, at, size);
    if (written < 0 && errno != EINTR) return false;
    if (written > 0) at += written, size -= size_t(written);
  }
  return true;
}

int WriteRows(VipsRegion* region, VipsRect* area, void* source) {
  const auto& decoded = *static_cast<const Decoded*>(source);
  std::vector<VipsPel> row(size_t(area->width) * size_t(decoded.channels));
  for (int y = area->top; y < VIPS_RECT_BOTTOM(area); ++y) {
    const VipsPel* pixels = VIPS_REGION_ADDR(region, area->left, y);
    if (decoded.toSrgb) {
      cmsDoTransform(decoded.toSrgb.get(), pixels, row.data(), cmsUInt32Number(area->width));
      pixels = row.data();
    }
    if (!WriteAll(pixels, row.size())) return -1;
  }
  return 0;
}

/// 0 where it is no resolution. libvips has one pixel per millimetre where a file states none.
uint32_t DotsPerMeter(double perMillimeter, bool isStated) {
  const double dots = std::round(perMillimeter * 1000);
  return isStated && dots >= 1 && dots < 1e9 ? uint32_t(dots) : 0;
}

void WriteHeader(const Decoded& decoded) {
  const vips::VImage upright = decoded.Upright(decoded.image);
  PictureHeader header{};
  header.version = kPictureProtocol;
  header.width = uint32_t(upright.width());
  header.height = uint32_t(upright.height());
  header.channels = uint32_t(decoded.channels);
  const double across = decoded.image.xres(), down = decoded.image.yres();
  const bool isStated = across != 1 || down != 1;
  header.dotsPerMeterX = DotsPerMeter(across, isStated);
  header.dotsPerMeterY = DotsPerMeter(down, isStated);
  if (decoded.orientation > 4) std::swap(header.dotsPerMeterX, header.dotsPerMeterY);
  header.profileSize = uint32_t(decoded.profile.size());
  WriteAll(&header, sizeof header);
  WriteAll(decoded.profile.data(), decoded.profile.size());
}

PictureOutcome OutcomeOf(std::string reason) {
  constexpr const char* kTruncation[] = {"premature end of input", "truncated", "unexpected end",
                                         "end of stream", "not enough data"};
  std::transform(reason.begin(), reason.end(), reason.begin(), g_ascii_tolower);
  const auto has = [&](const char* words) { return reason.find(words) != std::string::npos; };
  if (std::any_of(std::begin(kTruncation), std::end(kTruncation), has)) return kTruncated;
  return has("memory") ? kTooLarge : kDamaged;
}

PictureOutcome Decode(bool converts, Warnings& warnings) {
  Decoded decoded = Open(vips::VSource::new_from_descriptor(STDIN_FILENO), converts);
  const uint64_t pixels = uint64_t(decoded.image.width()) * uint64_t(decoded.image.height());
  const bool isHeld = decoded.orientation > 2;
  if (pixels > kMostPicturePixels || decoded.profile.size() > kMostProfileSize) return kTooLarge;
  if (isHeld && pixels * VIPS_IMAGE_SIZEOF_PEL(decoded.image.get_image()) > kMostHeldBytes)
    return kTooLarge;
  WriteHeader(decoded);
  warnings.PixelsBegin();
  const vips::VImage whole = isHeld ? decoded.image.copy_memory() : decoded.image;
  if (vips_sink_disc(decoded.Upright(whole).get_image(), WriteRows, &decoded) != 0)
    throw vips::VError();
  return warnings.OfDamage().empty() ? kRead : OutcomeOf(warnings.OfDamage());
}

}  // namespace

int main(int argc, char** argv) {
  LimitResources();
  setenv("LC_ALL", "C", 1);         // messages are compared
  setenv("VIPS_NOVECTOR", "1", 1);  // which would compile code while it decodes
  Warnings warnings;
  if (VIPS_INIT(argv[0]) != 0) return EXIT_FAILURE;
  if (argc > 1 && std::strcmp(argv[1], kListFormats) == 0) {
    PrintFormats();
    _exit(std::fflush(stdout) == 0 ? EXIT_SUCCESS : EXIT_FAILURE);
  }
  vips_cache_set_max(0);
  EnterSandbox();
  PictureOutcome outcome = kDamaged;
  try {
    outcome = Decode(argc > 1 && std::strcmp(argv[1], kConvert) == 0, warnings);
  } catch (const UnsupportedFormat&) {
    outcome = kUnsupported;
  } catch (const std::bad_alloc&) {
    outcome = kTooLarge;
  } catch (const std::exception& error) {
    outcome = OutcomeOf(warnings.OfDamage() + error.what());
  }
  _exit(outcome);  // destroying what a damaged file left behind is a risk and takes time
}
