#include "platform/drawing/EmfRecords.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include "platform/drawing/EmfGeometry.h"

namespace zy {
namespace {

// [MS-EMF], section 2.1.1.
enum TRecordType : std::uint32_t {
  EMR_HEADER = 1,
  EMR_POLYGON = 3,
  EMR_POLYLINE = 4,
  EMR_POLYBEZIERTO = 5,
  EMR_POLYLINETO = 6,
  EMR_SETWINDOWEXTEX = 9,
  EMR_SETWINDOWORGEX = 10,
  EMR_SETVIEWPORTEXTEX = 11,
  EMR_SETVIEWPORTORGEX = 12,
  EMR_EOF = 14,
  EMR_SETMAPMODE = 17,
  EMR_SETBKMODE = 18,
  EMR_SETPOLYFILLMODE = 19,
  EMR_SETSTRETCHBLTMODE = 21,
  EMR_SETTEXTALIGN = 22,
  EMR_SETTEXTCOLOR = 24,
  EMR_MOVETOEX = 27,
  EMR_INTERSECTCLIPRECT = 30,
  EMR_SAVEDC = 33,
  EMR_RESTOREDC = 34,
  EMR_SELECTOBJECT = 37,
  EMR_CREATEBRUSHINDIRECT = 39,
  EMR_DELETEOBJECT = 40,
  EMR_SETMITERLIMIT = 58,
  EMR_BEGINPATH = 59,
  EMR_ENDPATH = 60,
  EMR_CLOSEFIGURE = 61,
  EMR_FILLPATH = 62,
  EMR_STROKEANDFILLPATH = 63,
  EMR_STROKEPATH = 64,
  EMR_SELECTCLIPPATH = 67,
  EMR_COMMENT = 70,
  EMR_STRETCHDIBITS = 81,
  EMR_EXTCREATEFONTINDIRECTW = 82,
  EMR_EXTTEXTOUTW = 84,
  EMR_EXTCREATEPEN = 95,
  EMR_ALPHABLEND = 114,
};

// Objects that need not be made; [MS-EMF], section 2.1.31.
constexpr std::uint32_t NullBrush = 0x80000005;
constexpr std::uint32_t NullPen = 0x80000008;
constexpr std::uint32_t SystemFont = 0x8000000D;

constexpr std::int32_t UnitsPerPixel = 16;
constexpr std::uint32_t MapModeAnisotropic = 8;
constexpr std::uint32_t BackgroundTransparent = 1;
constexpr std::uint32_t AlignBaseline = 24;
constexpr std::uint32_t StretchColorOnColor = 3;
constexpr std::uint32_t FillAlternate = 1;
constexpr std::uint32_t FillWinding = 2;
constexpr std::uint32_t ClipAnd = 1;
constexpr std::uint32_t GraphicsModeAdvanced = 2;
constexpr std::uint32_t CopySource = 0x00CC0020;
constexpr std::uint32_t BitmapHeaderSize = 40;

// Points in a record. Longer lines are continued by the next record of a path.
constexpr std::size_t MostPoints = 16383;  // divides by three, for curves
// Objects that are kept before all are deleted and made anew; the header has 16 bits for their number.
constexpr std::size_t MostObjects = 1000;

std::int32_t Fixed(double Value) {
  if (std::isnan(Value)) return 0;
  return static_cast<std::int32_t>(
      std::lround(std::clamp(Value * UnitsPerPixel, -TEmfRecords::LargestCoordinate, TEmfRecords::LargestCoordinate)));
}

/// 0x00BBGGRR.
std::uint32_t ColorRef(QRgb Color) {
  return static_cast<std::uint32_t>(qRed(Color) | qGreen(Color) << 8 | qBlue(Color) << 16);
}

QRectF BoundsOf(std::span<const QPointF> Points) {
  if (Points.empty()) return {};
  QPointF Least = Points.front();
  QPointF Most = Least;
  for (const QPointF& Point : Points) {
    Least = {std::min(Least.x(), Point.x()), std::min(Least.y(), Point.y())};
    Most = {std::max(Most.x(), Point.x()), std::max(Most.y(), Point.y())};
  }
  return {Least, Most};
}

/// The bytes of a look, which are those of its record and its key at once.
class TLook {
 public:
  template <typename T>
  TLook& Add(T Value) {
    static_assert(std::endian::native == std::endian::little, "Records are little-endian");
    char Bytes[sizeof(T)];
    std::memcpy(Bytes, &Value, sizeof(T));
    FBytes.append(Bytes, sizeof(T));
    return *this;
  }
  TLook& AddZeros(std::size_t Count) {
    FBytes.append(Count, '\0');
    return *this;
  }
  const std::string& Bytes() const { return FBytes; }

 private:
  std::string FBytes;
};

bool IsOpaque(const QImage& Picture) {
  if (!Picture.hasAlphaChannel()) return true;
  const QImage Pixels = Picture.convertToFormat(QImage::Format_ARGB32);
  for (int Row = 0; Row < Pixels.height(); ++Row) {
    const auto* Line = reinterpret_cast<const QRgb*>(Pixels.constScanLine(Row));
    if (std::any_of(Line, Line + Pixels.width(), [](QRgb Pixel) { return qAlpha(Pixel) != 255; })) return false;
  }
  return true;
}

/// A picture in the smallest depth that holds its colours: 1 or 8 bits into a table, or 24 bits.
struct TDib {
  int BitCount = 24;
  std::vector<QRgb> Colors{};
  std::vector<std::byte> Rows{};  // the lowest first, each padded to four bytes
};

std::size_t RowSize(int Width, int BitCount) {
  return (static_cast<std::size_t>(Width) * static_cast<std::size_t>(BitCount) + 31) / 32 * 4;
}

/// The colours of a picture, or none when there are more than a table holds.
std::unordered_map<QRgb, std::uint8_t> ColorTable(const QImage& Pixels) {
  std::unordered_map<QRgb, std::uint8_t> Table;
  QRgb Last = 0;
  for (int Row = 0; Row < Pixels.height(); ++Row) {
    const auto* Line = reinterpret_cast<const QRgb*>(Pixels.constScanLine(Row));
    for (int Column = 0; Column < Pixels.width(); ++Column) {
      if (!Table.empty() && Line[Column] == Last) continue;
      Last = Line[Column];
      if (Table.size() == 256 && !Table.contains(Last)) return {};
      Table.try_emplace(Last, static_cast<std::uint8_t>(Table.size()));
    }
  }
  return Table;
}

TDib OpaqueDib(const QImage& Picture) {
  const QImage Pixels = Picture.convertToFormat(QImage::Format_RGB32);
  const auto Table = ColorTable(Pixels);
  TDib Result;
  Result.BitCount = Table.empty() ? 24 : Table.size() <= 2 ? 1 : 8;
  Result.Colors.resize(Table.size());
  for (const auto& [Color, Index] : Table) Result.Colors[Index] = Color;
  const std::size_t Stride = RowSize(Pixels.width(), Result.BitCount);
  Result.Rows.resize(Stride * static_cast<std::size_t>(Pixels.height()));
  std::byte* Target = Result.Rows.data();
  for (int Row = Pixels.height() - 1; Row >= 0; --Row, Target += Stride) {
    const auto* Line = reinterpret_cast<const QRgb*>(Pixels.constScanLine(Row));
    for (std::size_t Column = 0; Column < static_cast<std::size_t>(Pixels.width()); ++Column) {
      const QRgb Color = Line[Column];
      if (Result.BitCount == 24) {
        Target[3 * Column] = static_cast<std::byte>(qBlue(Color));
        Target[3 * Column + 1] = static_cast<std::byte>(qGreen(Color));
        Target[3 * Column + 2] = static_cast<std::byte>(qRed(Color));
      } else if (Result.BitCount == 8) {
        Target[Column] = static_cast<std::byte>(Table.at(Color));
      } else if (Table.at(Color) != 0) {
        Target[Column / 8] |= static_cast<std::byte>(0x80 >> Column % 8);
      }
    }
  }
  return Result;
}

}  // namespace

template <typename T>
void TEmfRecords::Put(T Value) {
  static_assert(std::endian::native == std::endian::little, "Records are little-endian");
  const std::size_t Place = FBytes.size();
  FBytes.resize(Place + sizeof(T));
  std::memcpy(FBytes.data() + Place, &Value, sizeof(T));
}

/// As whole pixels, the last ones included.
void TEmfRecords::Put(const QRectF& Bounds) {
  for (const double Edge : {Bounds.left(), Bounds.top()}) Put(Fixed(std::floor(Edge)) / UnitsPerPixel);
  for (const double Edge : {Bounds.right(), Bounds.bottom()}) Put(Fixed(std::ceil(Edge)) / UnitsPerPixel);
}

void TEmfRecords::Put(const QPointF& Point) {
  Put(Fixed(Point.x()));
  Put(Fixed(Point.y()));
}

void TEmfRecords::Begin(std::uint32_t Type) {
  FRecordStart = FBytes.size();
  ++FRecordCount;
  Put(Type);
  Put(std::uint32_t{0});
}

void TEmfRecords::End() {
  FBytes.resize((FBytes.size() + 3) / 4 * 4);
  const auto Size = static_cast<std::uint32_t>(FBytes.size() - FRecordStart);
  std::memcpy(FBytes.data() + FRecordStart + 4, &Size, sizeof Size);
}

void TEmfRecords::PutEmpty(std::uint32_t Type) {
  Begin(Type);
  End();
}

void TEmfRecords::PutOne(std::uint32_t Type, std::uint32_t Value) {
  Begin(Type);
  Put(Value);
  End();
}

void TEmfRecords::PutPair(std::uint32_t Type, std::int32_t First, std::int32_t Second) {
  Begin(Type);
  Put(First);
  Put(Second);
  End();
}

void TEmfRecords::PutPoints(std::uint32_t Type, std::span<const QPointF> Points) {
  Begin(Type);
  Put(BoundsOf(Points));
  Put(static_cast<std::uint32_t>(Points.size()));
  for (const QPointF& Point : Points) Put(Point);
  End();
}

TEmfRecords::TEmfRecords(QSizeF Pixels, double DotsPerInch) : FPixels(Pixels), FDotsPerInch(DotsPerInch) {
  PutHeader();
  const auto Width = static_cast<std::int32_t>(std::ceil(Pixels.width()));
  const auto Height = static_cast<std::int32_t>(std::ceil(Pixels.height()));
  PutOne(EMR_SETMAPMODE, MapModeAnisotropic);
  PutPair(EMR_SETWINDOWORGEX, 0, 0);
  PutPair(EMR_SETWINDOWEXTEX, Width * UnitsPerPixel, Height * UnitsPerPixel);
  PutPair(EMR_SETVIEWPORTORGEX, 0, 0);
  PutPair(EMR_SETVIEWPORTEXTEX, Width, Height);
  PutOne(EMR_SETBKMODE, BackgroundTransparent);
  PutOne(EMR_SETTEXTALIGN, AlignBaseline);
  PutOne(EMR_SETSTRETCHBLTMODE, StretchColorOnColor);
  PutOne(EMR_SETPOLYFILLMODE, FillAlternate);
  PutOne(EMR_SETTEXTCOLOR, 0);
  PutOne(EMR_SELECTOBJECT, NullPen);
  PutOne(EMR_SELECTOBJECT, NullBrush);
  FStates.push_back({NullPen, NullBrush, SystemFont, FillAlternate, 0xFF000000, 10});
  BeginLevel();
}

/// The counts stay open until Finish. A hundred inches stand for the device, so that whole numbers of dots per inch are
/// exact: pixels of the file and of the device are the same.
void TEmfRecords::PutHeader() {
  constexpr std::int32_t DeviceInches = 100;
  constexpr double Tenths = 25.4;  // millimetres in an inch
  const auto DevicePixels = static_cast<std::int32_t>(std::lround(DeviceInches * FDotsPerInch));
  const auto Last = [](double Extent) { return std::max(0, static_cast<std::int32_t>(std::ceil(Extent)) - 1); };
  const auto Hundredths = [this](double Extent) {
    return static_cast<std::int32_t>(std::lround(std::min(Extent / FDotsPerInch * Tenths * 100, 2e9)));
  };
  Begin(EMR_HEADER);
  for (const std::int32_t Edge : {0, 0, Last(FPixels.width()), Last(FPixels.height())}) Put(Edge);
  for (const std::int32_t Edge : {0, 0, Hundredths(FPixels.width()), Hundredths(FPixels.height())}) Put(Edge);
  Put(std::uint32_t{0x464D4520});  // " EMF"
  Put(std::uint32_t{0x00010000});
  Put(std::uint32_t{0});                                                // bytes
  Put(std::uint32_t{0});                                                // records
  Put(std::uint16_t{0});                                                // handles
  Put(std::uint16_t{0});                                                // reserved
  for (int Nothing = 0; Nothing < 3; ++Nothing) Put(std::uint32_t{0});  // description and palette
  Put(DevicePixels);
  Put(DevicePixels);
  for (int Axis = 0; Axis < 2; ++Axis) Put(static_cast<std::int32_t>(DeviceInches * Tenths));
  for (int Nothing = 0; Nothing < 3; ++Nothing) Put(std::uint32_t{0});  // pixel format
  for (int Axis = 0; Axis < 2; ++Axis) Put(static_cast<std::int32_t>(DeviceInches * Tenths * 1000));
  End();
}

void TEmfRecords::StartClips() {
  while (FStates.size() > 1) EndLevel();
  BeginLevel();
}

void TEmfRecords::BeginShape() {
  // Below the first level an outer one may still hold what would be deleted.
  if (FObjects.size() >= MostObjects && FStates.size() <= 2) ForgetObjects();
}

void TEmfRecords::BeginLevel() {
  PutEmpty(EMR_SAVEDC);
  FStates.push_back(FStates.back());
}

void TEmfRecords::EndLevel() {
  constexpr auto Latest = static_cast<std::uint32_t>(-1);
  PutOne(EMR_RESTOREDC, Latest);
  FStates.pop_back();
}

void TEmfRecords::ClipToRect(const QRectF& Rect) {
  Begin(EMR_INTERSECTCLIPRECT);
  Put(Rect.topLeft());
  Put(Rect.bottomRight());
  End();
}

void TEmfRecords::ClipToPath(const QPainterPath& Path) {
  SetFillMode(Path.fillRule());
  PutPath(Path);
  PutOne(EMR_SELECTCLIPPATH, ClipAnd);
}

void TEmfRecords::Select(std::uint32_t& Selected, std::uint32_t Handle) {
  if (Selected == Handle) return;
  PutOne(EMR_SELECTOBJECT, Handle);
  Selected = Handle;
}

/// The handle of an object, which is made unless there is one of this look. Look is the record behind the handle.
std::uint32_t TEmfRecords::Object(std::uint32_t Type, const std::string& Look) {
  const std::string Key = std::to_string(Type) + Look;
  if (const auto Known = FObjects.find(Key); Known != FObjects.end()) return Known->second;
  const auto Handle = static_cast<std::uint32_t>(FObjects.size() + 1);
  FObjects.emplace(Key, Handle);
  FMostObjects = std::max(FMostObjects, Handle);
  Begin(Type);
  Put(Handle);
  for (const char Byte : Look) Put(Byte);
  End();
  return Handle;
}

void TEmfRecords::ForgetObjects() {
  Select(FStates.back().Pen, NullPen);
  Select(FStates.back().Brush, NullBrush);
  Select(FStates.back().Font, SystemFont);
  for (std::uint32_t Handle = 1; Handle <= FObjects.size(); ++Handle) PutOne(EMR_DELETEOBJECT, Handle);
  FObjects.clear();
}

void TEmfRecords::SelectPen(const std::optional<TEmfPen>& Pen) {
  if (!Pen) return Select(FStates.back().Pen, NullPen);
  constexpr std::uint32_t BrushSolid = 0;
  const auto Units = [](double Length) { return static_cast<std::uint32_t>(std::max(1, Fixed(Length))); };
  TLook Look;
  for (int Nothing = 0; Nothing < 4; ++Nothing) Look.Add(std::uint32_t{0});  // no pattern
  Look.Add(Pen->Style | epsGeometric).Add(Units(Pen->Width)).Add(BrushSolid).Add(ColorRef(Pen->Color));
  Look.Add(std::uint32_t{0}).Add(static_cast<std::uint32_t>(Pen->Dashes.size()));
  for (const double Dash : Pen->Dashes) Look.Add(Units(Dash));
  const std::uint32_t Handle = Object(EMR_EXTCREATEPEN, Look.Bytes());
  Select(FStates.back().Pen, Handle);
  const auto Limit = static_cast<std::uint32_t>(std::lround(std::clamp(Pen->MiterLimit, 1.0, 1e6)));
  if ((Pen->Style & epsJoinMiter) == 0 || Limit == FStates.back().MiterLimit) return;
  FStates.back().MiterLimit = Limit;
  PutOne(EMR_SETMITERLIMIT, Limit);
}

void TEmfRecords::SelectBrush(std::optional<QRgb> Color) {
  if (!Color) return Select(FStates.back().Brush, NullBrush);
  const std::uint32_t Handle = Object(
      EMR_CREATEBRUSHINDIRECT, TLook().Add(std::uint32_t{0}).Add(ColorRef(*Color)).Add(std::uint32_t{0}).Bytes());
  Select(FStates.back().Brush, Handle);
}

void TEmfRecords::SelectFont(const TEmfFont& Font) {
  constexpr std::uint8_t DefaultCharset = 1;
  constexpr qsizetype LongestFamily = 31;
  constexpr std::size_t NamesAndPanose = 320 - 92;  // LogFontPanose behind its LogFont
  int Escapement = static_cast<int>(std::lround(Font.Angle * 10)) % 3600;
  if (Escapement < 0) Escapement += 3600;
  TLook Look;
  // A negative height is that of the em, without the room above.
  Look.Add(std::min(-1, -Fixed(Font.Size))).Add(0).Add(Escapement).Add(Escapement).Add(Font.Weight);
  Look.Add(static_cast<std::uint8_t>(Font.Italic)).AddZeros(2).Add(DefaultCharset).AddZeros(4);
  const QString Family = Font.Family.left(LongestFamily);
  for (const QChar Unit : Family) Look.Add(Unit.unicode());
  Look.AddZeros(2 * static_cast<std::size_t>(LongestFamily + 1 - Family.size()) + NamesAndPanose);
  const std::uint32_t Handle = Object(EMR_EXTCREATEFONTINDIRECTW, Look.Bytes());
  Select(FStates.back().Font, Handle);
}

void TEmfRecords::SetTextColor(QRgb Color) {
  if (FStates.back().TextColor == Color) return;
  FStates.back().TextColor = Color;
  PutOne(EMR_SETTEXTCOLOR, ColorRef(Color));
}

void TEmfRecords::SetFillMode(Qt::FillRule Rule) {
  const std::uint32_t Mode = Rule == Qt::WindingFill ? FillWinding : FillAlternate;
  if (FStates.back().FillMode == Mode) return;
  FStates.back().FillMode = Mode;
  PutOne(EMR_SETPOLYFILLMODE, Mode);
}

void TEmfRecords::Polyline(std::span<const QPointF> Points) {
  if (Points.size() <= MostPoints) return PutPoints(EMR_POLYLINE, Points);
  QPainterPath Path(Points.front());
  for (const QPointF& Point : Points.subspan(1)) Path.lineTo(Point);
  StrokePath(Path);
}

void TEmfRecords::Polygon(std::span<const QPointF> Points, Qt::FillRule Rule) {
  if (Points.size() > MostPoints) {
    QPainterPath Path(Points.front());
    for (const QPointF& Point : Points.subspan(1)) Path.lineTo(Point);
    Path.closeSubpath();
    Path.setFillRule(Rule);
    return StrokeAndFillPath(Path);
  }
  SetFillMode(Rule);
  PutPoints(EMR_POLYGON, Points);
}

void TEmfRecords::FillPath(const QPainterPath& Path) {
  SetFillMode(Path.fillRule());
  PutPath(Path);
  Begin(EMR_FILLPATH);
  Put(Path.controlPointRect());
  End();
}

void TEmfRecords::StrokePath(const QPainterPath& Path) {
  PutPath(Path);
  Begin(EMR_STROKEPATH);
  Put(Path.controlPointRect());
  End();
}

void TEmfRecords::StrokeAndFillPath(const QPainterPath& Path) {
  SetFillMode(Path.fillRule());
  PutPath(Path);
  Begin(EMR_STROKEANDFILLPATH);
  Put(Path.controlPointRect());
  End();
}

void TEmfRecords::PutPath(const QPainterPath& Path) {
  PutEmpty(EMR_BEGINPATH);
  std::vector<QPainterPath::Element> Figure;
  for (int Index = 0; Index < Path.elementCount(); ++Index) {
    const QPainterPath::Element Element = Path.elementAt(Index);
    if (Element.isMoveTo()) {
      PutFigure(Figure);
      Figure.clear();
    }
    Figure.push_back(Element);
  }
  PutFigure(Figure);
  PutEmpty(EMR_ENDPATH);
}

/// A figure that comes back to its start is closed, so that its ends are joined.
void TEmfRecords::PutFigure(std::span<const QPainterPath::Element> Figure) {
  if (Figure.size() < 2) return;
  const bool IsClosed = Figure.size() > 2 && Coincide(Figure.front(), Figure.back());
  const bool IsLastImplied = IsClosed && Figure.back().isLineTo();
  if (IsLastImplied) Figure = Figure.first(Figure.size() - 1);
  PutPair(EMR_MOVETOEX, Fixed(Figure[0].x), Fixed(Figure[0].y));
  std::vector<QPointF> Run;
  for (std::size_t Index = 1; Index < Figure.size(); ++Index) {
    Run.push_back(Figure[Index]);
    const bool IsCurve = !Figure[Index].isLineTo();
    const bool IsRunOver =
        Index + 1 == Figure.size() || Run.size() == MostPoints ||
        (IsCurve ? !Figure[Index + 1].isCurveTo() && Figure[Index + 1].type != QPainterPath::CurveToDataElement
                 : !Figure[Index + 1].isLineTo());
    if (!IsRunOver) continue;
    PutPoints(IsCurve ? EMR_POLYBEZIERTO : EMR_POLYLINETO, Run);
    Run.clear();
  }
  if (IsClosed) PutEmpty(EMR_CLOSEFIGURE);
}

void TEmfRecords::Picture(const QRectF& Place, const QImage& Picture) {
  if (Picture.isNull()) return;
  if (IsOpaque(Picture)) {
    PutCopied(Place, Picture);
  } else {
    PutBlended(Place, Picture);
  }
}

void TEmfRecords::PutCopied(const QRectF& Place, const QImage& Picture) {
  constexpr std::uint32_t FixedSize = 80;
  const TDib Dib = OpaqueDib(Picture);
  const auto Colors = static_cast<std::uint32_t>(Dib.Colors.size());
  const auto ByteCount = static_cast<std::uint32_t>(Dib.Rows.size());
  const std::uint32_t InfoSize = BitmapHeaderSize + 4 * Colors;
  Begin(EMR_STRETCHDIBITS);
  Put(Place);
  Put(Place.topLeft());
  for (const std::int32_t Source : {0, 0, Picture.width(), Picture.height()}) Put(Source);
  for (const std::uint32_t Part : {FixedSize, InfoSize, FixedSize + InfoSize, ByteCount, 0u, CopySource}) Put(Part);
  Put(QPointF(Place.width(), Place.height()));
  Put(BitmapHeaderSize);
  Put(std::int32_t{Picture.width()});
  Put(std::int32_t{Picture.height()});
  Put(std::uint16_t{1});
  Put(static_cast<std::uint16_t>(Dib.BitCount));
  for (const std::uint32_t Part : {0u, ByteCount, 0u, 0u, Colors, 0u}) Put(Part);
  for (const QRgb Color : Dib.Colors) Put(Color & 0x00FFFFFF);
  FBytes.insert(FBytes.end(), Dib.Rows.begin(), Dib.Rows.end());
  End();
}

void TEmfRecords::PutBlended(const QRectF& Place, const QImage& Picture) {
  constexpr std::uint32_t FixedSize = 108;
  constexpr std::uint32_t BlendWithPixelAlpha = 0x01FF0000;  // over, no flags, 255 for all pixels, alpha of each pixel
  const QImage Pixels = Picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  const std::size_t Stride = RowSize(Pixels.width(), 32);
  const auto ByteCount = static_cast<std::uint32_t>(Stride * static_cast<std::size_t>(Pixels.height()));
  Begin(EMR_ALPHABLEND);
  Put(Place);
  Put(Place.topLeft());
  Put(QPointF(Place.width(), Place.height()));
  Put(BlendWithPixelAlpha);
  for (const std::int32_t Source : {0, 0}) Put(Source);
  for (const float Element : {1.0f, 0.0f, 0.0f, 1.0f, 0.0f, 0.0f}) Put(Element);
  for (const std::uint32_t Part : {0u, 0u, FixedSize, BitmapHeaderSize, FixedSize + BitmapHeaderSize, ByteCount})
    Put(Part);
  Put(std::int32_t{Pixels.width()});
  Put(std::int32_t{Pixels.height()});
  Put(BitmapHeaderSize);
  Put(std::int32_t{Pixels.width()});
  Put(std::int32_t{Pixels.height()});
  Put(std::uint16_t{1});
  Put(std::uint16_t{32});
  for (const std::uint32_t Part : {0u, ByteCount, 0u, 0u, 0u, 0u}) Put(Part);
  for (int Row = Pixels.height() - 1; Row >= 0; --Row) {
    const auto* Line = reinterpret_cast<const std::byte*>(Pixels.constScanLine(Row));
    FBytes.insert(FBytes.end(), Line, Line + Stride);
  }
  End();
}

void TEmfRecords::Text(const QPointF& BaseLine, const QString& Text, std::span<const double> Ends) {
  constexpr std::uint32_t FixedSize = 76;
  const auto Count = static_cast<std::uint32_t>(Text.size());
  Begin(EMR_EXTTEXTOUTW);
  Put(QRectF(0, 0, FPixels.width(), FPixels.height()));
  Put(GraphicsModeAdvanced);
  for (int Axis = 0; Axis < 2; ++Axis) Put(1.0f);  // counts in the other mode only
  Put(BaseLine);
  Put(Count);
  Put(FixedSize);
  Put(std::uint32_t{0});
  for (const std::int32_t Edge : {0, 0, -1, -1}) Put(Edge);
  Put(FixedSize + (2 * Count + 3) / 4 * 4);
  for (const QChar Unit : Text) Put(Unit.unicode());
  if (Count % 2 != 0) Put(std::uint16_t{0});
  // Differences of rounded places: what is rounded off does not add up along the line.
  std::int32_t Before = 0;
  for (const double Place : Ends) {
    Put(Fixed(Place) - Before);
    Before = Fixed(Place);
  }
  End();
}

void TEmfRecords::PutComment(const TEmfPlus& Drawing) {
  constexpr std::uint32_t Language = 0x2B464D45;  // "EMF+"
  Begin(EMR_COMMENT);
  Put(static_cast<std::uint32_t>(sizeof Language + Drawing.Bytes().size()));
  Put(Language);
  FBytes.insert(FBytes.end(), Drawing.Bytes().begin(), Drawing.Bytes().end());
  End();
}

void TEmfRecords::BeginAlternative(const TEmfPlus& Drawing) {
  FHasAlternatives = true;
  PutComment(Drawing);
}

/// Some readers draw alternatives with the pen and brush of the records, and do not select anew what was selected
/// before: a shape that nobody sees, without either, makes them do so for the next one.
void TEmfRecords::EndAlternative() {
  PutComment(TEmfPlus::ThenRecords());
  SelectPen({});
  SelectBrush({});
  PutPoints(EMR_POLYGON, std::array<QPointF, 3>());
}

/// A file with alternatives has to say so in the first record behind the header.
void TEmfRecords::PutOpening() {
  std::uint32_t HeaderSize = 0;
  std::memcpy(&HeaderSize, FBytes.data() + 4, sizeof HeaderSize);
  const auto Record = static_cast<std::ptrdiff_t>(FBytes.size());
  PutComment(TEmfPlus::Opening(FDotsPerInch));
  std::rotate(FBytes.begin() + HeaderSize, FBytes.begin() + Record, FBytes.end());
}

void TEmfRecords::Finish() {
  constexpr std::size_t PlaceOfCounts = 48;
  constexpr std::uint32_t EofSize = 20;
  while (FStates.size() > 1) EndLevel();
  ForgetObjects();
  if (FHasAlternatives) {
    PutOpening();
    PutComment(TEmfPlus::Closing());
  }
  Begin(EMR_EOF);
  for (const std::uint32_t Part : {0u, EofSize - 4, EofSize}) Put(Part);
  End();
  const auto Size = static_cast<std::uint32_t>(FBytes.size());
  const auto Handles = static_cast<std::uint16_t>(FMostObjects + 1);  // the first one is the file itself
  std::memcpy(FBytes.data() + PlaceOfCounts, &Size, sizeof Size);
  std::memcpy(FBytes.data() + PlaceOfCounts + 4, &FRecordCount, sizeof FRecordCount);
  std::memcpy(FBytes.data() + PlaceOfCounts + 8, &Handles, sizeof Handles);
}

std::vector<std::byte> TEmfRecords::File() const {
  TEmfRecords Finished = *this;
  Finished.Finish();
  return std::move(Finished.FBytes);
}

}  // namespace zy
