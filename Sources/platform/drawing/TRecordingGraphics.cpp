#include "platform/drawing/TRecordingGraphics.h"

#include <array>
#include <charconv>
#include <cmath>

#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Font.h"
#include "platform/drawing/Pen.h"

namespace zy {
namespace {

std::string Number(double Value) {
  std::array<char, 64> Buffer;
  const double Rounded = std::round(Value * 100) / 100;
  const auto Result = std::to_chars(Buffer.data(), Buffer.data() + Buffer.size(), Rounded == 0 ? 0.0 : Rounded);
  return {Buffer.data(), Result.ptr};
}

std::string Hex(ARGB Color) {
  constexpr char Digits[] = "0123456789ABCDEF";
  std::string Text;
  for (int Shift = 28; Shift >= 0; Shift -= 4) Text += Digits[Color >> Shift & 15u];
  return Text;
}

std::string Text(PointF Point) { return Number(Point.X) + " " + Number(Point.Y); }

std::string Text(const RectF& Rect) {
  return Number(Rect.X) + " " + Number(Rect.Y) + " " + Number(Rect.Width) + " " + Number(Rect.Height);
}

std::string Text(const Matrix& Matrix) {
  const auto& [M11, M12, M21, M22, Dx, Dy] = Matrix.Elements();
  return Number(M11) + " " + Number(M12) + " " + Number(M21) + " " + Number(M22) + ", " + Number(Dx) + " " + Number(Dy);
}

std::string Text(std::span<const TGradientStop> Stops) {
  std::string Result;
  for (const TGradientStop& Stop : Stops) Result += " " + Number(Stop.Position) + ":" + Hex(Stop.Color);
  return Result;
}

std::string By(const Matrix& Transform) { return Transform == Matrix() ? std::string() : " by " + Text(Transform); }

std::string Text(const Brush& Brush) {
  if (const auto* const Solid = dynamic_cast<const SolidBrush*>(&Brush)) return Hex(Solid->GetColor());
  if (const auto* const Hatch = dynamic_cast<const HatchBrush*>(&Brush))
    return "hatch " + std::to_string(Hatch->GetHatchStyle()) + " " + Hex(Hatch->GetForegroundColor()) + " " +
           Hex(Hatch->GetBackgroundColor());
  if (const auto* const Linear = dynamic_cast<const LinearGradientBrush*>(&Brush))
    return "linear " + Text(Linear->GetStart()) + " to " + Text(Linear->GetStop()) + Text(Linear->Stops()) +
           By(Linear->GetTransform());
  if (const auto* const Path = dynamic_cast<const PathGradientBrush*>(&Brush)) {
    std::string Result = "path " + Text(Path->GetCenterPoint()) + Text(Path->Stops());
    if (Path->Stops().empty()) {
      Result += " " + Hex(Path->GetCenterColor()) + " in";
      for (const ARGB Color : Path->SurroundColors()) Result += " " + Hex(Color);
    }
    return Result + By(Path->GetTransform());
  }
  return "brush";
}

std::string Text(const Pen& Pen) {
  std::string Result = "pen " + Text(Pen.GetBrush()) + " " + Number(Pen.GetWidth());
  if (Pen.GetDashStyle() != DashStyleSolid) Result += " dash " + std::to_string(Pen.GetDashStyle());
  if (Pen.GetStartCap() != LineCapFlat) Result += " start " + std::to_string(Pen.GetStartCap());
  if (Pen.GetEndCap() != LineCapFlat) Result += " end " + std::to_string(Pen.GetEndCap());
  return Result;
}

std::string Text(std::span<const PointF> Points) {
  std::string Result;
  for (const PointF& Point : Points) Result += (Result.empty() ? "" : ", ") + Text(Point);
  return Result;
}

/// The figures of a path with its curves as lines.
std::string Text(const GraphicsPath& Path) {
  std::string Result;
  for (const auto& Figure : Path.Flatten())
    Result += (Result.empty() ? "" : " | ") + Text(std::span<const PointF>(Figure));
  return Result;
}

std::string_view Name(TShape::TKind Kind) {
  constexpr std::string_view Names[] = {"Lines", "Polygon", "Rectangle", "Ellipse", "Pie", "Path"};
  return Names[Kind];
}

std::string Text(const TShape& Shape) {
  switch (Shape.Kind) {
    case TShape::Lines:
    case TShape::Polygon:
      return Text(Shape.Points);
    case TShape::Pie:
      return Text(Shape.Rect) + ", " + Number(Shape.StartAngle) + " " + Number(Shape.SweepAngle);
    case TShape::Path:
      return Text(*Shape.Outline);
    default:
      return Text(Shape.Rect);
  }
}

std::string Text(const Region& Clip) {
  std::string Result;
  for (const Region::TPart& Part : Clip.Parts()) {
    if (!Result.empty()) Result += " & ";
    if (Part.IsExcluded) Result += "not ";
    Result += Part.Nested != nullptr ? "(" + Text(*Part.Nested) + ")"
              : Part.IsRect          ? Text(Part.Rect)
                                     : Text(*Part.Path);
    Result += By(Part.Transform);
  }
  return Result;
}

}  // namespace

class TRecordingGraphics::TBackend : public TGraphicsBackend {
 public:
  void Draw(const TDrawState& State, const Pen& Pen, const TShape& Shape) override {
    const bool IsLine = Shape.Kind == TShape::Lines && Shape.Points.size() == 2;
    Add(State, "Draw" + (IsLine ? std::string("Line") : std::string(Name(Shape.Kind))), Text(Pen) + ", " + Text(Shape));
  }
  void Fill(const TDrawState& State, const Brush& Brush, const TShape& Shape) override {
    Add(State, "Fill" + std::string(Name(Shape.Kind)), Text(Brush) + ", " + Text(Shape));
  }
  void DrawImage(const TDrawState& State, const Bitmap&, const RectF& To, const RectF& From) override {
    Add(State, "DrawImage", Text(To) + ", " + Text(From));
  }
  void DrawString(const TDrawState& State, std::string_view String, const Font& Font, const Brush& Brush,
                  PointF Origin) override {
    Add(State, "DrawString",
        "\"" + std::string(String) + "\", " + Font.GetFamilyName() + " " + Number(Font.GetSize()) + ", " + Text(Brush) +
            ", " + Text(Origin));
  }
  void Clear(const TDrawState& State, ARGB Color) override { Add(State, "Clear", Hex(Color)); }

  std::vector<std::string> Calls;

 private:
  void Add(const TDrawState& State, const std::string& Operation, const std::string& Arguments) {
    if (!(State.Transform == FLast.Transform)) Calls.push_back("SetTransform(" + Text(State.Transform) + ")");
    if (!(State.Clip == FLast.Clip)) Calls.push_back("SetClip(" + Text(State.Clip) + ")");
    if (State.Smoothing != FLast.Smoothing)
      Calls.push_back("SetSmoothingMode(" + std::to_string(State.Smoothing) + ")");
    if (State.Hint != FLast.Hint) Calls.push_back("SetTextRenderingHint(" + std::to_string(State.Hint) + ")");
    FLast = State;
    Calls.push_back(Operation + "(" + Arguments + ")");
  }

  TDrawState FLast;
};

TRecordingGraphics::TRecordingGraphics() : TRecordingGraphics(new TBackend) {}

TRecordingGraphics::TRecordingGraphics(TBackend* Backend)
    : Graphics(std::unique_ptr<TGraphicsBackend>(Backend)), FCalls(Backend) {}

TRecordingGraphics::~TRecordingGraphics() = default;

const std::vector<std::string>& TRecordingGraphics::Calls() const { return FCalls->Calls; }

std::vector<std::size_t> TRecordingGraphics::CallsOf(std::string_view Start) const {
  std::vector<std::size_t> Result;
  for (std::size_t Index = 0; Index < Calls().size(); ++Index)
    if (std::string_view(Calls()[Index]).starts_with(Start)) Result.push_back(Index);
  return Result;
}

void TRecordingGraphics::ClearCalls() { FCalls->Calls.clear(); }

}  // namespace zy
