#pragma once

#include "annotations/ZyCustomLegend.h"
#include "pie/ZyPieDonut.h"
#include "pie/ZyPieTypes.h"

namespace zy {

/// Lists the segments of a pie chart, each with its fill and a caption.
///
/// In its chart it stands at one of eight places, for which the layout takes room from the pie; legends of one side
/// stand side by side, in the order in which they came. In any other parent it stands where it was put.
class TZyPieLegend : public TZyCustomLegend, public IZyStoredLegend, public IZyPieLegend {
  ZY_CLASS(TZyPieLegend, TZyCustomLegend)
  explicit TZyPieLegend(TComponent* Owner = nullptr);
  ~TZyPieLegend() override;

  /// The chart whose segments are listed. The legend takes over its undo stack. A pie chart that becomes the parent of
  /// a legend without one is taken.
  TZyPieChart* PieChart() const { return FPieChart; }
  void SetPieChart(TZyPieChart* Value);
  /// Setting it chooses the order of the items: rows above and below, columns at the sides.
  TZyPieLegendPosition Position() const override { return FPosition; }
  void SetPosition(TZyPieLegendPosition Value);
  /// What captions show, and the format of their numbers, see LabelText.
  TZyLabelStyle LabelsFrom() const { return FLabelsFrom; }
  void SetLabelsFrom(TZyLabelStyle Value);
  const std::string& LabelFormat() const { return FLabelFormat; }
  void SetLabelFormat(const std::string& Value);
  /// Pixels between legend and pie.
  float DistanceToPie() const override { return FDistanceToPie; }
  void SetDistanceToPie(float Value);

  void Modified() override;
  void PreparePaint() override;
  void JoinGraph(TZyCustomGraph& Graph) override;
  /// While the form is designed, the place where a legend is dropped chooses its position, and one without a chart
  /// takes its parent, or the first pie chart of its owner.
  void SetParent(TWinControl* Value) override;
  /// The height of the items is stored as it is in force.
  void Fields(TZyArchive& Archive) override;

 protected:
  void NewList() override;
  void CheckItemHeight() override { TakeItemHeight(0); }
  void PaintItems(Graphics& Gr) override;
  bool IsPaintedByParent() const override;
  void CMVisibleChanged() override;

 private:
  friend class TZyPieLegendRecord;

  void TakeChart(TZyPieChart* Value);
  void TakeDroppedPosition();

  TRef<TZyPieChart> FPieChart{this, &TZyPieLegend::TakeChart};
  TZyPieLegendPosition FPosition = TZyPieLegendPosition::RightCenter;
  TZyLabelStyle FLabelsFrom = TZyLabelStyle::CaptionsList;
  std::string FLabelFormat;
  float FDistanceToPie = 8;
};

}  // namespace zy
