#include "platform/drawing/Metafile.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <cmath>
#include <string>

#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/EmfDevice.h"
#include "platform/drawing/Font.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"
#include "platform/drawing/SvgBackend.h"
#include "platform/framework/TStream.h"
#include "platform/framework/WholeFile.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

/// A shape that owns what it refers to.
struct TOwnShape {
  explicit TOwnShape(const TShape& Source)
      : Shape(Source),
        Points(Source.Points.begin(), Source.Points.end()),
        Outline(Source.Outline == nullptr ? GraphicsPath() : *Source.Outline) {}

  void Draw(Graphics& Target, const Pen& Pen) const {
    switch (Shape.Kind) {
      case TShape::Lines:
        return Target.DrawLines(Pen, Points);
      case TShape::Polygon:
        return Target.DrawPolygon(Pen, Points);
      case TShape::Rectangle:
        return Target.DrawRectangle(Pen, Shape.Rect);
      case TShape::Ellipse:
        return Target.DrawEllipse(Pen, Shape.Rect);
      case TShape::Pie:
        return Target.DrawPie(Pen, Shape.Rect, Shape.StartAngle, Shape.SweepAngle);
      case TShape::Path:
        return Target.DrawPath(Pen, Outline);
    }
  }

  void Fill(Graphics& Target, const Brush& Brush) const {
    switch (Shape.Kind) {
      case TShape::Lines:
        return;
      case TShape::Polygon:
        return Target.FillPolygon(Brush, Points, Shape.Mode);
      case TShape::Rectangle:
        return Target.FillRectangle(Brush, Shape.Rect);
      case TShape::Ellipse:
        return Target.FillEllipse(Brush, Shape.Rect);
      case TShape::Pie:
        return Target.FillPie(Brush, Shape.Rect, Shape.StartAngle, Shape.SweepAngle);
      case TShape::Path:
        return Target.FillPath(Brush, Outline);
    }
  }

  TShape Shape;
  std::vector<PointF> Points;
  GraphicsPath Outline;
};

}  // namespace

class Metafile::TRecorder : public TGraphicsBackend {
 public:
  explicit TRecorder(Metafile& Owner) : FOwner(Owner) {}

  void Draw(const TDrawState& State, const Pen& Pen, const TShape& Shape) override {
    Add(State, [Pen, Own = TOwnShape(Shape)](Graphics& Target) { Own.Draw(Target, Pen); });
  }
  void Fill(const TDrawState& State, const Brush& Brush, const TShape& Shape) override {
    Add(State, [Fill = Shared(Brush), Own = TOwnShape(Shape)](Graphics& Target) { Own.Fill(Target, *Fill); });
  }
  void DrawImage(const TDrawState& State, const Bitmap& Picture, const RectF& To, const RectF& From) override {
    Add(State, [Copy = std::make_shared<const Bitmap>(Picture.Clone()), To, From](Graphics& Target) {
      Target.DrawImage(*Copy, To, From);
    });
  }
  void DrawString(const TDrawState& State, std::string_view Text, const Font& Font, const Brush& Brush,
                  PointF Origin) override {
    Add(State, [Text = std::string(Text), Font, Fill = Shared(Brush), Origin](Graphics& Target) {
      Target.DrawString(Text, Font, *Fill, Origin.X, Origin.Y);
    });
  }
  void Clear(const TDrawState& State, ARGB Color) override {
    Add(State, [Color](Graphics& Target) { Target.Clear(Color); });
  }

 private:
  static std::shared_ptr<const Brush> Shared(const Brush& Brush) { return Brush.Clone(); }
  void Add(const TDrawState& State, std::function<void(Graphics&)> Play) {
    FOwner.FCalls.push_back({State, std::move(Play)});
  }

  Metafile& FOwner;
};

Metafile::Metafile(float Width, float Height) : FWidth(Width), FHeight(Height) {
  if (!(Width > 0 && Height > 0) || !std::isfinite(Width) || !std::isfinite(Height))
    throw ERangeError(LoadResString(_sRecordingSize));
}

std::unique_ptr<TGraphicsBackend> Metafile::Recorder() { return std::make_unique<TRecorder>(*this); }

void Metafile::PlayTo(Graphics& Target, const RectF& To) const {
  const Matrix OuterTransform = Target.GetTransform();
  const Region OuterClip = Target.GetClip();
  const SmoothingMode OuterSmoothing = Target.GetSmoothingMode();
  const TextRenderingHint OuterHint = Target.GetTextRenderingHint();
  Target.SetClip(To, CombineModeIntersect);
  const Region Page = Target.GetClip();
  Matrix Place = OuterTransform;
  Place.Translate(To.X, To.Y);
  Place.Scale(To.Width / FWidth, To.Height / FHeight);
  Region Recorded, Clip = Page;
  for (const TCall& Call : std::vector(FCalls)) {  // a copy: the target may be this recording
    if (!(Recorded == Call.State.Clip)) {
      Recorded = Call.State.Clip;
      Clip = Page;
      Clip.Intersect(Recorded.Transformed(Place));
    }
    Matrix Transform = Place;
    Transform.Multiply(Call.State.Transform);
    Target.SetTransform(Transform);
    Target.SetClip(Clip);
    Target.SetSmoothingMode(Call.State.Smoothing);
    Target.SetTextRenderingHint(Call.State.Hint);
    Call.Play(Target);
  }
  Target.SetTransform(OuterTransform);
  Target.SetClip(OuterClip);
  Target.SetSmoothingMode(OuterSmoothing);
  Target.SetTextRenderingHint(OuterHint);
}

namespace {

void PaintPage(const Metafile& Page, QPaintDevice& Device) {
  QPainter Painter(&Device);
  Graphics Canvas(Painter);
  Page.PlayTo(Canvas, {0, 0, Page.GetWidth(), Page.GetHeight()});
}

/// A Graphics over a backend that the caller keeps an eye on.
class TFileGraphics : public Graphics {
 public:
  explicit TFileGraphics(std::unique_ptr<TGraphicsBackend> Backend) : Graphics(std::move(Backend)) {}
};

std::string AsSvg(const Metafile& Page) {
  auto Backend = std::make_unique<TSvgBackend>(Page.GetWidth(), Page.GetHeight());
  TSvgBackend& Svg = *Backend;
  TFileGraphics Canvas(std::move(Backend));
  Page.PlayTo(Canvas, {0, 0, Page.GetWidth(), Page.GetHeight()});
  return Svg.Document();
}

std::string AsPdf(const Metafile& Page) {
  constexpr double PointsPerPixel = 72.0 / 96.0;
  QBuffer Buffer;
  Buffer.open(QIODevice::WriteOnly);
  QPdfWriter Device(&Buffer);
  Device.setCreator("Zyphos");
  Device.setResolution(96);
  Device.setPageMargins(QMarginsF());
  const QSizeF Points(static_cast<double>(Page.GetWidth()) * PointsPerPixel,
                      static_cast<double>(Page.GetHeight()) * PointsPerPixel);
  Device.setPageSize(QPageSize(Points, QPageSize::Point, QString(), QPageSize::ExactMatch));
  PaintPage(Page, Device);
  return Buffer.data().toStdString();
}

std::string AsEmf(const Metafile& Page) {
  TEmfDevice Device(QSizeF(Page.GetWidth(), Page.GetHeight()));
  PaintPage(Page, Device);
  TMemoryStream Stream;
  Device.Save(Stream);
  const auto Bytes = Stream.Bytes();
  return {reinterpret_cast<const char*>(Bytes.data()), Bytes.size()};
}

/// Target names where the bytes go.
std::string Encoded(const Metafile& Page, std::string_view FormatName, std::string_view Target) {
  std::string Name(FormatName);
  for (char& Letter : Name)
    if (Letter >= 'a' && Letter <= 'z') Letter = static_cast<char>(Letter - 'a' + 'A');
  if (Name == "SVG") return AsSvg(Page);
  if (Name == "PDF") return AsPdf(Page);
  if (Name == "EMF") return AsEmf(Page);
  throw EStreamError(Format(LoadResString(_sCannotEncode), {Target, FormatName, LoadResString(_sUnknownFormat)}));
}

}  // namespace

void Metafile::Save(TStream& Stream, std::string_view FormatName) const {
  const std::string Bytes = Encoded(*this, FormatName, "a stream");
  Stream.WriteBuffer(Bytes.data(), Bytes.size());
}

void Metafile::Save(const std::filesystem::path& FileName) const {
  const std::string Extension = FileName.extension().string();
  SaveWholeFile(FileName, Encoded(*this, Extension.empty() ? Extension : Extension.substr(1), FileName.string()));
}

}  // namespace zy
