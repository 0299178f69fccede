#pragma once

namespace zy {

class TComponent;
class TZyCustomDoubleVector;

/// What a data vector tells those that read it: series, and pie charts. Nothing is computed in answer; a reader only
/// notes what became stale.
class IZyVectorReader {
 public:
  virtual ~IZyVectorReader() = default;
  /// The reader itself.
  virtual TComponent& Component() = 0;
  /// Ranges and pixels of the reader are stale.
  virtual void DataReset() = 0;
  /// Values changed; the ranges describe them still, or grow with new ones.
  virtual void DataInvalidated() = 0;
  /// The same where only the value at Idx is another one, or values came in from there on: for readers that keep
  /// something of each value.
  virtual void DataWritten(const TZyCustomDoubleVector& /*Vector*/, int /*Idx*/) { DataInvalidated(); }
  /// The vector is empty now. With WithLinkedMarkers, markers that hold on to its points go as well.
  virtual void DataCleared(const TZyCustomDoubleVector& Vector, bool WithLinkedMarkers) = 0;
  /// Number values came in at Idx, or left there; markers on the points behind move along.
  virtual void DataInserted(const TZyCustomDoubleVector& Vector, int Idx, int Number) = 0;
  virtual void DataDeleted(const TZyCustomDoubleVector& Vector, int Idx, int Number) = 0;
};

}  // namespace zy
