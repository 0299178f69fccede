#include "platform/drawing/EmfDevice.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cstring>
#include <fstream>
#include <functional>
#include <limits>
#include <map>
#include <numeric>
#include <span>
#include <string>

#include "drawing/Pixels.h"
#include "graph/OtherPrograms.h"
#include "platform/framework/TStream.h"
#include "texts/Exceptions.h"

namespace zy {
namespace {

// Record numbers and offsets: what Microsoft publishes for the format, [MS-EMF], section 2.3.
constexpr std::uint32_t Header = 1, Polygon = 3, Polyline = 4, PolyBezierTo = 5, PolyLineTo = 6, Eof = 14,
                        SetPolyFillMode = 19, SetTextColor = 24, MoveTo = 27, IntersectClipRect = 30, SaveDc = 33,
                        RestoreDc = 34, SelectObject = 37, CreateBrush = 39, DeleteObject = 40, SetMiterLimit = 58,
                        BeginPath = 59, EndPath = 60, CloseFigure = 61, FillPath = 62, StrokeAndFillPath = 63,
                        StrokePath = 64, SelectClipPath = 67, Comment = 70, StretchDiBits = 81, CreateFont = 82,
                        ExtTextOut = 84, CreatePen = 95, AlphaBlend = 114;

constexpr double Nan = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

using TBytes = std::vector<std::byte>;
using TInts = std::vector<std::int32_t>;

struct TRecord {
  std::uint32_t Type;
  std::span<const std::byte> Bytes;

  template <typename T = std::int32_t>
  T At(std::size_t Offset) const {
    T Result{};
    if (Offset + sizeof(T) > Bytes.size()) {
      ADD_FAILURE() << "Record " << Type << " has no byte " << Offset;
    } else {
      std::memcpy(&Result, Bytes.data() + Offset, sizeof(T));
    }
    return Result;
  }
  TInts Ints(std::size_t Offset, std::size_t Count) const {
    TInts Result;
    for (std::size_t Index = 0; Index < Count; ++Index) Result.push_back(At(Offset + 4 * Index));
    return Result;
  }
  /// Coordinates of a record with bounds, a count and points.
  TInts Points() const { return Ints(28, 2 * At<std::uint32_t>(24)); }
};

std::vector<TRecord> RecordsOf(std::span<const std::byte> File) {
  std::vector<TRecord> Result;
  while (!File.empty()) {
    std::uint32_t Start[2] = {};
    if (File.size() >= sizeof Start) std::memcpy(Start, File.data(), sizeof Start);
    if (Start[1] < 8 || Start[1] % 4 != 0 || Start[1] > File.size()) {
      ADD_FAILURE() << "Record " << Result.size() << " of type " << Start[0] << " has " << Start[1] << " bytes";
      break;
    }
    Result.push_back({Start[0], File.first(Start[1])});
    File = File.subspan(Start[1]);
  }
  return Result;
}

/// Plays the objects and levels of the file.
class TObjectCheck {
 public:
  void Take(const TRecord& Record) {
    const std::uint32_t Handle = Record.Bytes.size() > 8 ? Record.At<std::uint32_t>(8) : 0;
    if (Record.Type == CreatePen || Record.Type == CreateBrush || Record.Type == CreateFont) {
      EXPECT_GT(Handle, 0u);
      EXPECT_TRUE(FAlive.emplace(Handle, Record.Type).second) << "handle made twice: " << Handle;
      Largest = std::max(Largest, Handle);
    } else if (Record.Type == SelectObject && Handle >> 31 == 0) {
      ASSERT_TRUE(FAlive.contains(Handle)) << "selected before it was made: " << Handle;
      FSelected.back()[FAlive[Handle]] = Handle;
    } else if (Record.Type == SelectObject) {
      FSelected.back()[Handle == 0x80000005 ? CreateBrush : Handle == 0x80000008 ? CreatePen : CreateFont] = 0;
    } else if (Record.Type == DeleteObject) {
      EXPECT_EQ(FAlive.erase(Handle), 1u) << "deleted but not there: " << Handle;
      for (const auto& Level : FSelected)
        for (const auto& [Kind, Selected] : Level) EXPECT_NE(Selected, Handle) << "deleted while it is in use";
    } else if (Record.Type == SaveDc) {
      FSelected.push_back(FSelected.back());
    } else if (Record.Type == RestoreDc) {
      EXPECT_EQ(Record.At(8), -1);
      ASSERT_GT(FSelected.size(), 1u);
      FSelected.pop_back();
    }
  }
  void Finish() const {
    EXPECT_TRUE(FAlive.empty());
    EXPECT_EQ(FSelected.size(), 1u);
  }
  std::uint32_t Selected(std::uint32_t Kind) { return FSelected.back()[Kind]; }
  std::uint32_t Largest = 0;

 private:
  std::map<std::uint32_t, std::uint32_t> FAlive;
  std::vector<std::map<std::uint32_t, std::uint32_t>> FSelected{1};
};

void ExpectWellFormed(const TBytes& File) {
  const std::vector<TRecord> Records = RecordsOf(File);
  ASSERT_GE(Records.size(), 2u);
  const TRecord &First = Records.front(), &Last = Records.back();
  ASSERT_EQ(First.Type, Header);
  EXPECT_EQ(First.At(40), 0x464D4520);
  EXPECT_EQ(First.At<std::uint32_t>(48), File.size());
  EXPECT_EQ(First.At<std::uint32_t>(52), Records.size());
  EXPECT_EQ(Last.Type, Eof);
  EXPECT_EQ(Last.At<std::uint32_t>(16), Last.Bytes.size());
  TObjectCheck Objects;
  bool IsInPath = false;
  for (const TRecord& Record : Records) {
    Objects.Take(Record);
    const auto Number = [&Record](std::size_t Place) { return std::uint64_t{Record.At<std::uint32_t>(Place)}; };
    if (Record.Type == BeginPath || Record.Type == EndPath) {
      EXPECT_EQ(IsInPath, Record.Type == EndPath);
      IsInPath = Record.Type == BeginPath;
    } else if (Record.Type >= Polygon && Record.Type <= PolyLineTo) {
      EXPECT_EQ(Record.Bytes.size(), 28 + 8 * Number(24));
    } else if (Record.Type == StretchDiBits || Record.Type == AlphaBlend) {
      for (const std::size_t Place : Record.Type == AlphaBlend ? std::array{84, 92} : std::array{48, 56})
        EXPECT_LE(Number(Place) + Number(Place + 4), Record.Bytes.size());
    } else if (Record.Type == ExtTextOut) {
      EXPECT_LE(Number(48) + 2 * Number(44), Number(72));
      EXPECT_LE(Number(72) + 4 * Number(44), Record.Bytes.size());
    }
  }
  EXPECT_FALSE(IsInPath);
  Objects.Finish();
  EXPECT_EQ(First.At<std::uint16_t>(56), Objects.Largest + 1);
}

class EmfDevice : public ::testing::Test {
 protected:
  using TPaint = std::function<void(QPainter&)>;

  void Paint(const TPaint& Draw) { Paint(QPen(), QBrush(), Draw); }
  void Paint(const QPen& Pen, const QBrush& Brush, const TPaint& Draw) {
    QPainter Painter(&Device);
    Painter.setPen(Pen);
    Painter.setBrush(Brush);
    Draw(Painter);
    Painter.end();
    File = Device.Bytes();
    ExpectWellFormed(File);
  }
  std::vector<TRecord> All(std::uint32_t Type) const {
    std::vector<TRecord> Result = RecordsOf(File);
    std::erase_if(Result, [Type](const TRecord& Record) { return Record.Type != Type; });
    return Result;
  }
  TRecord Only(std::uint32_t Type) const {
    const std::vector<TRecord> Found = All(Type);
    EXPECT_EQ(Found.size(), 1u) << "records of type " << Type;
    return Found.empty() ? TRecord{Type, {}} : Found.front();
  }
  std::size_t Count(std::uint32_t Type) const { return All(Type).size(); }
  /// What is drawn and how it is clipped, a letter for each record.
  std::string Order() const {
    static const std::map<std::uint32_t, char> Letters = {
        {Polygon, '.'},       {Polyline, '-'},          {FillPath, 'f'},          {StrokePath, 's'},  {AlphaBlend, 'A'},
        {StretchDiBits, 'I'}, {ExtTextOut, 'T'},        {StrokeAndFillPath, 'b'}, {CloseFigure, 'c'}, {SaveDc, '('},
        {RestoreDc, ')'},     {IntersectClipRect, 'R'}, {SelectClipPath, 'P'}};
    std::string Result;
    for (const TRecord& Record : RecordsOf(File))
      if (const auto Letter = Letters.find(Record.Type); Letter != Letters.end()) Result += Letter->second;
    // A painter may begin with clips that it does not use.
    for (std::size_t At = 0; (At = Result.find("()", At)) != std::string::npos;) Result.erase(At, 2);
    return Result;
  }

  TEmfDevice Device{QSizeF(200, 100)};
  TBytes File;
};

QPen PenOf(const QColor& Color, double Width, Qt::PenStyle Style = Qt::SolidLine) {
  return QPen(Color, Width, Style, Qt::FlatCap, Qt::MiterJoin);
}

TEST_F(EmfDevice, TellsItsExtent) {
  struct {
    QSizeF Pixels;
    double DotsPerInch;
    TInts Bounds, Frame;  // frame in hundredths of a millimetre
    std::int32_t DevicePixels;
  } const Cases[] = {{{800, 600}, 96, {0, 0, 799, 599}, {0, 0, 21167, 15875}, 9600},
                     {{72, 36}, 72, {0, 0, 71, 35}, {0, 0, 2540, 1270}, 7200},
                     {{0.5, 10.25}, 300, {0, 0, 0, 10}, {0, 0, 4, 87}, 30000}};
  for (const auto& Case : Cases) {
    const TBytes Empty = TEmfDevice(Case.Pixels, Case.DotsPerInch).Bytes();
    ExpectWellFormed(Empty);
    const TRecord First = RecordsOf(Empty).front();
    EXPECT_EQ(First.Ints(8, 4), Case.Bounds);
    EXPECT_EQ(First.Ints(24, 4), Case.Frame);
    EXPECT_EQ(First.Ints(72, 4), (TInts{Case.DevicePixels, Case.DevicePixels, 2540, 2540}));
  }
  for (const QSizeF& Bad : {QSizeF(0, 5), {5, -1}, {Nan, 5}, {5, 2e6}}) EXPECT_THROW(TEmfDevice{Bad}, ERangeError);
  EXPECT_THROW(TEmfDevice(QSizeF(5, 5), 0), ERangeError);
}

TEST_F(EmfDevice, LinesAreInSixteenthsOfAPixelUnderAnyTransform) {
  Paint(PenOf(QColor(0x12, 0x34, 0x56), 2.25), Qt::NoBrush,
        [](QPainter& Painter) { Painter.drawLine(QPointF(1.0625, 2), QPointF(-3.5, 50.25)); });
  EXPECT_EQ(Only(Polyline).Points(), (TInts{17, 32, -56, 804}));
  // Style, width, brush style, colour as blue, green, red; no hatch, no dashes.
  EXPECT_EQ(Only(CreatePen).Ints(28, 6), (TInts{0x10000 | 0x200 | 0x2000, 36, 0, 0x563412, 0, 0}));
  Paint(PenOf(Qt::black, 1.5), Qt::NoBrush, [](QPainter& Painter) {
    Painter.translate(10, 20);
    Painter.rotate(90);
    Painter.scale(2, 2);
    Painter.drawLine(0, 0, 5, 1);
  });
  EXPECT_EQ(Only(Polyline).Points(), (TInts{160, 320, 128, 480}));
  EXPECT_EQ(Only(CreatePen).At(32), 48);
  // A pen that is wider one way than the other is an area.
  Paint(PenOf(Qt::black, 1), Qt::NoBrush, [](QPainter& Painter) {
    Painter.scale(2, 10);
    Painter.drawLine(0, 5, 50, 5);
  });
  EXPECT_EQ(Count(CreatePen), 0u);
  EXPECT_EQ(Order(), "(.)");
  TInts Corners = Only(Polygon).Points();
  std::sort(Corners.begin(), Corners.end());
  EXPECT_EQ(Corners, (TInts{0, 0, 45 * 16, 45 * 16, 55 * 16, 55 * 16, 100 * 16, 100 * 16}));
}

TEST_F(EmfDevice, PensKeepTheirLook) {
  const TPaint Line = [](QPainter& Painter) { Painter.drawLine(0, 10, 25, 10); };
  struct {
    Qt::PenCapStyle Cap;
    Qt::PenJoinStyle Join;
    QList<qreal> Dashes;
    std::int32_t Style;
  } const Cases[] = {{Qt::FlatCap, Qt::BevelJoin, {}, 0x11200},
                     {Qt::SquareCap, Qt::RoundJoin, {}, 0x10100},
                     {Qt::RoundCap, Qt::MiterJoin, {}, 0x12000},
                     {Qt::FlatCap, Qt::RoundJoin, {3, 1}, 0x10201},
                     {Qt::FlatCap, Qt::RoundJoin, {1, 1}, 0x10202},
                     {Qt::FlatCap, Qt::RoundJoin, {3, 1, 1, 1}, 0x10203},
                     {Qt::FlatCap, Qt::RoundJoin, {3, 1, 1, 1, 1, 1}, 0x10204}};
  for (const auto& [Cap, Join, Dashes, Style] : Cases) {
    QPen Pen(Qt::black, 3, Qt::SolidLine, Cap, Join);
    if (!Dashes.isEmpty()) Pen.setDashPattern(Dashes);
    Paint(Pen, Qt::NoBrush, Line);
    EXPECT_EQ(Only(CreatePen).At(28), Style);
  }
  QPen Mitred(Qt::black, 3, Qt::SolidLine, Qt::FlatCap, Qt::SvgMiterJoin);
  Mitred.setMiterLimit(7);
  Paint(Mitred, Qt::NoBrush, Line);
  EXPECT_EQ(Only(SetMiterLimit).At(8), 7) << "the limit of SVG is that of the format";

  QPen Other = PenOf(Qt::black, 2);
  Other.setDashPattern({5, 2, 1, 2});
  Other.setDashOffset(6);
  Paint(Other, Qt::NoBrush, Line);
  // Twelve pixels into 10 on, 4 off, 2 on, 4 off: 2 of a gap, then 2 on, 4 off, 10 on, 4 off and 2 on from 22.
  TInts Ends;
  for (const TRecord& Record : RecordsOf(File)) {
    if (Record.Type == MoveTo) Ends.push_back(Record.At(8));
    if (Record.Type == PolyLineTo) Ends.push_back(Record.Points()[0]);
  }
  EXPECT_EQ(Ends, (TInts{2 * 16, 4 * 16, 8 * 16, 18 * 16, 22 * 16, 24 * 16}));
  EXPECT_EQ(Only(CreatePen).At(28), 0x12200);
}

TEST_F(EmfDevice, AreasKeepCurvesAndFillModes) {
  QPainterPath Leaf(QPointF(1, 1)), Open(QPointF(0, 0));
  Leaf.cubicTo(2, 3, 4, 5, 6, 7);
  Leaf.lineTo(8, 1);
  Leaf.closeSubpath();
  Paint([&](QPainter& Painter) { Painter.fillPath(Leaf, QColor(255, 0, 128)); });
  EXPECT_EQ(Only(PolyBezierTo).Points(), (TInts{32, 48, 64, 80, 96, 112}));
  EXPECT_EQ(Only(CreateBrush).Ints(12, 3), (TInts{0, 0x8000FF, 0}));
  EXPECT_EQ(Order(), "(cf)");

  const QPolygonF Bow{{0, 0}, {9, 9}, {9, 0}, {0, 9}};
  Paint(PenOf(Qt::red, 1), Qt::blue, [&](QPainter& Painter) {
    Painter.drawPolygon(Bow, Qt::WindingFill);
    Painter.drawPolygon(Bow, Qt::OddEvenFill);
  });
  std::string Modes;
  for (const TRecord& Record : RecordsOf(File)) {
    if (Record.Type == SetPolyFillMode) Modes += std::to_string(Record.At(8));
    if (Record.Type == Polygon) Modes += 'P';
  }
  EXPECT_EQ(Modes, "12P1P");
  EXPECT_EQ(All(Polygon)[0].Points(), (TInts{0, 0, 144, 144, 144, 0, 0, 144}));
  // An open outline keeps its open side, though the area is closed.
  Open.quadTo(5, 9, 9, 0);
  Paint(QPen(), Qt::blue, [&](QPainter& Painter) { Painter.drawPath(Open); });
  EXPECT_EQ(Order(), "(fs)");
}

TEST_F(EmfDevice, MakesEachLookOnce) {
  const auto Draw = [this](QRgb Rectangles, QRgb Colors) {
    Paint([=](QPainter& Painter) {
      for (QRgb Index = 0; Index < Rectangles; ++Index) {
        Painter.setPen(PenOf(Index % 2 ? Qt::red : Qt::blue, 1));
        Painter.setBrush(QColor(0xFF000000 | Index % Colors));
        Painter.drawRect(1, 1, 5, 5);
      }
    });
  };
  Draw(100, 2);
  EXPECT_EQ(Count(CreatePen), 2u);
  EXPECT_EQ(Count(CreateBrush), 2u);
  Draw(70'000, 70'000);
  EXPECT_EQ(Count(CreateBrush), 70'000u);
  EXPECT_LT(RecordsOf(File)[0].At<std::uint16_t>(56), 2000);
  TObjectCheck Objects;
  for (const TRecord& Record : RecordsOf(File)) {
    Objects.Take(Record);
    ASSERT_TRUE(Record.Type != Polygon || (Objects.Selected(CreatePen) != 0 && Objects.Selected(CreateBrush) != 0));
  }
}

std::u16string TextAt(const TRecord& Record, std::size_t Place, std::size_t Length) {
  std::u16string Result;
  for (std::size_t Index = 0; Index < Length; ++Index) Result += Record.At<char16_t>(Place + 2 * Index);
  return Result;
}

TEST_F(EmfDevice, TextsStayTexts) {
  const QString Text = QString::fromUtf8("Wäy €");
  QFont Font("Arial"), InPoints("Arial");
  Font.setPixelSize(20);
  Font.setBold(true);
  Font.setItalic(true);
  Paint(QColor(1, 2, 3), Qt::NoBrush, [&](QPainter& Painter) {
    Painter.setFont(Font);
    Painter.translate(50, 60);
    Painter.rotate(-30);
    Painter.scale(1.5, 1.5);
    Painter.drawText(QPointF(0, 0), Text);
  });
  const TRecord Face = Only(CreateFont), Line = Only(ExtTextOut);
  EXPECT_EQ(Face.Ints(12, 5), (TInts{-20 * 3 / 2 * 16, 0, 300, 300, 700}));
  EXPECT_EQ(Face.At<std::uint8_t>(32), 1);  // italic
  EXPECT_EQ(TextAt(Face, 40, 6), std::u16string(u"Arial\0", 6));
  EXPECT_EQ(Line.Ints(36, 4), (TInts{50 * 16, 60 * 16, 5, 76}));
  EXPECT_EQ(TextAt(Line, 76, 5), Text.toStdU16String());
  const TInts Advances = Line.Ints(Line.At<std::uint32_t>(72), 5);
  EXPECT_NEAR(std::reduce(Advances.begin(), Advances.end()),
              QFontMetricsF(Font, &Device).horizontalAdvance(Text) * 1.5 * 16, 1.5 * 16);
  EXPECT_GT(Advances[0], Advances[4]);  // W is wider than the currency sign
  EXPECT_EQ(All(SetTextColor).back().At(8), 0x030201);

  InPoints.setPointSizeF(12);
  Paint([&](QPainter& Painter) {
    Painter.setFont(InPoints);
    Painter.drawText(QPointF(0, 20), "Size");
  });
  EXPECT_EQ(Only(CreateFont).At(12), -16 * 16);  // 12 pt are 16 px at 96 dpi
}

TEST_F(EmfDevice, TextsThatTheFormatLacksAreOutlines) {
  // Sheared, mirrored, stretched.
  for (const QTransform& Transform : {QTransform(1, 0, 0.5, 1, 0, 0), {-1, 0, 0, 1, 0, 0}, {1, 0, 0, 2, 0, 0}}) {
    Paint([&](QPainter& Painter) {
      Painter.translate(100, 20);
      Painter.setTransform(Transform, true);
      Painter.drawText(QPointF(0, 10), "Outline");
    });
    EXPECT_EQ(Count(ExtTextOut), 0u) << Transform.m11() << ' ' << Transform.m21();
    EXPECT_EQ(Count(FillPath), 1u) << Transform.m11() << ' ' << Transform.m21();
  }
}

/// The toolkit hands out such texts in parts, one for each font.
TEST_F(EmfDevice, WritesATextOfSeveralFontsOnce) {
  const QString Mixed = QString::fromUtf8("ab 漢字 cd");
  Paint([&](QPainter& Painter) {
    Painter.setFont(QFont("Arial"));
    Painter.drawText(QPointF(0, 20), Mixed);
    Painter.drawText(QPointF(0, 50), Mixed);
  });
  std::u16string Written;
  for (const TRecord& Record : All(ExtTextOut)) Written += TextAt(Record, 76, Record.At<std::uint32_t>(44));
  EXPECT_EQ(Written, (Mixed + Mixed).toStdU16String());
}

TEST_F(EmfDevice, TranslucentAreasAreBlended) {
  Paint([](QPainter& Painter) { Painter.fillRect(QRectF(10, 20, 30, 40), QColor(255, 0, 100, 51)); });
  const TRecord Blend = Only(AlphaBlend);
  EXPECT_EQ(Blend.Ints(24, 5), (TInts{160, 320, 480, 640, 0x01FF0000}));
  // One pixel, multiplied by its alpha of a fifth: blue, green, red, alpha.
  EXPECT_EQ(Blend.At(Blend.At<std::uint32_t>(92)), 0x33330014);

  Paint(Qt::NoPen, Qt::red, [](QPainter& Painter) {
    Painter.setOpacity(0.5);
    Painter.drawEllipse(QRectF(10, 20, 30, 40));
  });
  EXPECT_EQ(Count(SelectClipPath), 1u);
  EXPECT_EQ(Count(AlphaBlend), 1u);

  Paint(QPen(QColor(1, 2, 3, 0), 5), QColor(1, 2, 3, 0), [](QPainter& Painter) {
    Painter.drawEllipse(QRectF(10, 20, 30, 40));
    Painter.drawText(QPointF(5, 20), "Nothing");
    Painter.setOpacity(0);
    Painter.fillRect(QRect(1, 1, 50, 50), Qt::red);
    Painter.drawImage(1, 1, QImage(5, 5, QImage::Format_RGB32));
  });
  EXPECT_EQ(Order(), "");
}

/// What is translucent is told twice: readers of [MS-EMFPLUS] pass over the records between a comment and the next.
TEST_F(EmfDevice, TranslucentShapesHaveAnAlternative) {
  Paint([](QPainter& Painter) {
    Painter.fillRect(QRectF(0, 0, 9, 9), Qt::red);
    Painter.fillRect(QRectF(10, 20, 30, 40), QColor(255, 0, 100, 51));
    Painter.fillRect(QRectF(0, 0, 9, 9), QBrush(Qt::blue, Qt::CrossPattern));
  });
  std::string Order;
  for (const TRecord& Record : RecordsOf(File)) {
    if (Record.Type == Polygon) Order += '.';
    if (Record.Type == AlphaBlend) Order += 'B';
    if (Record.Type != Comment) continue;
    EXPECT_EQ(Record.At(12), 0x2B464D45);
    for (std::size_t Place = 16, Size = 0; Place < 12u + Record.At<std::uint32_t>(8); Place += Size) {
      const int Kind = Record.At<std::uint16_t>(Place) - 0x4000;
      Order += static_cast<char>('0' + Kind);
      Size = Record.At<std::uint32_t>(Place + 4);
      ASSERT_EQ(Size, Record.At<std::uint32_t>(Place + 8) + 12u);
      EXPECT_TRUE(Kind != 0x14 || Record.At(Place + 12) == 0x33FF0064) << Record.At(Place + 12);
    }
  }
  // Header 1, records from here 4, object 8, filled path 0x14; end 2. A hatch without half tones needs none.
  EXPECT_EQ(Order, "14.8DB4.B2");
  EXPECT_EQ(RecordsOf(File)[1].Type, Comment);
  Paint([](QPainter& Painter) { Painter.fillRect(QRectF(0, 0, 9, 9), Qt::red); });
  EXPECT_EQ(Count(Comment), 0u);
}

TEST_F(EmfDevice, TranslucencyIsReadByAnotherProgram) {
  ZY_NEED_PROGRAM("soffice");
  const auto Draw = [](QPainter& Painter) {
    Painter.fillRect(QRect(0, 0, 200, 100), QColor(0, 0, 128));
    Painter.fillRect(QRect(0, 50, 200, 50), QColor(255, 255, 200));
    Painter.setPen(QPen(Qt::white, 4));
    Painter.setBrush(QColor(0, 0, 0, 128));
    for (const int Left : {5, 20, 35}) Painter.drawEllipse(QRectF(Left, 5, 10, 10));
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(QColor(255, 0, 0, 64));
    Painter.drawEllipse(QRectF(5, 30, 40, 40));
    QPainterPath Triangle;
    Triangle.addPolygon(QPolygonF({{50, 90}, {90, 90}, {70, 10}, {50, 90}}));
    Painter.setClipPath(Triangle);
    Painter.setClipRect(QRectF(50, 0, 100, 80), Qt::IntersectClip);
    Painter.fillRect(QRectF(50, 0, 100, 80), QColor(0, 255, 0, 192));
    Painter.setClipping(false);
    QLinearGradient Gradient(100, 0, 140, 0);
    Gradient.setColorAt(0, QColor(255, 0, 255, 0));
    Gradient.setColorAt(1, QColor(255, 0, 255, 200));
    Painter.setBrush(Gradient);
    Painter.drawEllipse(QRectF(100, 30, 40, 40));
    Painter.setOpacity(0.4);
    Painter.fillRect(QRectF(150, 30, 40, 40), QBrush(Qt::green));
    Painter.fillRect(QRectF(150, 70, 40, 20), QBrush(Qt::black, Qt::Dense1Pattern));
    Painter.setOpacity(1);
    Painter.fillRect(QRectF(195, 95, 5, 5), Qt::red);  // records still count behind the alternatives
  };
  Paint(Draw);
  QImage Screen(200, 100, QImage::Format_RGB32);
  QPainter Painter(&Screen);
  Draw(Painter);
  Painter.end();
  const testing::TScratchFolder Folder;
  std::ofstream(Folder / "drawing.emf", std::ios::binary)
      .write(reinterpret_cast<const char*>(File.data()), static_cast<std::streamsize>(File.size()));
  const std::string Output =
      testing::OutputOf("soffice -env:UserInstallation=file://" + (Folder / "profile") +
                        " --headless --convert-to png --outdir " + (Folder / "drawn") + " " + (Folder / "drawing.emf"));
  const QImage Page(QString::fromStdString(Folder / "drawn/drawing.png"));
  ASSERT_FALSE(Page.isNull()) << Output;
  QPoint Corner;  // of the navy ground on the white page
  while (Page.valid(Corner) && Page.pixelColor(Corner) != QColor(0, 0, 128))
    Corner = Corner.x() + 1 < Page.width() ? Corner + QPoint(1, 0) : QPoint(0, Corner.y() + 1);
  for (const QPoint Place :
       {QPoint(5, 10), QPoint(20, 10), QPoint(35, 10), QPoint(40, 10), QPoint(25, 40), QPoint(25, 60), QPoint(52, 60),
        QPoint(70, 35), QPoint(70, 70), QPoint(70, 85), QPoint(110, 40), QPoint(120, 60), QPoint(133, 45),
        QPoint(102, 33), QPoint(170, 40), QPoint(170, 60), QPoint(145, 60), QPoint(197, 97)})
    EXPECT_LE(Distance(Page.pixel(Corner + Place), Screen.pixel(Place)), 6) << Place.x() << ' ' << Place.y();
}

TEST_F(EmfDevice, LinearGradientsAreStrips) {
  QLinearGradient Gradient(20, 0, 120, 0);
  Gradient.setColorAt(0, QColor(0, 0, 0));
  Gradient.setColorAt(1, QColor(0, 0, 50));
  Paint([&](QPainter& Painter) { Painter.fillRect(QRectF(10, 10, 99.5, 30), Gradient); });
  EXPECT_EQ(Only(IntersectClipRect).Ints(8, 4), (TInts{160, 160, 1752, 640}));
  const std::vector<TRecord> Strips = All(Polygon);
  // Black until 20, then a step for each shade up to 0.895 of the way.
  ASSERT_EQ(Strips.size(), 46u);
  EXPECT_EQ(Strips.front().Points()[0], 160);
  EXPECT_EQ(Strips[1].Points()[0], 320);
  EXPECT_EQ(Strips[2].Points()[0], 352);
  EXPECT_NEAR(All(CreateBrush).back().At<std::uint8_t>(18), 0.895 * 50, 1);
  EXPECT_EQ(Count(StretchDiBits) + Count(AlphaBlend), 0u);

  // Turned by the painter: an edge of each strip runs across the turned gradient.
  Gradient.setSpread(QGradient::ReflectSpread);
  Paint([&](QPainter& Painter) {
    Painter.rotate(45);
    Painter.fillRect(QRectF(10, -10, 150, 20), Gradient);
  });
  EXPECT_EQ(Count(SelectClipPath), 1u);
  EXPECT_GT(Count(Polygon), 50u);
  const TInts Strip = All(Polygon)[20].Points();
  EXPECT_NEAR(Strip[6] - Strip[0], -(Strip[7] - Strip[1]), 2);
}

TEST_F(EmfDevice, OtherBrushesComeThrough) {
  QRadialGradient Radial(50, 50, 20);
  Radial.setColorAt(0, Qt::white);
  Radial.setColorAt(1, Qt::black);
  Paint([&](QPainter& Painter) { Painter.fillRect(QRectF(0, 0, 100, 100), Radial); });
  EXPECT_EQ(Count(Polygon), 1u);    // the ground
  EXPECT_EQ(Count(FillPath), 20u);  // one for each pixel of the radius
  EXPECT_EQ(All(MoveTo).front().Ints(8, 2), (TInts{70 * 16, 50 * 16}));

  QImage Tile(2, 2, QImage::Format_ARGB32_Premultiplied);
  Tile.fill(Qt::red);
  Tile.setPixelColor(0, 0, Qt::blue);
  Paint([&](QPainter& Painter) { Painter.fillRect(QRect(4, 4, 4, 3), QBrush(Tile)); });
  const TRecord Pattern = Only(StretchDiBits);
  EXPECT_EQ(Pattern.Ints(24, 6), (TInts{64, 64, 0, 0, 4, 3}));
  EXPECT_EQ(Pattern.At<std::uint16_t>(80 + 14), 1);  // two colours, one bit for each pixel
  EXPECT_EQ(Pattern.Ints(120, 2), (TInts{0x0000FF, 0xFF0000}));
  // The lowest row first; a set bit is the colour that comes second.
  for (const std::uint32_t Row : {0u, 1u, 2u})
    EXPECT_EQ(Pattern.At<std::uint8_t>(Pattern.At<std::uint32_t>(56) + 4 * Row), Row == 1 ? 0xF0 : 0x50) << Row;

  Paint(QPen(), QConicalGradient(50, 50, 0), [](QPainter& Painter) { Painter.drawEllipse(QRectF(20, 20, 60, 60)); });
  EXPECT_EQ(Count(SelectClipPath), 1u);
  EXPECT_EQ(Only(StretchDiBits).Ints(40, 2), (TInts{120, 120}));
}

TEST_F(EmfDevice, PicturesComeThrough) {
  QImage Opaque(3, 2, QImage::Format_RGB32), Clear(1, 1, QImage::Format_ARGB32);
  for (int Index = 0; Index < 6; ++Index) Opaque.setPixel(Index % 3, Index / 3, qRgb(Index, 10, 20));
  Paint([&](QPainter& Painter) { Painter.drawImage(QRectF(10, 20, 30.5, 40), Opaque); });
  const TRecord Copied = Only(StretchDiBits);
  EXPECT_EQ(Copied.Ints(24, 2), (TInts{160, 320}));
  EXPECT_EQ(Copied.Ints(72, 2), (TInts{488, 640}));
  // Six colours in a table of eight bits; the second row is stored first.
  EXPECT_EQ(Copied.At(120 + 4u * Copied.At<std::uint8_t>(Copied.At<std::uint32_t>(56) + 1)), 0x040A14);

  Clear.fill(qRgba(200, 100, 0, 102));
  Paint([&](QPainter& Painter) { Painter.drawImage(QPointF(5, 6), Clear); });
  const TRecord Blend = Only(AlphaBlend);
  EXPECT_EQ(Blend.Ints(24, 4), (TInts{80, 96, 16, 16}));
  EXPECT_EQ(Blend.At(Blend.At<std::uint32_t>(92)), 0x66502800);  // times 0.4
  Paint([&](QPainter& Painter) {
    Painter.rotate(10);
    Painter.drawImage(QRectF(20, 20, 30, 30), Opaque);
  });
  EXPECT_EQ(Count(AlphaBlend), 1u);
}

TEST_F(EmfDevice, ClipsNestAndEnd) {
  Paint([](QPainter& Painter) {
    const QRect Dot(50, 50, 1, 1);
    QPainterPath Round;
    Round.addEllipse(QRectF(0, 0, 90, 90));
    Painter.save();
    Painter.setClipRect(QRectF(10.5, 10, 80, 80));
    Painter.fillRect(Dot, Qt::black);
    Painter.setClipPath(Round, Qt::IntersectClip);
    Painter.fillRect(Dot, Qt::black);
    Painter.restore();
    Painter.fillRect(Dot, Qt::black);
    Painter.setClipRect(QRect(500, 500, 5, 5));
    Painter.fillRect(Dot, Qt::black);
  });
  EXPECT_EQ(Order(), "(R.)(RcP.)(.)");
  EXPECT_EQ(All(IntersectClipRect)[0].Ints(8, 4), (TInts{168, 160, 1448, 1440}));
}

TEST_F(EmfDevice, SurvivesBadCoordinates) {
  for (const double Bad : {Nan, Infinity, -Infinity, 1e9, -1e300}) {
    SCOPED_TRACE(Bad);
    Paint([&](QPainter& Painter) {
      QLinearGradient Gradient(0, 0, Bad, 5);
      Gradient.setSpread(QGradient::RepeatSpread);
      const QPointF Points[] = {{0, 0}, {Bad, 5}, {50, Bad}, {20, 20}, {30, 20}};
      for (const QBrush& Brush : {QBrush(Qt::red), QBrush(QColor(9, 9, 9, 99)), QBrush(Gradient)}) {
        Painter.setBrush(Brush);
        Painter.setPen(PenOf(QColor(0, 0, 0, Brush.color().alpha()), 2, Qt::DashDotLine));
        Painter.drawPolyline(Points, 5);
        Painter.drawPolygon(Points, 5);
        Painter.drawRect(QRectF(0, Bad, 10, 10));
        Painter.drawEllipse(QRectF(0, 0, Bad, 10));
      }
      Painter.drawText(QPointF(Bad, 10), "Text");
      Painter.drawImage(QRectF(Bad, 0, 10, 10), QImage(3, 3, QImage::Format_RGB32));
      Painter.setClipRect(QRectF(0, 0, Bad, 10));
      Painter.fillRect(QRectF(0, 0, 10, 10), Qt::red);
    });
  }
  Paint([](QPainter& Painter) {
    Painter.drawPolyline(QPolygonF());
    Painter.drawPolygon(QPolygonF());
    Painter.drawPath(QPainterPath());
    Painter.drawText(QPointF(1, 1), QString());
    Painter.drawImage(QPointF(1, 1), QImage());
    Painter.fillRect(QRectF(), Qt::red);
  });
  EXPECT_EQ(Order(), "");
}

TEST_F(EmfDevice, LeavesOutGapsAndCutsWhatIsFarOff) {
  const QPolygonF Points{{0, 0}, {1, 1}, {Nan, 2}, {3, 3}, {4, 4}};
  Paint([&](QPainter& Painter) { Painter.drawPolyline(Points); });
  EXPECT_EQ(Count(MoveTo), 2u);
  EXPECT_EQ(All(PolyLineTo)[1].Points(), (TInts{64, 64}));
  // What is left of a line still runs the way it did.
  Paint([](QPainter& Painter) { Painter.drawLine(QPointF(0, 50), QPointF(2e9, 50 + 1e9)); });
  const TInts Cut = Only(Polyline).Points();
  EXPECT_EQ((TInts{Cut[0], Cut[1]}), (TInts{0, 800}));
  EXPECT_GT(Cut[2], 200 * 16);
  EXPECT_LT(Cut[2], 100'000 * 16);
  EXPECT_NEAR(Cut[3] - 800, Cut[2] / 2.0, 1);
}

TEST_F(EmfDevice, SplitsLongLines) {
  QPolygonF Line;
  TInts Expected;
  for (int Index = 0; Index < 100'001; ++Index) {
    Line.append(QPointF(Index / 16.0, Index % 50));
    Expected.insert(Expected.end(), {Index, Index % 50 * 16});
  }
  Paint(PenOf(Qt::black, 1), Qt::NoBrush, [&](QPainter& Painter) { Painter.drawPolyline(Line); });
  EXPECT_EQ(Count(StrokePath), 1u);
  TInts Written = Only(MoveTo).Ints(8, 2);
  for (const TRecord& Record : All(PolyLineTo)) {
    EXPECT_LT(Record.Bytes.size(), 200'000u);
    const TInts Part = Record.Points();
    Written.insert(Written.end(), Part.begin(), Part.end());
  }
  EXPECT_EQ(Written, Expected);
}

}  // namespace
}  // namespace zy
