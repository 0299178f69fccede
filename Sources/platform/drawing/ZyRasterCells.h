#pragma once

#include <cstdint>
#include <vector>

#include "platform/drawing/ZyRaster.h"

namespace zy {

/// Takes rows of coverage, 0 to 255, with runs of untouched pixels left out.
class TCoverageSink {
 public:
  virtual ~TCoverageSink() = default;
  /// Rows rows from Y on, which are alike. Coverage may be changed.
  virtual void Rows(int X, int Y, int Count, std::uint8_t* Coverage, int Rows) = 0;
  /// Many pixels of one coverage. False when they have to come with the others.
  virtual bool EvenRows(int, int, int, std::uint8_t, int) { return false; }
};

/// The accumulation buffer of TZyRaster.
///
/// A cell holds, in 1/65536, by how much the signed coverage grows from its left neighbour's; the prefix sum along a
/// row is the coverage. Cells come in blocks with a flag each, set where an edge touched the block: only those are
/// swept and cleared, and what lies between two of them is even. Between two shapes all cells and flags are 0.
///
/// Rows that edges cross straight up or down only are alike from where one of them starts or ends to the next such
/// place. Of such a run the first row alone has cells. A break stands where a run begins.
class TRasterCells {
 public:
  /// Starts a shape within Box, which must not be empty. Without Smooth, edges are counted at pixel centres only.
  void Begin(const TRasterRect& Box, bool Smooth);
  /// An edge of a closed outline; any finite coordinates. Orientation counts.
  void AddEdge(double X0, double Y0, double X1, double Y1);
  /// Replaces the sums by the coverage they stand for, so that they cannot overflow. All outlines so far must be closed
  /// and of one orientation.
  void Collapse();
  /// Hands out the coverage by the non-zero or else the alternate rule, and clears the cells.
  void Sweep(bool Winding, TCoverageSink& Sink);
  /// Hands out by how many of Layers outlines a pixel is covered, as a part of 255, and clears the cells. No outline
  /// may overlap itself.
  void SweepLayers(int Layers, TCoverageSink& Sink);

 private:
  void AddClipped(double X0, double Y0, double X1, double Y1);
  void AddInside(double X0, double Y0, double X1, double Y1);
  void AddInsideAtCentres(double X0, double Y0, double X1, double Y1);
  void AddRows(std::int64_t Row, std::int64_t RowEnd, double X, double Slope, std::int32_t Sign);
  void AddUpright(std::int64_t Row, std::int64_t RowEnd, std::int64_t X, std::int32_t Sign);
  void AddSpan(std::int64_t Row, double X0, double X1, std::int32_t Height, std::int32_t Sign);
  void AddWideSpan(std::int64_t Row, std::int64_t Xa, std::int64_t Xb, std::int32_t Height, std::int32_t Sign);
  void Break(std::int64_t Row, std::int64_t RowEnd);
  std::int64_t NextBreak(std::int64_t Row, std::int64_t RowEnd) const;
  void PutUprights(bool InEachRow);
  template <class TRule>
  void SweepRows(const TRule& CoverageOf, TCoverageSink& Sink);
  template <class TRule>
  void SweepRun(int Row, int Rows, const TRule& CoverageOf, TCoverageSink& Sink);

  /// An edge straight up or down over whole rows: by how much the sum grows at its column and behind it.
  struct TUpright {
    std::int64_t Row, RowEnd, Column;
    std::int32_t Here, Behind;
  };

  TRasterRect FBox;
  double FWidth = 0;
  double FHeight = 0;
  bool FSmooth = true;
  int FBlocks = 0;               // blocks in a row
  std::int64_t FCellStride = 0;  // cells in a row
  std::int64_t FFlagStride = 0;  // flags in a row, a multiple of eight
  std::int64_t FFirstRow = 0;    // rows that were touched, inclusive
  std::int64_t FLastRow = -1;
  std::vector<std::int32_t> FCells;
  std::vector<std::uint8_t> FFlags;
  std::vector<std::uint8_t> FCoverage;  // of one row
  std::vector<std::uint8_t> FBreaks;    // for each row and the end
  std::vector<TUpright> FUprights;      // whose cells are still to be put
};

}  // namespace zy
