#pragma once

#include <algorithm>

namespace nrvcore::geom {

/// The upper bound of all lengths and coordinates of the toolkit, in points.
inline constexpr float kGreatestLength = 1e6f;

/// Clamps to [least, kGreatestLength]. NaN becomes `least`, by the order of std::max's arguments.
inline float Bounded(float length, float least) {
  return std::min(std::max(least, length), kGreatestLength);
}

/// A position, or a size with x as its width; in points, y downwards.
template <class T>
struct PointT {
  T x{};
  T y{};

  bool operator==(const PointT&) const = default;
};

template <class T>
struct RectT {
  T left{};
  T top{};
  T right{};
  T bottom{};

  T Width() const { return right - left; }
  T Height() const { return bottom - top; }
  bool operator==(const RectT&) const = default;
};

}  // namespace nrvcore::geom
