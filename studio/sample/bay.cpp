#include "studio/sample/bay.h"

#include "studio/sample/noise.h"
#include "studio/sample/paint.h"

namespace {

constexpr double kHorizon = 0.64;
constexpr double kSunX = 0.60;
constexpr double kSunY = 0.515;
constexpr double kSunRadius = 0.052;

struct Stop {
  double y;
  QRgb color;
};

constexpr Stop kSkyColors[] = {
    {0.00, 0xFF14285A}, {0.16, 0xFF2C4A8C}, {0.30, 0xFF7A5C9E}, {0.42, 0xFFD9708A},
    {0.52, 0xFFF79A5C}, {0.60, 0xFFFFC86E}, {0.66, 0xFFFFDE94},
};

/// A line of mountains: where its feet stand, how high it rises, and how it is coloured.
struct Ridge {
  double base;
  double height;
  double frequency;
  double seed;
  QRgb top;
  QRgb foot;
};

constexpr Ridge kRidges[] = {
    {0.605, 0.230, 2.3, 3.7, 0xFF9A6FA0, 0xFFF0A983},
    {0.620, 0.185, 3.1, 21.4, 0xFF6B5390, 0xFFC58494},
    {0.632, 0.130, 4.3, 55.1, 0xFF413F78, 0xFF8A6288},
    {0.640, 0.070, 6.7, 91.8, 0xFF24305A, 0xFF4C4570},
};

double Distance(double x, double y) {
  return std::sqrt(x * x + y * y);
}

/// The mountains leave the sun's place free, as a valley would.
double RidgeTop(const Ridge& ridge, double x) {
  const double folds =
      1 - std::fabs(2 * Fractal(x * ridge.frequency + ridge.seed, ridge.seed, 6) - 1);
  const double valley = 0.30 + 0.70 * Step(0.05, 0.42, std::fabs(x - kSunX));
  return ridge.base - ridge.height * valley * (folds * folds * 1.35 - 0.25);
}

double Glow(double x, double y, double reach) {
  const double distance = Distance(x - kSunX, y - kSunY);
  return std::exp(-distance * distance / (reach * reach));
}

}  // namespace

Light Bay::At(double x, double y) const {
  Light light = y < kHorizon ? Land(x, y) : Water(x, y);
  light = WithBoat(light, x, y);
  light = WithLighthouse(light, x, y);
  light = WithHeadland(light, x, y);
  return WithPines(light, x, y);
}

Light Bay::Sky(double x, double y) const {
  Light sky = Paint(kSkyColors[0].color);
  for (size_t i = 1; i < std::size(kSkyColors); ++i) {
    const double share = (y - kSkyColors[i - 1].y) / (kSkyColors[i].y - kSkyColors[i - 1].y);
    if (share > 0) sky = Mix(Paint(kSkyColors[i - 1].color), Paint(kSkyColors[i].color), share);
  }
  sky = sky + Paint(0xFFFFB050) * (0.55 * Glow(x, y, 0.30)) +
        Paint(0xFFFFE0A0) * (0.9 * Glow(x, y, 0.10));

  // Clouds lie flatter towards the horizon; their lower edges catch the sun.
  const double depth = 1 / (kHorizon + 0.12 - y);
  const double u = (x - kSunX) * depth * 0.9 + 4;
  const double v = depth * 2.1;
  const double warp = Fractal(u * 1.3 + 9, v * 1.3, 4);
  const double density = Fractal(u * 1.1 + warp, v * 1.9 + 0.7 * warp, 6);
  const double below = Fractal(u * 1.1 + warp, (v + 0.10) * 1.9 + 0.7 * warp, 6);
  const double cover = Step(0.50, 0.68, density) * Step(0.60, 0.40, y) * 0.92;
  const double lit = std::clamp(0.35 + 5.0 * (density - below) + 0.8 * Glow(x, y, 0.45), 0.0, 1.0);
  const Light shade = Mix(Paint(0xFF3A3C72), Paint(0xFF9A5F86), Step(0.1, 0.5, y));
  const Light bright = Mix(Paint(0xFFE88FA0), Paint(0xFFFFC27A), Step(0.1, 0.45, y));
  sky = Mix(sky, Mix(shade, bright, lit), cover);

  const double disc = Step(kSunRadius + 0.002, kSunRadius - 0.002, Distance(x - kSunX, y - kSunY));
  return Mix(sky, Paint(0xFFFFF3C8) * 1.05, disc);
}

Light Bay::Land(double x, double y) const {
  Light light = Sky(x, y);
  for (const Ridge& ridge : kRidges) {
    const double top = RidgeTop(ridge, x);
    if (y < top - 0.001) continue;
    const double crag = Fractal(x * 34 + 14 * y + ridge.seed, y * 22 - 9 * x, 6);
    const double slope = RidgeTop(ridge, x + 0.004) - RidgeTop(ridge, x - 0.004);
    const double towardsSun = std::clamp((x < kSunX ? -60 : 60) * slope, -1.0, 1.0);
    const double edge = std::exp((top - y) * 30);
    Light rock = Mix(Paint(ridge.top), Paint(ridge.foot), Step(top, kHorizon + 0.01, y));
    rock = rock * (0.74 + 0.52 * crag + 0.22 * towardsSun * edge);
    rock = rock + Paint(0xFFFF9A50) * (0.35 * Glow(x, y, 0.20));
    light = Mix(light, rock, Step(top - 0.001, top + 0.001, y));
  }
  return light;
}

/// The water mirrors what stands above it, in waves that grow towards the shore in front.
Light Bay::Water(double x, double y) const {
  const double depth = (y - kHorizon) / (1 - kHorizon);
  const double nearness = 1 / (depth + 0.06);
  const double ripple =
      Fractal(x * 9 * std::sqrt(nearness) + 30, 26 * std::log(depth + 0.03) * 2.2, 4) - 0.5;
  const double fine = Fractal(x * 30 * std::sqrt(nearness), 90 * std::log(depth + 0.03), 3) - 0.5;
  const double mirrorY = kHorizon - depth * 0.50 - ripple * (0.05 + 0.22 * depth);
  const double mirrorX = x + fine * 0.02 * (0.3 + depth);
  const Light mirrored = Land(mirrorX, std::clamp(mirrorY, 0.0, kHorizon - 0.001));
  const Light deep = Mix(Paint(0xFF35507E), Paint(0xFF0C2444), Step(0.0, 0.9, depth));
  Light water = Mix(mirrored, deep, 0.18 + 0.50 * depth + 0.5 * fine);

  const double width = 0.035 + 0.16 * depth;
  const double path = std::exp(-(x - kSunX) * (x - kSunX) / (width * width));
  const double sparkle = Step(-0.02, 0.16, fine + 0.6 * ripple);
  water = water + Paint(0xFFFFC070) * (path * (0.18 + 1.1 * sparkle) * (1 - 0.45 * depth));
  return Mix(Paint(0xFFB0889A), water, 0.70 + 0.30 * Step(0.0, 0.03, depth));
}

Light Bay::WithBoat(Light behind, double x, double y) const {
  constexpr double kX = 0.33;
  constexpr double kWaterline = 0.755;
  const double u = (x - kX) / 0.075;
  const double v = (kWaterline - y) / 0.075;  // upwards from the water

  const bool isHull = v > 0 && v < 0.34 && std::fabs(u) < 0.80 + 0.6 * v - (u < 0 ? 0.1 : 0.0);
  if (isHull) return v > 0.24 ? Paint(0xFFE8D8C8) : Paint(0xFF6A2030);
  const bool isMainsail =
      v > 0.45 && v < 3.1 && u > -0.02 - 0.02 * v && u < 0.95 * (3.1 - v) / 2.65;
  if (isMainsail)
    return Mix(Paint(0xFFFFF4E0), Paint(0xFFE8A078), u * 1.1 + 0.25 * Noise(u * 3, v * 3));
  const bool isForesail = v > 0.45 && v < 2.6 && u < -0.10 && u > -0.95 * (2.6 - v) / 2.15;
  if (isForesail) return Mix(Paint(0xFFE05038), Paint(0xFF8C2838), -u * 1.1);
  if (v > 0 && v < 3.2 && std::fabs(u + 0.06) < 0.035) return Paint(0xFF3A2830);

  const bool isMirrored = v < 0 && v > -2.2;
  if (!isMirrored) return behind;
  const double wave = (Fractal(x * 40, y * 160, 3) - 0.5) * (0.6 - 0.35 * v);
  const double sail = Step(0.55, 0.2, std::fabs(u - 0.1 + wave) - 0.35 * (1 + v / 2.2));
  return Mix(behind, Paint(0xFF7A4A50), 0.55 * sail * Step(-2.2, -0.6, v));
}

Light Bay::WithHeadland(Light behind, double x, double y) const {
  const double fromRight = kWidth - x;
  const double rough = Fractal(x * 9 + 3, 7, 6) - 0.5;
  const double top = 0.66 + 0.55 * std::pow(std::max(0.0, fromRight - 0.16), 1.35) + 0.07 * rough;
  if (y < top) return behind;
  const double below = y - top;
  const double bend = Fractal(x * 5, y * 5, 3);
  const double crack = std::fabs(2 * Fractal(x * 9 + 3 * bend, y * 17 + 5 * x, 6) - 1);
  const double rock = std::clamp(1.9 * crack + 0.5 * (Fractal(x * 70, y * 70, 4) - 0.5), 0.0, 1.0);
  Light light = Mix(Paint(0xFF12162C), Paint(0xFF6A5066), rock * (1 - 0.8 * below));
  const double rim = Step(0.032, 0.0, below + 0.03 * (Fractal(x * 60, y * 60, 3) - 0.5));
  light = Mix(light, Paint(0xFF6E7A3C), rim * 0.75);
  light = light + Paint(0xFFFF9A50) * (0.30 * rim * Step(0.75, 0.05, std::fabs(x - kSunX)));
  return Mix(behind, light, Step(0, 0.002, below));
}

Light Bay::WithLighthouse(Light behind, double x, double y) const {
  constexpr double kX = 1.29;
  constexpr double kFoot = 0.685;
  constexpr double kHeight = 0.40;
  const double v = (kFoot - y) / kHeight;  // 0 at the foot, 1 at the tip

  // The lamp shines through the dusk to both sides.
  const double lampY = kFoot - 0.835 * kHeight;
  const double away = Distance(x - kX, y - lampY);
  Light light = behind + Paint(0xFFFFE9A8) * (0.9 * std::exp(-away * away / 0.0016));
  const double slant = (y - lampY) + 0.10 * (x - kX);
  const double beam = Step(0.012 + 0.10 * away, 0.0, std::fabs(slant)) * std::exp(-away * 2.6);
  if (x < kX) light = light + Paint(0xFFFFE6B0) * (0.42 * beam);

  const double u = (x - kX) / (0.046 - 0.019 * v);  // -1 to 1 across the tower
  const double roundness =
      0.52 + 0.48 * std::sqrt(std::max(0.0, 1 - (u + 0.35) * (u + 0.35) / 1.9));
  const auto shaded = [&](QRgb color) { return Paint(color) * roundness; };
  if (v > 1 || y > kFoot + 0.05) return light;
  if (v < 0.76) {
    if (std::fabs(u) > 1) return light;
    const bool isWindow =
        std::fabs(u) < 0.16 && (std::fabs(v - 0.23) < 0.028 || std::fabs(v - 0.54) < 0.028);
    if (isWindow) return Paint(0xFFFFD070);
    const bool isRed = v > 0 && int(v / 0.152) % 2 == 1;
    return shaded(isRed ? 0xFFD8382E : 0xFFFFF2E4);
  }
  if (v < 0.79) return std::fabs(x - kX) < 0.044 ? Paint(0xFF2A2638) : light;
  if (v < 0.88) {
    if (std::fabs(x - kX) > 0.024) return light;
    const bool isBar = std::fmod(std::fabs(x - kX) + 0.0075, 0.016) < 0.0025;
    return isBar ? Paint(0xFF3A2E38) : Paint(0xFFFFF0B0) * 1.1;
  }
  const double roof = 0.034 * (1 - (v - 0.88) / 0.10);
  if (v < 0.98) return std::fabs(x - kX) < roof ? shaded(0xFFB02A2A) : light;
  return std::fabs(x - kX) < 0.002 ? Paint(0xFF2A2638) : light;
}

Light Bay::WithPines(Light behind, double x, double y) const {
  const double rough = Fractal(x * 7 + 60, 11, 5) - 0.5;
  const double shore =
      0.93 + 0.75 * std::pow(x, 1.9) * 0.5 - 0.16 * Step(0.5, 0.0, x) + 0.06 * rough;
  Light light = behind;
  struct Pine {
    double x;
    double foot;
    double height;
    double width;
  };
  constexpr Pine kPines[] = {{0.185, 0.86, 0.34, 0.052},
                             {0.035, 0.84, 0.62, 0.085},
                             {0.115, 0.86, 0.47, 0.070},
                             {0.255, 0.90, 0.22, 0.040}};
  for (const Pine& pine : kPines) {
    const double v = (pine.foot - y) / pine.height;
    if (v < -0.2 || v > 1) continue;
    const double u = x - pine.x;
    if (v < 0.12 && std::fabs(u) < 0.006) light = Paint(0xFF1C1620);
    // Branches hang in tiers, each wider at its lower edge.
    const double tier = std::fmod(v * 11 + 0.6 * Noise(u * 60 + pine.x * 99, v * 4), 1.0);
    const double reach = pine.width * (1 - v) * (1.05 - 0.55 * tier) *
                         (0.72 + 0.56 * Fractal(x * 110, y * 60 + pine.x * 40, 3));
    if (v < 0.06 || std::fabs(u) > reach) continue;
    const double leaf = Fractal(x * 120, y * 90, 3);
    light = Mix(Paint(0xFF0C1A22), Paint(0xFF2C4A40), leaf * 1.2 - 0.2);
    light = light + Paint(0xFFFF9A50) * (0.20 * Step(0.4, 1.0, u / std::max(reach, 1e-6)));
  }
  if (y < shore) return light;
  const double grass = Fractal(x * 60, y * 30, 5);
  const Light ground = Mix(Paint(0xFF0E1820), Paint(0xFF3A4A34), grass * 1.4 - 0.35);
  return Mix(light, ground, Step(0, 0.004, y - shore));
}
