#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <span>
#include <vector>

#include "series/vectors/ZyCustomDoubleVector.h"
#include "series/vectors/ZyValueTransformation.h"

namespace zy {

/// Base of what is computed from the points of data vectors: a plain object that a program may use without any chart.
///
/// The vectors stay the caller's and must outlive the calculation. `Calculate` is the expensive step and runs once for
/// each change of data or settings; the questions that a descendant answers afterwards are cheap.
class TZyCalculation {
 public:
  TZyCalculation() = default;
  TZyCalculation(const TZyCalculation&) = delete;
  TZyCalculation& operator=(const TZyCalculation&) = delete;
  virtual ~TZyCalculation() = default;

  /// Bounds of the raw X of points that take part, both inside.
  double Start = -std::numeric_limits<double>::max();
  double Stop = std::numeric_limits<double>::max();
  /// The data; without Weight all points weigh 1.
  TZyCustomDoubleVector* XData = nullptr;
  TZyCustomDoubleVector* YData = nullptr;
  TZyCustomDoubleVector* Weight = nullptr;
  /// Whether points that are marked as outliers take part.
  bool OutliersVisible = false;
  /// What makes values of the vectors into those that are computed with; may be empty.
  TZyValueTransformation mXValueTransformation, mYValueTransformation, mWeightValueTransformation;
  /// Whom these events name as their sender.
  TObject* Sender = nullptr;

  /// Transformed values of point i. Throw ERangeError outside the vectors. A descendant that overrides them says so by
  /// ReadsPlainly.
  virtual double Xi(int i) const;
  virtual double Yi(int i) const;
  /// Computes. Throws EMathError when the data do not allow it. The base has nothing to compute.
  virtual void Calculate() {}

  /// Weight of point i as a magnitude; 1 without weights.
  double Wi(int i) const;
  /// Whether point i takes part: its raw X lies within the bounds, and it is no outlier, or outliers are visible.
  bool IsValid(int i) const;

 protected:
  /// Coordinates and weights of points, as calculations work on them.
  struct TPoints {
    std::vector<double> X, Y, W;
    int Count() const { return static_cast<int>(X.size()); }
    /// By ascending X.
    void Sort();
  };

  /// Whether Xi, Yi and Wi are the values of the vectors as they stand, which are then read without these calls.
  virtual bool ReadsPlainly() const {
    return !mXValueTransformation && !mYValueTransformation && !mWeightValueTransformation;
  }

  /// Points of the data: the smallest count of the vectors that there are. Throws EMathError without X or Y.
  int PointCount() const;
  /// Calls Do(X, Y, W) for each point that takes part and is finite, in their order.
  template <class TDo>
  void ForEachPoint(const TDo& Do) const {
    ForEachBlock([&Do](const TBlock& Block) {
      for (int k = 0; k < Block.Count; ++k) {
        const double X = Block.X[k], Y = Block.Y[k], W = std::fabs(Block.W[k]);
        if (std::isfinite(X + Y + W) || IsFinite(X, Y, W)) Do(X, Y, W);
      }
    });
  }
  /// The same by blocks of a few hundred, those of weight 0 only on demand: Do(X, Y, W) with a span of each.
  template <class TDo>
  void ForEachFiniteBlock(bool WithWeightZero, const TDo& Do) const {
    std::array<double, BlockSize> X, Y, W;
    ForEachBlock([&](const TBlock& Block) {
      std::size_t Kept = 0;  // by blocks, since appending one by one would ask for room each time
      for (int k = 0; k < Block.Count; ++k) {
        X[Kept] = Block.X[k];
        Y[Kept] = Block.Y[k];
        W[Kept] = std::fabs(Block.W[k]);
        // One that does not count is written over by the next.
        Kept += IsFinite(X[Kept], Y[Kept], W[Kept]) && (W[Kept] != 0 || WithWeightZero) ? 1 : 0;
      }
      if (Kept > 0) Do(std::span(X).first(Kept), std::span(Y).first(Kept), std::span(W).first(Kept));
    });
  }
  /// The points that take part and are finite; those of weight 0 only on demand. By ascending X, unless the X vector
  /// says of itself that it is ascending: then as they come.
  /// Weights that nobody wants are left out.
  TPoints ValidPoints(bool WithWeightZero, bool WithWeights = true) const;

 private:
  static constexpr int BlockSize = 512;

  static bool IsFinite(double X, double Y, double W) {
    return std::isfinite(X) && std::isfinite(Y) && std::isfinite(W);
  }

  /// Some points that take part, not looked at for being finite: those of the vectors themselves, or copies.
  struct TBlock {
    const double *X, *Y, *W;
    int Count = 0;
    std::array<double, BlockSize> OfX, OfY, OfW;
  };
  template <class TDo>
  void ForEachBlock(const TDo& Do) const {
    const int Count = PointCount();
    const TReader Reader(*this);
    for (int First = 0; First < Count; First += BlockSize) {
      TBlock Block;
      Reader.Read(First, std::min(Count - First, BlockSize), Block);
      Do(Block);
    }
  }
  /// Reads the vectors by blocks.
  class TReader {
   public:
    explicit TReader(const TZyCalculation& Calculation);
    void Read(int First, int Count, TBlock& Block) const;

   private:
    void ReadPlainly(int First, int Count, TBlock& Block) const;
    static void KeepWithin(double Start, double Stop, TBlock& Block);

    const TZyCalculation& FCalculation;
    bool FReadsPlainly;  // without outliers that are to be left out, too
    bool FReadsAll;      // no point lies outside the bounds
  };
};

}  // namespace zy
