#pragma once

#include <array>

#include "platform/drawing/Geometry.h"

namespace zy {

/// On which side a new step joins a transform: Prepend makes it act first, Append last.
enum MatrixOrder { MatrixOrderPrepend, MatrixOrderAppend };

/// An affine transform of the plane: (x, y) becomes (x M11 + y M21 + Dx, x M12 + y M22 + Dy). Angles are in degrees,
/// clockwise on the screen; quarter turns are exact.
class Matrix {
 public:
  /// The transform that changes nothing.
  Matrix() = default;
  Matrix(double M11, double M12, double M21, double M22, double Dx, double Dy)
      : FElements{M11, M12, M21, M22, Dx, Dy} {}
  bool operator==(const Matrix&) const = default;

  /// M11, M12, M21, M22, Dx, Dy.
  const std::array<double, 6>& Elements() const { return FElements; }
  /// Whether it is a translation or nothing at all.
  bool IsTranslation() const;
  PointF TransformPoint(PointF Point) const {
    const double X = Point.X, Y = Point.Y;
    return {static_cast<float>(X * FElements[0] + Y * FElements[2] + FElements[4]),
            static_cast<float>(X * FElements[1] + Y * FElements[3] + FElements[5])};
  }
  /// The factor by which it enlarges every length, 0 when different directions are treated differently.
  double UniformScale() const;
  /// A copy, for callers that keep one by pointer.
  Matrix Clone() const { return *this; }

  void Translate(float Dx, float Dy, MatrixOrder Order = MatrixOrderPrepend);
  /// Rotates about the origin.
  void Rotate(float Angle, MatrixOrder Order = MatrixOrderPrepend);
  /// Rotates about Center.
  void RotateAt(float Angle, PointF Center, MatrixOrder Order = MatrixOrderPrepend);
  void Scale(float X, float Y, MatrixOrder Order = MatrixOrderPrepend);
  /// Moves x by X times y, and y by Y times x.
  void Shear(float X, float Y, MatrixOrder Order = MatrixOrderPrepend);
  void Multiply(const Matrix& Other, MatrixOrder Order = MatrixOrderPrepend);

 private:
  std::array<double, 6> FElements{1, 0, 0, 1, 0, 0};
};

}  // namespace zy
