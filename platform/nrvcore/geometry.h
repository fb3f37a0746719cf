#pragma once

#include <algorithm>

namespace nrvcore::geom {

/// No length of the toolkit is greater, and no place farther away.
inline constexpr float kGreatestLength = 1e6f;

/// std::max in this order also turns what is no number into the least.
inline float Bounded(float length, float least) {
  return std::min(std::max(least, length), kGreatestLength);
}

/// A place, or a size with x as its width. In points, y downwards, as all of the toolkit's lengths.
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
