#pragma once

namespace nrvcore::geom {

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
