// Random calls with any numbers: on a picture, on a recording that is replayed and written as a file.

#include <bit>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <vector>

#include "fuzz/Check.h"
#include "platform/controls/TApplication.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Font.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Metafile.h"
#include "platform/drawing/Pen.h"
#include "platform/framework/TStream.h"
#include "texts/Exceptions.h"

namespace {

using namespace zy;

/// Takes numbers off the input; zeros behind its end.
class TInput {
 public:
  explicit TInput(std::span<const std::uint8_t> Bytes) : FBytes(Bytes) {}
  bool IsEmpty() const { return FBytes.empty(); }
  std::uint8_t Byte() {
    if (FBytes.empty()) return 0;
    const std::uint8_t Value = FBytes.front();
    FBytes = FBytes.subspan(1);
    return Value;
  }
  ARGB Color() { return static_cast<ARGB>(Byte()) << 24 | static_cast<ARGB>(Byte()) << 16 | Byte(); }
  /// Mostly a place on the picture, at times any float at all.
  float Number() {
    const std::uint8_t Kind = Byte();
    if (Kind < 240) return static_cast<float>(Kind) / 2 - 30;
    const auto Bits = static_cast<std::uint32_t>(Byte()) << 24 | static_cast<std::uint32_t>(Byte()) << 16 | Byte();
    return std::bit_cast<float>(Bits);
  }
  PointF Point() { return {Number(), Number()}; }
  RectF Rect() { return {Number(), Number(), Number(), Number()}; }
  std::vector<PointF> Points() {
    std::vector<PointF> Result(Byte() % 40u);
    for (PointF& Point : Result) Point = this->Point();
    return Result;
  }

 private:
  std::span<const std::uint8_t> FBytes;
};

GraphicsPath PathFrom(TInput& Input) {
  GraphicsPath Path;
  for (int Left = Input.Byte() % 5; Left > 0; --Left) {
    switch (Input.Byte() % 8) {
      case 0:
        Path.AddLine(Input.Number(), Input.Number(), Input.Number(), Input.Number());
        break;
      case 1:
        Path.AddArc(Input.Rect(), Input.Number(), Input.Number());
        break;
      case 2:
        Path.AddEllipse(Input.Rect());
        break;
      case 3:
        Path.AddPie(Input.Rect(), Input.Number(), Input.Number());
        break;
      case 4:
        Path.AddPolygon(Input.Points());
        break;
      case 5:
        Path.AddRectangle(Input.Rect());
        break;
      case 6:
        Path.CloseFigure();
        break;
      default:
        Path.SetFillMode(FillModeWinding);
        break;
    }
  }
  return Path;
}

std::unique_ptr<Brush> BrushFrom(TInput& Input) {
  switch (Input.Byte() % 5) {
    case 0:
      return std::make_unique<HatchBrush>(static_cast<HatchStyle>(Input.Byte() % HatchStyleTotal), Input.Color(),
                                          Input.Color());
    case 1:
      return std::make_unique<LinearGradientBrush>(Input.Rect(), Input.Color(), Input.Color(), Input.Number(),
                                                   Input.Byte() % 2 == 1);
    case 2: {
      auto Gradient = std::make_unique<PathGradientBrush>(PathFrom(Input));
      Gradient->SetCenterPoint(Input.Point());
      return Gradient;
    }
    default:
      return std::make_unique<SolidBrush>(Input.Color());
  }
}

Pen PenFrom(TInput& Input) {
  Pen Result(*BrushFrom(Input), Input.Number());
  Result.SetDashStyle(static_cast<TDashStyle>(Input.Byte() % 6));
  Result.SetLineJoin(static_cast<LineJoin>(Input.Byte() % 3));
  constexpr LineCap Caps[] = {LineCapFlat,     LineCapSquare,        LineCapRound,
                              LineCapTriangle, LineCapDiamondAnchor, LineCapArrowAnchor};
  Result.SetStartCap(Caps[Input.Byte() % 6]);
  Result.SetEndCap(Caps[Input.Byte() % 6]);
  if (Input.Byte() % 8 == 0) {
    const GraphicsPath Shape = PathFrom(Input);
    Result.SetCustomEndCap(CustomLineCap(&Shape, nullptr, LineCapFlat, Input.Number()));
  }
  return Result;
}

void Call(Graphics& Canvas, TInput& Input, const Font& Font) {
  switch (Input.Byte() % 18) {
    case 0:
      return Canvas.DrawLines(PenFrom(Input), Input.Points());
    case 1:
      return Canvas.DrawPolygon(PenFrom(Input), Input.Points());
    case 2:
      return Canvas.DrawRectangle(PenFrom(Input), Input.Rect());
    case 3:
      return Canvas.DrawEllipse(PenFrom(Input), Input.Rect());
    case 4:
      return Canvas.DrawPie(PenFrom(Input), Input.Rect(), Input.Number(), Input.Number());
    case 5:
      return Canvas.DrawPath(PenFrom(Input), PathFrom(Input));
    case 6:
      return Canvas.FillRectangle(*BrushFrom(Input), Input.Rect());
    case 7:
      return Canvas.FillEllipse(*BrushFrom(Input), Input.Rect());
    case 8:
      return Canvas.FillPie(*BrushFrom(Input), Input.Rect(), Input.Number(), Input.Number());
    case 9:
      return Canvas.FillPolygon(*BrushFrom(Input), Input.Points(), static_cast<FillMode>(Input.Byte() % 2));
    case 10:
      return Canvas.FillPath(*BrushFrom(Input), PathFrom(Input));
    case 11:
      return Canvas.DrawString("Ag\n1", Font, *BrushFrom(Input), Input.Number(), Input.Number());
    case 12:
      return Canvas.ExcludeClip(Region(PathFrom(Input)));
    case 13:
      return Canvas.SetClip(PathFrom(Input), CombineModeIntersect);
    case 14:
      return Canvas.SetSmoothingMode(static_cast<SmoothingMode>(Input.Byte() % 4));
    case 15:
      return Canvas.RotateTransform(Input.Number());
    case 16: {
      Matrix Transform;
      Transform.Shear(Input.Number() / 30, Input.Number() / 30);
      Transform.Translate(Input.Number(), Input.Number());
      return Canvas.MultiplyTransform(Transform);
    }
    default:
      return Canvas.SetTransform({});
  }
}

void Draw(Graphics& Canvas, std::span<const std::uint8_t> Bytes) {
  static const Font Face("Arial", 9);
  Canvas.SetClip(RectF{10, 10, 60, 40});
  TInput Input(Bytes);
  while (!Input.IsEmpty()) Call(Canvas, Input, Face);
}

void CheckFrame(const Bitmap& Picture) {
  constexpr const char* Property = "nothing is drawn outside the clip";
  using testing::Check;
  for (int X = 0; X < 80; ++X) Check(Picture.GetPixel(X, 9) == 0 && Picture.GetPixel(X, 50) == 0, Property);
  for (int Y = 0; Y < 60; ++Y) Check(Picture.GetPixel(9, Y) == 0 && Picture.GetPixel(70, Y) == 0, Property);
}

}  // namespace

// The toolkit and the font library keep what they have made until the program ends.
extern "C" const char* __asan_default_options() { return "detect_leaks=0"; }

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  static TApplication Program;
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  const std::span<const std::uint8_t> Bytes(Data, std::min<std::size_t>(Size, 300));
  Bitmap Picture(80, 60), Replayed(80, 60);
  Metafile Recording(80, 60);
  {
    Graphics Canvas(Picture);
    Draw(Canvas, Bytes);
  }
  CheckFrame(Picture);  // no call draws outside the clip
  {
    Graphics Canvas(Recording);
    Draw(Canvas, Bytes);
  }
  {
    Graphics Canvas(Replayed);
    Canvas.DrawImage(Recording, {0, 0, 80, 60});
  }
  CheckFrame(Replayed);
  TMemoryStream Stream;
  constexpr const char* Formats[] = {"SVG", "EMF", "PDF", "SVG", "EMF"};
  Recording.Save(Stream, Formats[Bytes.empty() ? 0 : Bytes.back() % 5]);  // one of them: they take most of the time
  return 0;
}
