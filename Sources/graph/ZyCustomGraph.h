#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "annotations/captions/ZyCaptionOfName.h"
#include "annotations/captions/ZyParentFont.h"
#include "annotations/captions/ZyRichCaption.h"
#include "graph/ZyChartPicture.h"
#include "graph/ZyImageFileFormat.h"
#include "graph/ZyPictureSize.h"
#include "graph/ZyPollingThread.h"
#include "graph/parts/ZyGraphParts.h"
#include "graph/styles/ZyGradientSettings.h"
#include "persistence/ZyRecord.h"
#include "platform/controls/TCustomPanel.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/GraphicsBackend.h"
#include "platform/framework/Alignment.h"
#include "platform/framework/EnumInfo.h"
#include "platform/framework/TRefList.h"
#include "undo/ZyUndoLink.h"

class QPainter;

namespace zy {

class Graphics;
class TBitmap;
class TMetafile;
class TPrinter;
class TStream;

/// How edges are smoothed.
enum class TZySmoothingMode { None, HighSpeed, AntiAlias, HighQuality };
ZY_ENUM(TZySmoothingMode, "None", "HighSpeed", "AntiAlias", "HighQuality")

/// Base of the chart controls: a panel with a title, a background and an undo link.
///
/// A setter lays out nothing: it marks the chart, and the next paint does what is due. Between BeginUpdate and
/// EndUpdate nothing is computed at all.
class TZyCustomGraph : public TCustomPanel, public TZyRecord, public TZyVariableContainer {
  ZY_CLASS(TZyCustomGraph, TCustomPanel)
  explicit TZyCustomGraph(TComponent* Owner = nullptr);
  ~TZyCustomGraph() override;

  /// The title. Trailing blanks are dropped. Throws what TZyRichCaptionObject::ParseForSize throws, when the chart has
  /// a parent; the text is stored then, and the old title still shown.
  const TZyRichCaption& Caption() const { return FTitleRec.Caption(); }
  void SetCaption(const TZyRichCaption& Value);
  /// Where the title stands along the width. Centred at first.
  TAlignment CaptionAlignment() const { return FCaptionAlignment; }
  void SetCaptionAlignment(TAlignment Value);
  /// False at first.
  bool CaptionVisible() const { return FCaptionVisible; }
  void SetCaptionVisible(bool Value);
  /// Pixels above and below the title.
  float CaptionDistanceBefore() const { return FCaptionDistanceBefore; }
  void SetCaptionDistanceBefore(float Value);
  float CaptionDistanceAfter() const { return FCaptionDistanceAfter; }
  void SetCaptionDistanceAfter(float Value);
  /// Fill colour of the title's font.
  TZyColor CaptionColor() const { return FTitleRec.CaptionFont().FillColor(); }
  void SetCaptionColor(TZyColor Value);
  /// Font of the title. Setting it logs the old one as one step of undo.
  TZyFont& CaptionFont() { return FTitleRec.CaptionFont(); }
  void SetCaptionFont(const TZyFont& Value);
  /// The font that is the parent's until it is changed: that of the title, unless a kind of chart has another one.
  /// SetFont logs the old one as one step of undo; who changes the font itself pushes it before
  /// (TZyFont::PushToUndoStack).
  virtual TZyFont& Font() { return FTitleRec.CaptionFont(); }
  virtual void SetFont(const TZyFont& Value);
  /// Transparent at first: what lies behind the chart shows, and its pictures are transparent.
  TZyColor BackColor() const { return FBackColor; }
  void SetBackColor(TZyColor Value);
  /// Drawn over the back colour while it is visible.
  TZyGradientSettings& BackgroundGradient() { return FBackgroundGradient; }
  TZySmoothingMode SmoothingMode() const { return FSmoothingMode; }
  void SetSmoothingMode(TZySmoothingMode Value);
  TZyUndoStack* UndoStack() const { return FUndo; }
  /// Hands the stack on to all that belongs to the chart.
  virtual void SetUndoStack(TZyUndoStack* Value);

  /// Nest; after the last EndUpdate the next paint lays out.
  void BeginUpdate() { ++FUpdateCount; }
  void EndUpdate();
  bool Updating() const { return FUpdateCount > 0; }
  /// Marks the chart for layout.
  virtual void Modified() {}
  virtual void Calculate() {}
  /// While the chart paints into a picture or a file.
  bool DoingImage() const { return FDoingImage; }
  void SetDoingImage(bool Value) { FDoingImage = Value; }
  /// The caption, or the name of the component without one.
  const std::string& CaptionAsString() const { return Caption().empty() ? Name() : Caption(); }
  /// Evaluates and measures the title anew; the chart is laid out at the next paint. Throws as SetCaption does.
  void ParseCaption();
  /// Enters what captions can name of the chart, "Name" and "Caption", into the list of text variables.
  void RegisterVariables() override;
  std::string VariablesRef() const override;
  TZyDependentList* ObjectsToUpdate() override { return &FObjectsToUpdate; }
  /// Whether the component is one that the chart itself owns.
  bool Contains(const TComponent* Component) const;

  /// The legends of the chart. They enter and leave by themselves.
  const TRefList<IZyGraphLegend>& RelatedLegends() const { return FRelatedLegends; }
  void AddRelatedLegend(IZyGraphLegend* Legend);
  void RemoveRelatedLegend(IZyGraphLegend* Legend) { FRelatedLegends.Remove(Legend); }

  /// The smoothing of the chart as surfaces know it.
  zy::SmoothingMode SmoothingOfSurfaces() const;
  /// Turns the smoothing of the chart on, or all smoothing off.
  void SetHighQuality(Graphics& Gr, bool On) const;

  // --- Ways out ---

  /// Paints the chart on the printer's present page, as large as fits into Rect, in printer pixels, in its
  /// own proportions: in the middle across, at the top down. Nothing without a printer. Throws EPrinter when no
  /// document is open.
  void PrintTo(TPrinter* APrinter, const TRect& Rect);
  /// Writes the chart at the stream's position. RemoveTransparency gives pictures of pixels a ground of the colour;
  /// without it what is transparent stays so, as far as the format can say it, and becomes white where not. Nothing is
  /// written as EXIF and Icon, and of a chart without any extent. Throws, with nothing written, ERangeError for a
  /// picture beyond 32,767 pixels, EStreamError when it cannot be encoded.
  void SaveImage(TStream& Stream, TZyImageFileFormat Format, bool RemoveTransparency = false,
                 TColor TransparentExchangeColor = 0xFFFFFF);
  /// The same into a file, in one step: whatever fails, and when there is nothing to write, an old file stays as it
  /// was. Nothing to write and no old file make an empty one. Throws EFileError when the file cannot be written.
  void SaveImage(const std::filesystem::path& FileName, TZyImageFileFormat Format, bool RemoveTransparency = false,
                 TColor TransparentExchangeColor = 0xFFFFFF);
  /// The same in another size than that of the control, with as many pixels to an inch as told: laid out as a window of
  /// that size would show it, with what floats at its distance from the corner. Graphs that share an X axis take the
  /// width, and their shares of the height. The screen stays as it is. Throws ERangeError, as above, for an extent or a
  /// resolution that no picture can have.
  void SaveImage(TStream& Stream, TZyImageFileFormat Format, const TZyPictureSize& Size,
                 bool RemoveTransparency = false, TColor TransparentExchangeColor = 0xFFFFFF);
  void SaveImage(const std::filesystem::path& FileName, TZyImageFileFormat Format, const TZyPictureSize& Size,
                 bool RemoveTransparency = false, TColor TransparentExchangeColor = 0xFFFFFF);
  /// Draws the chart through an active painter of the toolkit, on whatever device, within Box in the painter's units.
  /// Without a size the chart is as large as fits in its own proportions, in the middle across and at the top down;
  /// with one it is laid out for that size first, of which the resolution does not count. Nothing in an empty box.
  void PaintOn(QPainter& Painter, const RectF& Box, const TZyPictureSize& Size = {});
  /// Puts the chart on the clipboard, in all forms that TClipboard::SetPicture knows.
  void CopyToClipboard();
  /// The chart as a picture, in which the pixels of the colour are transparent: those of the ground, and what the chart
  /// itself draws in that colour.
  std::unique_ptr<TBitmap> AsTBitmap(TColor TransparentExchangeColor);
  /// The chart as an enhanced metafile.
  std::unique_ptr<TMetafile> AsTMetafile();

  // --- Record: the chart with all that belongs to it ---

  /// Nothing; a kind of chart tells what it has.
  void Fields(TZyArchive&) override {}
  /// Writes the chart with or without its data; the operations of TZyRecord write it with them. A reader loads into the
  /// objects that are there by their names, makes those that are missing, and takes no step of its own for undo: the
  /// stack logs what the setters push.
  using TZyRecord::WriteTo;
  void WriteTo(TStream& Stream, bool SaveData) const;
  void WriteTo(const std::filesystem::path& FileName, bool SaveData) const;
  void WriteTo(const IXMLNode& Node, bool SaveData) const;
  void WriteTo(TCustomIniFile& Ini, std::string_view Section, bool SaveData) const;

  /// The border takes room from the chart.
  void SetBorderStyle(TBorderStyle Value) override;
  /// An extent that changes is told to BoundsChanged first.
  void SetBounds(int ALeft, int ATop, int AWidth, int AHeight) override;
  /// While the form is designed, the caption follows the name until it is set by hand, and a chart without an undo
  /// stack takes the first one of its owner, or gets one.
  void SetName(const std::string& Value) override;

  /// Whether the record that is being written has the data; true else.
  bool SavesData() const { return FSavesData; }

 protected:
  /// A chart whose back colour lets something through stands on what lies behind it.
  bool WMEraseBkgnd(Graphics& Gr) override;
  virtual void BoundsChanged() {}
  void ApplyBounds() override;
  void ParentFontChanged() override;
  /// The title has another font or look of it.
  virtual void TitleFontChanged() { FTitleFont.FontChanged(); }
  /// What goes out of the chart.
  virtual std::unique_ptr<TZyChartPicture> MakePicture() { return nullptr; }
  /// The charts in that picture, from top to bottom.
  virtual std::vector<TZyCustomGraph*> ChartsOfPicture() { return {this}; }

  TZyRichCaptionObject FTitleRec;
  bool FNeedsRecalculate = false;
  bool FDoingImage = false;
  TZyPollingThread FPollingThread;

 private:
  class TResized;
  void TakeUndoStack();
  std::unique_ptr<TZyChartPicture> LaidOutPicture();
  void Encode(TZyChartPicture& Picture, TStream& Stream, TZyImageFileFormat Format, const TZyPictureSize& Size,
              bool RemoveTransparency, TColor Ground);

  TZyParentFont FTitleFont{*this, FTitleRec.CaptionFont()};
  TZyDependentList FObjectsToUpdate;  // the captions that show the chart's name or caption
  TZyGradientSettings FBackgroundGradient;
  TZyUndoLink FUndo{this, &TZyCustomGraph::SetUndoStack, FBackgroundGradient};
  TZyCaptionOfName FCaptionOfName;
  TAlignment FCaptionAlignment = TAlignment::taCenter;
  bool FCaptionVisible = false;
  float FCaptionDistanceAfter = 0;
  float FCaptionDistanceBefore = 0;
  TZyColor FBackColor = Colors::Transparent;
  TZySmoothingMode FSmoothingMode = TZySmoothingMode::HighQuality;
  int FUpdateCount = 0;
  bool FHasPictureSize = false;  // neither the parent nor the widget has a say in the extent
  mutable bool FSavesData = true;
  TRefList<IZyGraphLegend> FRelatedLegends{this};
};

/// An update of a chart that lasts to the end of the block, however that is left. The chart must outlive it.
class TZyGraphUpdate {
 public:
  explicit TZyGraphUpdate(TZyCustomGraph& Graph) : FGraph(Graph) { FGraph.BeginUpdate(); }
  ~TZyGraphUpdate() { FGraph.EndUpdate(); }
  TZyGraphUpdate(const TZyGraphUpdate&) = delete;
  TZyGraphUpdate& operator=(const TZyGraphUpdate&) = delete;

 private:
  TZyCustomGraph& FGraph;
};

}  // namespace zy
