#pragma once

#include "studio/light_scale.h"

/// An evening in a bay among mountains, with a lighthouse and a sailing boat, as a function of
/// place: x from 0 to kWidth, y from 0 at the top to 1.
class Bay {
 public:
  static constexpr double kWidth = 1600.0 / 1056;

  Light At(double x, double y) const;

 private:
  Light Sky(double x, double y) const;
  Light Land(double x, double y) const;
  Light Water(double x, double y) const;
  Light WithBoat(Light behind, double x, double y) const;
  Light WithHeadland(Light behind, double x, double y) const;
  Light WithLighthouse(Light behind, double x, double y) const;
  Light WithPines(Light behind, double x, double y) const;
};
