#pragma once

namespace zy {

class TComponent;
class TZyCustomDoubleVector;
enum class TZyAxisPosition;

/// What an axis and its layout ask of a series: where its data lie, and how far its drawing reaches beyond them.
class IZyAxisSeries {
 public:
  virtual ~IZyAxisSeries() = default;
  /// The series itself.
  virtual TComponent& Component() = 0;
  /// Whether there is anything to show.
  virtual bool SeriesVisible() const = 0;
  /// The data range as the axes read it; a start above its stop means that there is none.
  virtual double XStart() const = 0;
  virtual double XStop() const = 0;
  virtual double YStart() const = 0;
  virtual double YStop() const = 0;
  /// The data, null where there are none.
  virtual TZyCustomDoubleVector* XData() const = 0;
  virtual TZyCustomDoubleVector* YData() const = 0;
  /// A value of the data as the axis sees it.
  virtual double TransformX(double Value, int Idx) const = 0;
  virtual double TransformY(double Value, int Idx) const = 0;
  /// Pixels by which the drawing reaches beyond its data at a side of the data area.
  virtual float ExtraSpaceAt(TZyAxisPosition Border) const = 0;
  /// Joins or leaves graph and axes, as the references allow; the parent of an axis changed.
  virtual void TestAllAssigned() = 0;
};

}  // namespace zy
