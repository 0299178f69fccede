#include "platform/drawing/EmfDevice.h"

#include <QBitmap>
#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPathStroker>
#include <QTextLayout>
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "platform/drawing/EmfGeometry.h"
#include "platform/drawing/EmfRecords.h"
#include "platform/framework/TStream.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

/// The factor of a transform that turns and scales alike in all directions; nothing for any other.
std::optional<double> EvenScale(const QTransform& Transform) {
  if (!Transform.isAffine()) return {};
  const double Along = std::hypot(Transform.m11(), Transform.m12());
  const double Across = std::hypot(Transform.m21(), Transform.m22());
  const double Slant = Transform.m11() * Transform.m21() + Transform.m12() * Transform.m22();
  constexpr double Tolerance = 1e-4;
  if (!(Along > 0) || std::abs(Along - Across) > Tolerance * Along || std::abs(Slant) > Tolerance * Along * Along)
    return {};
  return Along;
}

QPainterPath PathOf(const QRectF& Rect) {
  QPainterPath Result;
  Result.addRect(Rect);
  return Result;
}

/// The brush with a gradient that does not depend on the object, whose box is given.
QBrush Resolved(const QBrush& Brush, const QRectF& Box) {
  const QGradient* Source = Brush.gradient();
  if (!Source || Source->coordinateMode() == QGradient::LogicalMode) return Brush;
  const QTransform ToObject(Box.width(), 0, 0, Box.height(), Box.x(), Box.y());
  const bool IsLast = Source->coordinateMode() == QGradient::ObjectMode;
  QGradient Gradient = *Source;
  Gradient.setCoordinateMode(QGradient::LogicalMode);
  QBrush Result(Gradient);
  Result.setTransform(IsLast ? Brush.transform() * ToObject : ToObject * Brush.transform());
  return Result;
}

/// Some readers know but one fill rule, above all for clips; where figures do not overlap, the rules agree.
QPainterPath WithoutOverlaps(const QPainterPath& Path) {
  constexpr int MostElements = 2000;  // more take too long
  return Path.fillRule() == Qt::WindingFill && Path.elementCount() <= MostElements ? Path.simplified() : Path;
}

/// Whether some pixels are neither opaque nor clear: only those mean different colours to different readers.
bool HasHalfTones(const QImage& Image) {
  if (!Image.hasAlphaChannel()) return false;
  const QImage Pixels = Image.convertToFormat(QImage::Format_ARGB32);
  for (int Row = 0; Row < Pixels.height(); ++Row) {
    const auto* Line = reinterpret_cast<const QRgb*>(Pixels.constScanLine(Row));
    if (std::any_of(Line, Line + Pixels.width(), [](QRgb Pixel) { return qAlpha(Pixel) % 255 != 0; })) return true;
  }
  return false;
}

/// Records know no compressed translucent pictures: four bytes for a pixel. A large gradient has fewer pixels there.
QImage ForRecords(const QImage& Image, bool IsSmooth) {
  constexpr double MostPixels = 1 << 15;
  const double Pixels = static_cast<double>(Image.width()) * Image.height();
  if (!IsSmooth || Pixels <= MostPixels) return Image;
  const double Scale = std::sqrt(MostPixels / Pixels);
  const auto Extent = [Scale](int Whole) { return std::max(static_cast<int>(std::lround(Whole * Scale)), 1); };
  return Image.scaled(Extent(Image.width()), Extent(Image.height()), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QColor Faded(QColor Color, double Opacity) {
  Color.setAlphaF(static_cast<float>(std::clamp(Color.alphaF() * Opacity, 0.0, 1.0)));
  return Color;
}

std::uint32_t CapsAndJoins(const QPen& Pen) {
  const std::uint32_t Caps = Pen.capStyle() == Qt::RoundCap    ? epsCapRound
                             : Pen.capStyle() == Qt::SquareCap ? epsCapSquare
                                                               : epsCapFlat;
  const std::uint32_t Joins = Pen.joinStyle() == Qt::RoundJoin   ? epsJoinRound
                              : Pen.joinStyle() == Qt::BevelJoin ? epsJoinBevel
                                                                 : epsJoinMiter;
  return Caps | Joins;
}

/// The toolkit measures a mitre from the outer edge of the line to the tip, in half pen widths times two.
double MiterLimitOf(const QPen& Pen) {
  return Pen.joinStyle() == Qt::SvgMiterJoin ? std::max(1.0, Pen.miterLimit()) : std::hypot(1, 2 * Pen.miterLimit());
}

/// The style of a geometric pen that has this pattern, in pen widths.
std::uint32_t StyleOf(const QList<qreal>& Pattern) {
  if (Pattern == QList<qreal>{3, 1}) return epsDash;
  if (Pattern == QList<qreal>{1, 1}) return epsDot;
  if (Pattern == QList<qreal>{3, 1, 1, 1}) return epsDashDot;
  if (Pattern == QList<qreal>{3, 1, 1, 1, 1, 1}) return epsDashDotDot;
  return epsUserStyle;
}

}  // namespace

class TEmfDevice::TEngine : public QPaintEngine {
 public:
  TEngine(QSizeF Pixels, double DotsPerInch)
      : QPaintEngine(PaintEngineFeatures(AllFeatures) & ~PaintEngineFeatures(RasterOpModes)),
        FPixels(Pixels),
        FDotsPerInch(DotsPerInch),
        FRecords(Pixels, DotsPerInch) {}

  const TEmfRecords& Records() const { return FRecords; }

  bool begin(QPaintDevice*) override;
  bool end() override { return true; }
  void updateState(const QPaintEngineState& State) override;
  void drawPath(const QPainterPath& Path) override;
  void drawPolygon(const QPointF* Points, int Count, PolygonDrawMode Mode) override;
  using QPaintEngine::drawPolygon;
  void drawPixmap(const QRectF& Place, const QPixmap& Image, const QRectF& Part) override;
  void drawImage(const QRectF& Place, const QImage& Image, const QRectF& Part, Qt::ImageConversionFlags) override;
  void drawTiledPixmap(const QRectF& Place, const QPixmap& Image, const QPointF& Offset) override;
  void drawTextItem(const QPointF& BaseLine, const QTextItem& Item) override;
  Type type() const override { return User; }

 private:
  /// A text that arrives in parts, one for each font that it takes.
  struct TTextInParts {
    QString Text;
    QPointF Next;
    double Left;  // width to come
  };

  bool Prepare();
  void AddClip(const QPainterPath& Path, Qt::ClipOperation Operation);
  void WriteClips();
  void ClipTo(const QPainterPath& Path);
  void Fill(const QPainterPath& Area, const QBrush& Brush);
  void FillWithColor(const QPainterPath& Area, const QColor& Color);
  bool FillWithLinear(const QPainterPath& Area, const QBrush& Brush);
  bool FillWithRadial(const QPainterPath& Area, const QBrush& Brush);
  void FillWithPicture(const QPainterPath& Area, const QBrush& Brush);
  void FillSolid(const QPainterPath& Area, QRgb Color);
  void Stroke(const QPainterPath& Path, const QPen& Pen);
  void StrokeAsArea(const QPainterPath& Path, const QPen& Pen);
  std::optional<TEmfPen> SolidPen(const QPen& Pen) const;
  bool IsRestOfText(const QPointF& BaseLine, const QTextItem& Item);
  bool CanStayText(const QTextItem& Item) const;
  QTransform BrushToDevice(const QBrush& Brush) const;
  QRectF Vicinity() const;
  template <typename TPaint>
  void PaintPicture(const QPainterPath& Area, double Scale, const TPaint& Paint);
  void PutPicture(const QRectF& Place, const QImage& Image, const QPainterPath& Area);
  TEmfPlus ClippedAlternative() const;

  QSizeF FPixels;
  double FDotsPerInch;
  TEmfRecords FRecords;
  std::vector<QPainterPath> FClips;  // in pixels; what is in all of them is seen
  bool FIsClipping = false;
  bool FIsClipWritten = true;
  QRectF FSeen;  // box of what the clips leave
  std::optional<TTextInParts> FTextInParts;
};

bool TEmfDevice::TEngine::begin(QPaintDevice*) {
  FRecords = TEmfRecords(FPixels, FDotsPerInch);
  FClips.clear();
  FIsClipping = false;
  FIsClipWritten = true;
  FSeen = QRectF({}, FPixels);
  FTextInParts.reset();
  return true;
}

void TEmfDevice::TEngine::updateState(const QPaintEngineState& State) {
  const DirtyFlags Changes = State.state();
  if (Changes & DirtyClipEnabled) {
    FIsClipping = State.isClipEnabled();
    FIsClipWritten = false;
  }
  if (Changes & DirtyClipRegion) {
    QPainterPath Path;
    Path.addRegion(State.clipRegion());
    AddClip(State.transform().map(Path), State.clipOperation());
  }
  if (Changes & DirtyClipPath) AddClip(State.transform().map(State.clipPath()), State.clipOperation());
}

void TEmfDevice::TEngine::AddClip(const QPainterPath& Path, Qt::ClipOperation Operation) {
  FIsClipWritten = false;
  if (Operation != Qt::IntersectClip) FClips.clear();
  if (Operation == Qt::NoClip) return;
  FClips.push_back(AreaWithin(Path, Vicinity()));
}

/// Writes the clip when it has changed. Says whether anything can be seen.
bool TEmfDevice::TEngine::Prepare() {
  FTextInParts.reset();
  if (!FIsClipWritten) {
    FIsClipWritten = true;
    FSeen = QRectF({}, FPixels);
    FRecords.StartClips();
    if (FIsClipping) WriteClips();
  }
  FRecords.BeginShape();
  const QPainter::CompositionMode Mode = state->compositionMode();
  return !FSeen.isEmpty() && state->opacity() > 0 && Mode != QPainter::CompositionMode_Destination &&
         Mode != QPainter::CompositionMode_Clear;
}

/// Boxes become one: some programs take two clips to the same box for one to nothing.
void TEmfDevice::TEngine::WriteClips() {
  QRectF Box = FSeen;
  for (const QPainterPath& Clip : FClips) {
    FSeen &= Clip.boundingRect();
    if (const std::optional<QRectF> Rect = AsRectangle(Clip)) Box &= *Rect;
  }
  if (FSeen.isEmpty()) return;
  if (Box != QRectF({}, FPixels)) FRecords.ClipToRect(Box);
  for (const QPainterPath& Clip : FClips)
    if (!AsRectangle(Clip)) ClipTo(Clip);
}

void TEmfDevice::TEngine::ClipTo(const QPainterPath& Path) {
  if (const std::optional<QRectF> Rect = AsRectangle(Path)) {
    FRecords.ClipToRect(*Rect);
  } else {
    FRecords.ClipToPath(WithoutOverlaps(Path));
  }
}

/// Beyond this, shapes are cut off: large numbers overflow in programs that read the file.
QRectF TEmfDevice::TEngine::Vicinity() const {
  constexpr double Margin = 10'000;
  return QRectF({}, FPixels).adjusted(-Margin, -Margin, Margin, Margin);
}

void TEmfDevice::TEngine::drawPath(const QPainterPath& Path) {
  if (!Prepare()) return;
  const QPainterPath Shape = state->transform().map(Path);
  const QBrush Brush = Resolved(state->brush(), Path.boundingRect());
  const QPen Pen = state->pen();
  const std::optional<TEmfPen> Line = SolidPen(Pen);
  const bool IsPlain = Brush.style() == Qt::SolidPattern && Brush.isOpaque() && state->opacity() >= 1;
  if (Line && IsPlain && IsClosed(Shape) && Vicinity().contains(Shape.controlPointRect()) &&
      Pen.style() == Qt::SolidLine) {
    FRecords.SelectPen(Line);
    FRecords.SelectBrush(Brush.color().rgb());
    if (const std::vector<QPointF> Corners = AsLines(Shape); Corners.size() > 3) {
      FRecords.Polygon(std::span(Corners).first(Corners.size() - 1), Shape.fillRule());
    } else if (!Shape.isEmpty()) {
      FRecords.StrokeAndFillPath(Shape);
    }
    return;
  }
  if (Brush.style() != Qt::NoBrush) Fill(AreaWithin(Shape, Vicinity()), Brush);
  Stroke(Path, Pen);
}

void TEmfDevice::TEngine::drawPolygon(const QPointF* Points, int Count, PolygonDrawMode Mode) {
  QPainterPath Path;
  bool IsGoingOn = false;
  for (int Index = 0; Index < Count; ++Index) {
    if (!std::isfinite(Points[Index].x()) || !std::isfinite(Points[Index].y())) {
      IsGoingOn = IsGoingOn && Mode != PolylineMode;  // a line has a gap there, an area loses a corner
    } else if (IsGoingOn) {
      Path.lineTo(Points[Index]);
    } else {
      Path.moveTo(Points[Index]);
      IsGoingOn = true;
    }
  }
  if (Path.elementCount() < 2) return;
  if (Mode == PolylineMode) {
    if (Prepare()) Stroke(Path, state->pen());
    return;
  }
  Path.closeSubpath();
  Path.setFillRule(Mode == OddEvenMode ? Qt::OddEvenFill : Qt::WindingFill);
  drawPath(Path);
}

QTransform TEmfDevice::TEngine::BrushToDevice(const QBrush& Brush) const {
  const QPointF Origin = state->brushOrigin();
  return Brush.transform() * QTransform::fromTranslate(Origin.x(), Origin.y()) * state->transform();
}

void TEmfDevice::TEngine::Fill(const QPainterPath& Area, const QBrush& Brush) {
  if (Area.isEmpty() || Brush.style() == Qt::NoBrush) return;
  if (Brush.style() == Qt::SolidPattern) return FillWithColor(Area, Faded(Brush.color(), state->opacity()));
  if (!Area.boundingRect().intersects(FSeen)) return;
  FRecords.BeginLevel();
  ClipTo(Area);
  const bool IsOpaque = Brush.isOpaque() && state->opacity() >= 1 && BrushToDevice(Brush).isInvertible();
  const bool IsDone = IsOpaque && ((Brush.style() == Qt::LinearGradientPattern && FillWithLinear(Area, Brush)) ||
                                   (Brush.style() == Qt::RadialGradientPattern && FillWithRadial(Area, Brush)));
  if (!IsDone) FillWithPicture(Area, Brush);
  FRecords.EndLevel();
}

void TEmfDevice::TEngine::FillWithColor(const QPainterPath& Area, const QColor& Color) {
  if (Color.alpha() == 0) return;
  if (Color.alpha() == 255) return FillSolid(Area, Color.rgb());
  // One translucent pixel, drawn out over the box and cut to the shape, stays sharp at every size.
  const QRectF Box = Area.boundingRect() & FSeen;
  if (Box.isEmpty()) return;
  QImage Pixel(1, 1, QImage::Format_ARGB32);
  Pixel.setPixelColor(0, 0, Color);
  TEmfPlus Shape = ClippedAlternative();
  Shape.Fill(WithoutOverlaps(Area), Color);
  Shape.Finish();
  FRecords.BeginAlternative(Shape);
  FRecords.BeginLevel();
  if (!AsRectangle(Area)) ClipTo(Area);
  FRecords.Picture(Box, Pixel);
  FRecords.EndLevel();
  FRecords.EndAlternative();
}

/// An alternative with the clips that records have set for themselves.
TEmfPlus TEmfDevice::TEngine::ClippedAlternative() const {
  TEmfPlus Result;
  if (!FIsClipping) return Result;
  for (const QPainterPath& Clip : FClips) Result.ClipTo(WithoutOverlaps(Clip));
  return Result;
}

/// A picture under a clip to Area, which is already set for records.
void TEmfDevice::TEngine::PutPicture(const QRectF& Place, const QImage& Image, const QPainterPath& Area) {
  if (!HasHalfTones(Image)) return FRecords.Picture(Place, Image);
  TEmfPlus Drawing = ClippedAlternative();
  Drawing.ClipTo(WithoutOverlaps(Area));
  Drawing.Draw(Place, Image);
  Drawing.Finish();
  FRecords.BeginAlternative(Drawing);
  FRecords.Picture(Place, ForRecords(Image, ShowsGradient(state->renderHints())));
  FRecords.EndAlternative();
}

void TEmfDevice::TEngine::FillSolid(const QPainterPath& Area, QRgb Color) {
  FRecords.SelectBrush(Color);
  std::vector<QPointF> Corners = AsLines(Area);
  if (Corners.size() < 3) return FRecords.FillPath(Area);
  if (Coincide(Corners.front(), Corners.back())) Corners.pop_back();
  FRecords.SelectPen({});
  FRecords.Polygon(Corners, Area.fillRule());
}

/// Strips across the gradient, each from where its colour starts to the far end: the next one covers the rest, and no
/// seam shows between two of them.
bool TEmfDevice::TEngine::FillWithLinear(const QPainterPath& Area, const QBrush& Brush) {
  const auto& Gradient = *static_cast<const QLinearGradient*>(Brush.gradient());
  const QTransform ToDevice = BrushToDevice(Brush);
  const QPointF Way = Gradient.finalStop() - Gradient.start();
  const double Square = QPointF::dotProduct(Way, Way);
  const QPolygonF Box = ToDevice.inverted().map(QPolygonF(Area.boundingRect() & FSeen));
  if (!(Square > 0) || !ToDevice.isAffine()) return false;
  const QPointF Across(-Way.y(), Way.x());
  constexpr double Infinity = std::numeric_limits<double>::infinity();
  double From = Infinity, To = -Infinity, Left = Infinity, Right = -Infinity;
  for (const QPointF& Corner : Box) {
    const QPointF Place = Corner - Gradient.start();
    From = std::min(From, QPointF::dotProduct(Place, Way) / Square);
    To = std::max(To, QPointF::dotProduct(Place, Way) / Square);
    Left = std::min(Left, QPointF::dotProduct(Place, Across) / Square);
    Right = std::max(Right, QPointF::dotProduct(Place, Across) / Square);
  }
  const double Length = std::sqrt(std::abs(ToDevice.determinant()) * Square);
  const auto Steps = ColorSteps(Gradient, From, To, 1 / std::max(Length, 1.0));
  if (!Steps) return false;
  const auto At = [&](double Along, double Aside) {
    return ToDevice.map(Gradient.start() + Way * Along + Across * Aside);
  };
  FRecords.SelectPen({});
  for (std::size_t Index = 0; Index < Steps->size(); ++Index) {
    const double Start = std::max(From, (*Steps)[Index].From);
    const double Stop = Index + 1 < Steps->size() ? (*Steps)[Index + 1].From : To;
    if (Stop <= From || Start >= To) continue;
    FRecords.SelectBrush((*Steps)[Index].Color);
    const std::array Strip{At(Start, Left), At(To, Left), At(To, Right), At(Start, Right)};
    FRecords.Polygon(Strip, Qt::WindingFill);
  }
  return true;
}

/// Discs of falling size, the ground behind them first.
bool TEmfDevice::TEngine::FillWithRadial(const QPainterPath& Area, const QBrush& Brush) {
  const auto& Gradient = *static_cast<const QRadialGradient*>(Brush.gradient());
  const QTransform ToDevice = BrushToDevice(Brush);
  const QPointF Center = Gradient.center();
  const QPointF Focus = Gradient.focalPoint();
  const double Radius = Gradient.centerRadius();
  const double Distance = std::hypot(Focus.x() - Center.x(), Focus.y() - Center.y());
  const bool IsPadded = Gradient.spread() == QGradient::PadSpread;
  if (!(Radius > 0) || !ToDevice.isAffine() || Gradient.focalRadius() != 0 || Distance >= Radius ||
      (Distance > 0 && !IsPadded))
    return false;
  const QRectF Box = Area.boundingRect() & FSeen;
  double To = 1;
  for (const QPointF& Corner : ToDevice.inverted().map(QPolygonF(Box)))
    To = std::max(To, std::hypot(Corner.x() - Center.x(), Corner.y() - Center.y()) / Radius);
  const double Length = std::sqrt(std::abs(ToDevice.determinant())) * Radius;
  const auto Steps = ColorSteps(Gradient, 0, IsPadded ? 1 : To, 1 / std::max(Length, 1.0));
  if (!Steps) return false;
  FRecords.SelectPen({});
  FillSolid(PathOf(Box), IsPadded ? Gradient.stops().back().second.rgb() : Steps->back().Color);
  for (std::size_t Index = Steps->size(); Index-- > 0;) {
    if (!IsPadded && Index + 1 == Steps->size()) continue;
    const double Stop = Index + 1 < Steps->size() ? (*Steps)[Index + 1].From : 1;
    QPainterPath Disc;
    Disc.addEllipse(Focus + (Center - Focus) * Stop, Radius * Stop, Radius * Stop);
    const QPainterPath Shape = ToDevice.map(Disc);
    if (!Shape.isEmpty()) FillSolid(AreaWithin(Shape, Vicinity()), (*Steps)[Index].Color);
  }
  return true;
}

/// A picture of Area's box made by Paint with a painter in pixels of the file; Scale of its own pixels make one of
/// them.
template <typename TPaint>
void TEmfDevice::TEngine::PaintPicture(const QPainterPath& Area, double Scale, const TPaint& Paint) {
  constexpr double MostPixels = 1 << 24;
  const QRectF Part = Area.boundingRect() & FSeen;
  const QRectF Whole(QPointF(std::floor(Part.left()), std::floor(Part.top())),
                     QPointF(std::ceil(Part.right()), std::ceil(Part.bottom())));
  if (!(Whole.width() > 0 && Whole.height() > 0)) return;  // nothing, or a shape far out that is no number any more
  Scale = std::min(Scale, std::sqrt(MostPixels / (Whole.width() * Whole.height())));
  const auto Extent = [Scale](double Pixels) { return std::clamp(static_cast<int>(Pixels * Scale), 1, 32767); };
  QImage Image(Extent(Whole.width()), Extent(Whole.height()), QImage::Format_ARGB32_Premultiplied);
  if (Image.isNull()) throw std::bad_alloc();
  Image.fill(0);
  QPainter Painter(&Image);
  Painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  Painter.setWorldTransform(QTransform::fromTranslate(-Whole.x(), -Whole.y()) *
                            QTransform::fromScale(Image.width() / Whole.width(), Image.height() / Whole.height()));
  Painter.setOpacity(state->opacity());
  Paint(Painter);
  Painter.end();
  PutPicture(Whole, Image, Area);
}

void TEmfDevice::TEngine::FillWithPicture(const QPainterPath& Area, const QBrush& Brush) {
  // A pattern that lies on the pixels has nothing between them.
  const bool IsPattern = Brush.style() <= Qt::DiagCrossPattern;
  const bool IsOnPixels =
      IsPattern || (Brush.style() == Qt::TexturePattern && BrushToDevice(Brush).type() <= QTransform::TxTranslate);
  PaintPicture(Area, IsOnPixels ? 1 : 2, [&](QPainter& Painter) {
    if (IsOnPixels) Painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform, false);
    const QTransform ToDevice = state->transform();
    bool IsInvertible = false;
    const QTransform FromDevice = ToDevice.inverted(&IsInvertible);
    if (!IsInvertible) return;
    Painter.setWorldTransform(ToDevice, true);
    Painter.setBrushOrigin(state->brushOrigin());
    Painter.fillPath(FromDevice.map(PathOf((Area.boundingRect() & FSeen).adjusted(-1, -1, 1, 1))), Brush);
  });
}

/// The pen for the file, unless its lines have to be drawn as areas.
std::optional<TEmfPen> TEmfDevice::TEngine::SolidPen(const QPen& Pen) const {
  const std::optional<double> Scale = EvenScale(state->transform());
  const bool IsCosmetic = Pen.isCosmetic() || Pen.widthF() <= 0;
  if (Pen.style() == Qt::NoPen || Pen.brush().style() != Qt::SolidPattern || (!IsCosmetic && !Scale) ||
      Faded(Pen.color(), state->opacity()).alpha() < 255)
    return {};
  TEmfPen Result;
  Result.Width = Pen.widthF() <= 0 ? 1 : Pen.widthF() * (IsCosmetic ? 1 : *Scale);
  if (!std::isfinite(Result.Width)) return {};
  Result.Color = Pen.color().rgb();
  Result.MiterLimit = MiterLimitOf(Pen);
  Result.Style = CapsAndJoins(Pen);
  if (Pen.style() == Qt::SolidLine) return Result;
  const QList<qreal> Pattern = Pen.dashPattern();
  const std::uint32_t Style = Pen.dashOffset() == 0 ? StyleOf(Pattern) : epsUserStyle;
  Result.Style |= Style;
  if (Style == epsUserStyle) {
    for (const qreal Dash : Pattern) Result.Dashes.push_back(Dash * Result.Width);
  }
  return Result;
}

void TEmfDevice::TEngine::Stroke(const QPainterPath& Path, const QPen& Pen) {
  if (Pen.style() == Qt::NoPen || Path.elementCount() < 2) return;
  std::optional<TEmfPen> Line = SolidPen(Pen);
  if (!Line) return StrokeAsArea(Path, Pen);
  const QPainterPath Outline = OutlineWithin(state->transform().map(Path), Vicinity());
  if (Outline.elementCount() < 2) return;
  if (!Line->Dashes.empty()) {
    // Not every reader draws such pens with dashes; lines all of them draw.
    if (const std::optional<QPainterPath> Dashes = Dashed(Outline, Line->Dashes, Pen.dashOffset() * Line->Width)) {
      Line->Style &= ~static_cast<std::uint32_t>(epsUserStyle);
      Line->Dashes.clear();
      FRecords.SelectPen(Line);
      return FRecords.StrokePath(*Dashes);
    }
  }
  FRecords.SelectPen(Line);
  std::vector<QPointF> Points = AsLines(Outline);
  if (Points.size() < 2 || (Points.size() > 3 && Coincide(Points.front(), Points.back())))
    return FRecords.StrokePath(Outline);
  // A line without length is a dot; readers leave it out unless it has some.
  if (Outline.boundingRect().isNull()) Points.back().rx() += 1.0 / 16;
  FRecords.Polyline(Points);
}

void TEmfDevice::TEngine::StrokeAsArea(const QPainterPath& Path, const QPen& Pen) {
  if (Pen.brush().style() == Qt::SolidPattern && Pen.color().alpha() == 0) return;
  const bool IsCosmetic = Pen.isCosmetic() || Pen.widthF() <= 0;
  const QTransform ToDevice = state->transform();
  QPainterPathStroker Stroker(Pen);
  Stroker.setWidth(Pen.widthF() <= 0 ? 1 : Pen.widthF());
  QPainterPath Area;
  if (IsCosmetic) {
    Area = Stroker.createStroke(OutlineWithin(ToDevice.map(Path), Vicinity()));
  } else {
    bool IsInvertible = false;
    const QTransform FromDevice = ToDevice.inverted(&IsInvertible);
    if (!IsInvertible) return;
    const double Scale = std::sqrt(std::abs(ToDevice.determinant()));
    Stroker.setCurveThreshold(0.25 / std::max(Scale, 1e-6));
    Area = ToDevice.map(Stroker.createStroke(OutlineWithin(Path, FromDevice.mapRect(Vicinity()))));
  }
  Area.setFillRule(Qt::WindingFill);
  Area = WithoutOverlaps(AreaWithin(Area, Vicinity()));
  Fill(Area, Resolved(Pen.brush(), Path.boundingRect()));
}

void TEmfDevice::TEngine::drawPixmap(const QRectF& Place, const QPixmap& Image, const QRectF& Part) {
  if (!Image.isQBitmap()) return drawImage(Place, Image.toImage(), Part, Qt::AutoColor);
  QImage Colored(Image.size(), QImage::Format_ARGB32_Premultiplied);
  Colored.fill(0);
  QPainter Painter(&Colored);
  Painter.setPen(state->pen());
  Painter.drawPixmap(0, 0, Image);
  Painter.end();
  drawImage(Place, Colored, Part, Qt::AutoColor);
}

void TEmfDevice::TEngine::drawImage(const QRectF& Place, const QImage& Image, const QRectF& Part,
                                    Qt::ImageConversionFlags) {
  const QTransform ToDevice = state->transform();
  const QRectF Target = ToDevice.mapRect(Place);
  if (Image.isNull() || !Prepare() || !Target.intersects(FSeen)) return;
  const QRect Whole = Part.toRect();
  const bool IsUpright = ToDevice.type() <= QTransform::TxScale && ToDevice.m11() > 0 && ToDevice.m22() > 0;
  if (IsUpright && state->opacity() >= 1 && QRectF(Whole) == Part && Image.rect().contains(Whole) &&
      Vicinity().contains(Target)) {
    PutPicture(Target, Whole == Image.rect() ? Image : Image.copy(Whole), PathOf(Target));
    return;
  }
  PaintPicture(PathOf(Target), 2, [&](QPainter& Painter) {
    Painter.setWorldTransform(ToDevice, true);
    Painter.drawImage(Place, Image, Part);
  });
}

void TEmfDevice::TEngine::drawTiledPixmap(const QRectF& Place, const QPixmap& Image, const QPointF& Offset) {
  if (Image.isNull() || !Prepare()) return;
  QBrush Brush(Image);
  Brush.setTransform(QTransform::fromTranslate(Place.x() - Offset.x(), Place.y() - Offset.y()));
  Fill(AreaWithin(state->transform().map(PathOf(Place)), Vicinity()), Brush);
}

/// The toolkit hands out a text of several fonts in parts but tells the whole text with each of them.
bool TEmfDevice::TEngine::IsRestOfText(const QPointF& BaseLine, const QTextItem& Item) {
  if (!FTextInParts || FTextInParts->Text != Item.text()) return false;
  const bool IsRightToLeft = Item.renderFlags() & QTextItem::RightToLeft;
  const QPointF Expected = FTextInParts->Next - QPointF(IsRightToLeft ? Item.width() : 0, 0);
  if ((BaseLine - Expected).manhattanLength() > 0.1) return false;
  if (!IsRightToLeft) FTextInParts->Next.rx() += Item.width();
  if (IsRightToLeft) FTextInParts->Next.rx() -= Item.width();
  FTextInParts->Left -= Item.width();
  if (FTextInParts->Left < 0.5) FTextInParts.reset();
  return true;
}

bool TEmfDevice::TEngine::CanStayText(const QTextItem& Item) const {
  const QTransform ToDevice = state->transform();
  const QFont Font = Item.font();
  const QPen Pen = state->pen();
  return !Item.text().isEmpty() && EvenScale(ToDevice) && ToDevice.determinant() > 0 &&
         Pen.brush().style() == Qt::SolidPattern && Faded(Pen.color(), state->opacity()).alpha() == 255 &&
         Font.capitalization() == QFont::MixedCase && (Font.stretch() == 0 || Font.stretch() == QFont::Unstretched);
}

void TEmfDevice::TEngine::drawTextItem(const QPointF& BaseLine, const QTextItem& Item) {
  if (IsRestOfText(BaseLine, Item)) return;
  if (!Prepare() || state->pen().style() == Qt::NoPen) return;
  const QTransform ToDevice = state->transform();
  const QPointF Place = ToDevice.map(BaseLine);
  if (!Vicinity().contains(Place)) return;
  if (!CanStayText(Item)) return QPaintEngine::drawTextItem(BaseLine, Item);

  const QString Text = Item.text();
  QTextLayout Layout(Text, Item.font(), paintDevice());
  Layout.beginLayout();
  const QTextLine Line = Layout.createLine();
  Layout.endLayout();
  const double Width = Line.naturalTextWidth();
  const bool IsPart = Item.width() < Width - 0.5;
  const bool IsRightToLeft = Item.renderFlags() & QTextItem::RightToLeft;
  const double Scale = *EvenScale(ToDevice);
  // A justified line is wider than its text.
  const double Stretch = IsPart || !(Width > 0) ? Scale : Scale * Item.width() / Width;
  std::vector<double> Ends;
  for (int Unit = 1; Unit <= Text.size(); ++Unit) {
    const double End = std::abs(Line.cursorToX(Unit) - Line.cursorToX(0)) * Stretch;
    Ends.push_back(Ends.empty() ? End : std::max(End, Ends.back()));
  }
  const QPointF Start = IsPart && IsRightToLeft ? BaseLine + QPointF(Item.width() - Width, 0) : BaseLine;

  const QFont Font = Item.font();
  TEmfFont Face;
  Face.Family = Font.family();
  Face.Size = Scale * (Font.pixelSize() > 0 ? Font.pixelSize() : Font.pointSizeF() * FDotsPerInch / 72);
  Face.Angle = -std::atan2(ToDevice.m12(), ToDevice.m11()) * 180 / M_PI;
  Face.Weight = Font.weight();
  Face.Italic = Font.style() != QFont::StyleNormal;
  FRecords.SelectFont(Face);
  FRecords.SetTextColor(state->pen().color().rgb());
  FRecords.Text(ToDevice.map(Start), Text, Ends);
  if (!IsPart) return;
  FTextInParts = {Text, BaseLine + QPointF(IsRightToLeft ? 0 : Item.width(), 0), Width - Item.width()};
}

TEmfDevice::TEmfDevice(QSizeF Pixels, double DotsPerInch) : FPixels(Pixels), FDotsPerInch(DotsPerInch) {
  constexpr double LargestExtent = 1'000'000;
  const auto IsUsable = [](double Extent) { return Extent > 0 && Extent <= LargestExtent; };
  if (!IsUsable(Pixels.width()) || !IsUsable(Pixels.height())) throw ERangeError(LoadResString(_sRecordingSize));
  if (!(DotsPerInch >= 1 && DotsPerInch <= 10'000)) throw ERangeError(LoadResString(_sResolution));
  FEngine = std::make_unique<TEngine>(Pixels, DotsPerInch);
}

TEmfDevice::~TEmfDevice() = default;

std::vector<std::byte> TEmfDevice::Bytes() const { return FEngine->Records().File(); }

void TEmfDevice::Save(TStream& Target) const {
  const std::vector<std::byte> File = Bytes();
  Target.WriteBuffer(File.data(), File.size());
}

QPaintEngine* TEmfDevice::paintEngine() const { return FEngine.get(); }

int TEmfDevice::metric(PaintDeviceMetric Metric) const {
  const auto Millimetres = [this](double Extent) {
    return static_cast<int>(std::lround(Extent / FDotsPerInch * 25.4));
  };
  switch (Metric) {
    case PdmWidth:
      return static_cast<int>(std::ceil(FPixels.width()));
    case PdmHeight:
      return static_cast<int>(std::ceil(FPixels.height()));
    case PdmWidthMM:
      return Millimetres(FPixels.width());
    case PdmHeightMM:
      return Millimetres(FPixels.height());
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
      return static_cast<int>(std::lround(FDotsPerInch));
    case PdmDevicePixelRatio:
      return 1;
    case PdmDepth:
      return 32;
    case PdmNumColors:
      return std::numeric_limits<int>::max();
    default:
      return QPaintDevice::metric(Metric);
  }
}

}  // namespace zy
