#include "platform/drawing/Matrix.h"

#include <cmath>
#include <numbers>

namespace zy {
namespace {

/// The transform that applies A first and B then.
Matrix Chain(const Matrix& A, const Matrix& B) {
  const auto& [A11, A12, A21, A22, Ax, Ay] = A.Elements();
  const auto& [B11, B12, B21, B22, Bx, By] = B.Elements();
  return {A11 * B11 + A12 * B21, A11 * B12 + A12 * B22,    A21 * B11 + A22 * B21,
          A21 * B12 + A22 * B22, Ax * B11 + Ay * B21 + Bx, Ax * B12 + Ay * B22 + By};
}

Matrix Translation(double Dx, double Dy) { return {1, 0, 0, 1, Dx, Dy}; }

/// Sine and cosine of quarter turns come from a table: what is upright must stay exactly on the pixel grid.
Matrix Rotation(double Angle) {
  const double Turn = std::fmod(Angle, 360.0);
  const double Quarters = Turn / 90.0;
  if (Quarters == std::floor(Quarters)) {
    static constexpr int Sines[] = {0, 1, 0, -1};
    const auto Quarter = static_cast<unsigned>(static_cast<int>(Quarters) + 4) % 4;
    const double Sine = Sines[Quarter];
    const double Cosine = Sines[(Quarter + 1) % 4];
    return {Cosine, Sine, -Sine, Cosine, 0, 0};
  }
  const double Radians = Turn * (std::numbers::pi / 180.0);
  return {std::cos(Radians), std::sin(Radians), -std::sin(Radians), std::cos(Radians), 0, 0};
}

}  // namespace

bool Matrix::IsTranslation() const {
  return FElements[0] == 1 && FElements[1] == 0 && FElements[2] == 0 && FElements[3] == 1;
}

void Matrix::Multiply(const Matrix& Other, MatrixOrder Order) {
  *this = Order == MatrixOrderPrepend ? Chain(Other, *this) : Chain(*this, Other);
}

void Matrix::Translate(float Dx, float Dy, MatrixOrder Order) { Multiply(Translation(Dx, Dy), Order); }

void Matrix::Scale(float X, float Y, MatrixOrder Order) { Multiply({X, 0, 0, Y, 0, 0}, Order); }

void Matrix::Shear(float X, float Y, MatrixOrder Order) { Multiply({1, Y, X, 1, 0, 0}, Order); }

double Matrix::UniformScale() const {
  const auto& [M11, M12, M21, M22, Dx, Dy] = FElements;
  constexpr double Tolerance = 1e-6;
  const double A = M11 * M11 + M12 * M12, B = M21 * M21 + M22 * M22, Mixed = M11 * M21 + M12 * M22;
  if (!(A > 0) || !(std::fabs(A - B) <= Tolerance * A) || !(std::fabs(Mixed) <= Tolerance * A)) return 0;
  return std::sqrt(A);
}

void Matrix::Rotate(float Angle, MatrixOrder Order) { Multiply(Rotation(Angle), Order); }

void Matrix::RotateAt(float Angle, PointF Center, MatrixOrder Order) {
  const double X = Center.X;
  const double Y = Center.Y;
  Multiply(Chain(Chain(Translation(-X, -Y), Rotation(Angle)), Translation(X, Y)), Order);
}

}  // namespace zy
