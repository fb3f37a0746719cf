#pragma once

#include <algorithm>

namespace nrvcore::geom {

/// The upper bound of all lengths and coordinates of the toolkit, in points.
inline constexpr float kMaxLength = 1e6f;

/// Clamps to [minimum, kMaxLength]. NaN becomes `minimum`: std::max returns its first argument.
inline float ClampLength(float length, float minimum) {
  return std::min(std::max(minimum, length), kMaxLength);
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
