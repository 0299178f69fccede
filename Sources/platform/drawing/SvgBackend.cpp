#include "platform/drawing/SvgBackend.h"

#include <QBrush>
#include <QBuffer>
#include <QImage>
#include <QPainterPath>
#include <array>
#include <charconv>
#include <cmath>

#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Font.h"
#include "platform/drawing/GradientStops.h"
#include "platform/drawing/LineCaps.h"
#include "platform/drawing/Pen.h"
#include "platform/drawing/QtGeometry.h"
#include "platform/drawing/QtText.h"
#include "platform/framework/XmlText.h"

namespace zy {
namespace {

std::string Number(double Value) {
  std::array<char, 400> Buffer;
  const double Rounded = std::round(Value * 1000) / 1000;
  const auto Result = std::to_chars(Buffer.data(), Buffer.data() + Buffer.size(), Rounded == 0 ? 0.0 : Rounded);
  return {Buffer.data(), Result.ptr};
}

std::string Precise(double Value) {
  std::array<char, 400> Buffer;
  const auto Result = std::to_chars(Buffer.data(), Buffer.data() + Buffer.size(), static_cast<float>(Value));
  return {Buffer.data(), Result.ptr};
}

std::string Attribute(std::string_view Name, const std::string& Value) {
  return std::string(" ").append(Name).append("=\"").append(Value).append("\"");
}

std::string MatrixText(const QTransform& Transform) {
  std::string Text = "matrix(";
  for (const double Element :
       {Transform.m11(), Transform.m12(), Transform.m21(), Transform.m22(), Transform.dx(), Transform.dy()})
    Text.append(Text.back() == '(' ? "" : " ").append(Precise(Element));
  return Text + ")";
}

std::string TransformAttribute(std::string_view Name, const QTransform& Transform) {
  return Transform.isIdentity() ? std::string() : Attribute(Name, MatrixText(Transform));
}

/// The transform of a call, with the half pixel of shapes that run through pixel centres.
QTransform PlaceOf(const TDrawState& State, float Offset) {
  return AsQt(State.Transform) * QTransform::fromTranslate(Offset, Offset);
}

constexpr float AtCenters = 0.5f;
constexpr float AtCorners = 0;

std::string ColorText(ARGB Color) {
  constexpr char Digits[] = "0123456789abcdef";
  std::string Text = "#";
  for (int Shift = 20; Shift >= 0; Shift -= 4) Text += Digits[Color >> Shift & 15u];
  return Text;
}

std::string ColorAttributes(std::string_view Role, std::string_view OpacityRole, ARGB Color) {
  std::string Text = Attribute(Role, ColorText(Color));
  if (Color >> 24 != 255) Text += Attribute(OpacityRole, Number((Color >> 24) / 255.0));
  return Text;
}

std::string PathText(const QPainterPath& Path) {
  std::string Text;
  QPointF Start;
  const auto Point = [&Text](const QPointF& P) { Text.append(Number(P.x())).append(" ").append(Number(P.y())); };
  for (int Index = 0; Index < Path.elementCount(); ++Index) {
    const QPainterPath::Element Element = Path.elementAt(Index);
    QPointF End = Element;
    if (Element.type == QPainterPath::MoveToElement) {
      Start = Element;
      Text += 'M';
      Point(Element);
    } else if (Element.type == QPainterPath::LineToElement) {
      Text += 'L';
      Point(Element);
    } else {
      Text += 'C';
      Point(Element);
      Text += ' ';
      Point(Path.elementAt(++Index));
      Text += ' ';
      End = Path.elementAt(++Index);
      Point(End);
    }
    const bool IsLast =
        Index + 1 == Path.elementCount() || Path.elementAt(Index + 1).type == QPainterPath::MoveToElement;
    if (IsLast && Element.type != QPainterPath::MoveToElement && End == Start) Text += 'Z';
  }
  return Text;
}

std::string FillRule(const QPainterPath& Path) {
  return Path.fillRule() == Qt::OddEvenFill ? Attribute("fill-rule", "evenodd") : std::string();
}

std::string PictureText(const QImage& Picture) {
  QBuffer Buffer;
  Buffer.open(QIODevice::WriteOnly);
  Picture.save(&Buffer, "PNG");
  return "data:image/png;base64," + Buffer.data().toBase64().toStdString();
}

std::string StopsText(const QGradientStops& Stops) {
  std::string Text;
  for (const auto& [Position, Color] : Stops)
    Text.append("<stop")
        .append(Attribute("offset", Precise(Position)))
        .append(ColorAttributes("stop-color", "stop-opacity", Color.rgba()))
        .append("/>");
  return Text;
}

std::string Crispness(const TDrawState& State) {
  return State.Smoothing == SmoothingModeNone ? Attribute("shape-rendering", "crispEdges") : std::string();
}

}  // namespace

/// A definition by its content; equal ones stand once.
std::string TSvgBackend::Define(std::string_view Element, const std::string& Attributes, const std::string& Content) {
  const std::string Name(Element);
  std::string& Id = FNames[Name + Attributes + Content];
  if (Id.empty()) {
    Id = "z" + std::to_string(FNames.size());
    FDefinitions += "<" + Name + Attribute("id", Id) + Attributes + ">" + Content + "</" + Name + ">\n";
  }
  return Id;
}

/// Box is the part of the page that the brush is for, in the state's coordinates.
std::string TSvgBackend::PaintOf(const TDrawState& State, float Offset, const Brush& Brush, const RectF& Box,
                                 std::string_view Role) {
  if (const auto* const Solid = dynamic_cast<const SolidBrush*>(&Brush))
    return ColorAttributes(Role, std::string(Role) + "-opacity", Solid->GetColor());
  constexpr double Room = 2;  // for what is painted as a picture
  QBrush Fill = Brush.ToQt(FromQt(AsQt(Box).adjusted(-Room, -Room, Room, Room)));
  const QTransform Transform = AsQt(State.Transform);
  const bool IsHatch = dynamic_cast<const HatchBrush*>(&Brush) != nullptr;
  if (IsHatch) {
    Fill.setTransform(PlaceOf(State, Offset).inverted());
  } else if (Offset == AtCorners) {  // colours lie at the centres of pixels, for boxes too
    Fill.setTransform(Fill.transform() * Transform * QTransform::fromTranslate(0.5, 0.5) * Transform.inverted());
  }
  Fill = WithOnePeriod(Fill, AsQt(Box), Transform);
  const std::string Space =
      Attribute("gradientUnits", "userSpaceOnUse") + TransformAttribute("gradientTransform", Fill.transform());
  std::string Id;
  if (Fill.style() == Qt::LinearGradientPattern) {
    const auto& Gradient = *static_cast<const QLinearGradient*>(Fill.gradient());
    const bool Repeats = Gradient.spread() == QGradient::RepeatSpread;
    Id = Define("linearGradient",
                Space + Attribute("spreadMethod", Repeats ? "repeat" : "pad") +
                    Attribute("x1", Number(Gradient.start().x())) + Attribute("y1", Number(Gradient.start().y())) +
                    Attribute("x2", Number(Gradient.finalStop().x())) +
                    Attribute("y2", Number(Gradient.finalStop().y())),
                StopsText(Gradient.stops()));
  } else if (Fill.style() == Qt::RadialGradientPattern) {
    const auto& Gradient = *static_cast<const QRadialGradient*>(Fill.gradient());
    Id = Define("radialGradient",
                Space + Attribute("cx", Precise(Gradient.center().x())) +
                    Attribute("cy", Precise(Gradient.center().y())) + Attribute("r", Precise(Gradient.radius())) +
                    Attribute("fx", Precise(Gradient.focalPoint().x())) +
                    Attribute("fy", Precise(Gradient.focalPoint().y())),
                StopsText(Gradient.stops()));
  } else if (Fill.style() == Qt::TexturePattern) {
    const QImage Picture = Fill.textureImage();
    const std::string Extent =
        Attribute("width", Number(Picture.width())) + Attribute("height", Number(Picture.height()));
    Id = Define(
        "pattern",
        Attribute("patternUnits", "userSpaceOnUse") + Extent + TransformAttribute("patternTransform", Fill.transform()),
        "<image" + Extent + Attribute("image-rendering", IsHatch ? "pixelated" : "auto") +
            Attribute("xlink:href", PictureText(Picture)) + "/>");
  } else {
    return ColorAttributes(Role, std::string(Role) + "-opacity", Fill.color().rgba());
  }
  return Attribute(Role, "url(#" + Id + ")");
}

std::string TSvgBackend::ShapeOf(const Region::TPart& Part) const {
  QPainterPath Shape;
  if (Part.IsRect)
    Shape.addRect(AsQt(Part.Rect));
  else
    Shape = Part.Path->ToQt();
  const double Offset = Part.IsRect ? 0 : 0.5;
  return Attribute("d", PathText(Shape)) +
         TransformAttribute("transform", AsQt(Part.Transform) * QTransform::fromTranslate(Offset, Offset));
}

/// The groups in which what is drawn under a clip lies, from the outermost: one for each shape that remains, and one
/// for what is cut out. Clips that are themselves clipped would say the same, but not to every program.
std::vector<std::string> TSvgBackend::GroupsOf(const Region& Clip) {
  std::vector<std::string> Result;
  for (const Region::TPart& Part : Clip.Parts()) {
    if (Part.IsExcluded) continue;
    const bool EvenOdd = !Part.IsRect && Part.Path->GetFillMode() == FillModeAlternate;
    const std::string Rule = EvenOdd ? Attribute("clip-rule", "evenodd") : std::string();
    const std::string Shape = Define("clipPath", {}, "<path" + ShapeOf(Part) + Rule + "/>");
    Result.push_back(Attribute("clip-path", "url(#" + Shape + ")"));
  }
  if (const std::string Mask = MaskOf(Clip); !Mask.empty()) Result.push_back(Attribute("mask", "url(#" + Mask + ")"));
  return Result;
}

/// A mask that is white but for the shapes that are cut out.
std::string TSvgBackend::MaskOf(const Region& Clip) {
  const std::string Page = Attribute("x", "0") + Attribute("y", "0") + Attribute("width", Number(FWidth)) +
                           Attribute("height", Number(FHeight));
  std::string Holes;
  for (const Region::TPart& Part : Clip.Parts()) {
    if (!Part.IsExcluded) continue;
    if (Part.Nested != nullptr) {
      std::string Hole = "<rect" + Page + "/>";
      for (const std::string& Group : GroupsOf(Part.Nested->Transformed(Part.Transform)))
        Hole.insert(0, ">").insert(0, Group).insert(0, "<g").append("</g>");  // whichever of them is the outer one
      Holes += Hole;
      continue;
    }
    const bool EvenOdd = !Part.IsRect && Part.Path->GetFillMode() == FillModeAlternate;
    Holes += "<path" + ShapeOf(Part) + (EvenOdd ? Attribute("fill-rule", "evenodd") : std::string()) + "/>";
  }
  if (Holes.empty()) return Holes;
  return Define("mask", Attribute("maskUnits", "userSpaceOnUse") + Page,
                "<rect" + Page + Attribute("fill", "#ffffff") + "/>" + Holes);
}

/// Outer groups that the new clip has as well stay open.
void TSvgBackend::UseClip(const Region& Clip) {
  if (Clip == FClip) return;
  FClip = Clip;
  std::vector<std::string> Groups = GroupsOf(Clip);
  const auto Opened = std::ranges::mismatch(Groups, FGroups);
  for (auto Group = Opened.in2; Group != FGroups.end(); ++Group) FBody += "</g>\n";
  for (auto Group = Opened.in1; Group != Groups.end(); ++Group) FBody += "<g" + *Group + ">\n";
  FGroups = std::move(Groups);
}

void TSvgBackend::Add(const TDrawState& State, std::string_view Element) {
  UseClip(State.Clip);
  FBody.append(Element) += '\n';
}

void TSvgBackend::Draw(const TDrawState& State, const Pen& Pen, const TShape& Shape) {
  const std::optional<TShapedLines> Shaped = ShapeEnds(Pen, Shape);
  if (!Shaped) return DrawPlain(State, Pen, Shape.AsPath());
  const zy::Pen Plain = WithPlainEnds(Pen);
  for (const std::vector<PointF>& Line : Shaped->Lines) DrawPlain(State, Plain, TShape::Line(Line).AsPath());
  if (!Shaped->Fill.IsEmpty()) Fill(State, Pen.GetBrush(), TShape::Of(Shaped->Fill));
  if (!Shaped->Stroke.IsEmpty()) DrawPlain(State, Plain, Shaped->Stroke);
}

void TSvgBackend::DrawPlain(const TDrawState& State, const Pen& Pen, const GraphicsPath& Path) {
  constexpr const char* Joins[] = {"miter", "bevel", "round"};
  const float Width = Pen.EffectiveWidth();
  const float Room = Width * std::max(Pen.GetMiterLimit(), 2.0f) / 2;  // for caps and mitres
  const QRectF Box = Path.ToQt().boundingRect().adjusted(-Room, -Room, Room, Room);
  std::string Look = Attribute("fill", "none") + PaintOf(State, AtCenters, Pen.GetBrush(), FromQt(Box), "stroke") +
                     Attribute("stroke-width", Number(Width));
  Look += Attribute("stroke-linejoin", Joins[Pen.GetLineJoin()]);
  if (Pen.GetLineJoin() == LineJoinMiter)
    Look += Attribute("stroke-miterlimit", Number(std::max(Pen.GetMiterLimit(), 1.0f)));
  if (Pen.GetEndCap() == LineCapRound) Look += Attribute("stroke-linecap", "round");
  if (Pen.GetEndCap() == LineCapSquare) Look += Attribute("stroke-linecap", "square");
  std::string Dashes;
  for (const float Length : Pen.DashPattern()) Dashes.append(Dashes.empty() ? "" : " ").append(Number(Length * Width));
  if (!Dashes.empty()) Look += Attribute("stroke-dasharray", Dashes);
  Add(State, "<path" + Attribute("d", PathText(Path.ToQt())) +
                 TransformAttribute("transform", PlaceOf(State, AtCenters)) + Look + Crispness(State) + "/>");
}

void TSvgBackend::Fill(const TDrawState& State, const Brush& Brush, const TShape& Shape) {
  const float Offset = Shape.Kind == TShape::Rectangle ? AtCorners : AtCenters;
  const QPainterPath Path = Shape.AsPath().ToQt();
  Add(State, "<path" + Attribute("d", PathText(Path)) + FillRule(Path) +
                 TransformAttribute("transform", PlaceOf(State, Offset)) +
                 PaintOf(State, Offset, Brush, FromQt(Path.boundingRect()), "fill") + Crispness(State) + "/>");
}

void TSvgBackend::DrawImage(const TDrawState& State, const Bitmap& Picture, const RectF& To, const RectF& From) {
  const auto Ratio = static_cast<double>(Picture.GetPixelRatio());
  const QRectF Part(From.X * Ratio, From.Y * Ratio, From.Width * Ratio, From.Height * Ratio);
  Add(State, "<image" + Attribute("x", Number(To.X)) + Attribute("y", Number(To.Y)) +
                 Attribute("width", Number(To.Width)) + Attribute("height", Number(To.Height)) +
                 Attribute("preserveAspectRatio", "none") + TransformAttribute("transform", PlaceOf(State, AtCorners)) +
                 Attribute("xlink:href", PictureText(Picture.ToQt().copy(Part.toRect()))) + "/>");
}

void TSvgBackend::DrawString(const TDrawState& State, std::string_view Text, const Font& Font, const Brush& Brush,
                             PointF Origin) {
  std::string Look = Attribute("font-family", EscapeXmlAttribute(Font.GetFamilyName())) +
                     Attribute("font-size", Number(Font.GetSize() * Font::PixelsPerPoint));
  const TFontStyles Style = Font.GetStyle();
  if (Style.Contains(TFontStyle::Bold)) Look += Attribute("font-weight", "bold");
  if (Style.Contains(TFontStyle::Italic)) Look += Attribute("font-style", "italic");
  std::string Lines;
  if (Style.Contains(TFontStyle::Underline)) Lines = "underline";
  if (Style.Contains(TFontStyle::Strikeout)) Lines += Lines.empty() ? "line-through" : " line-through";
  if (!Lines.empty()) Look += Attribute("text-decoration", Lines);
  const RectF Box = Font.BoxOf(Text, Origin);
  float BaseLine = Origin.Y + Font.GetAscent();
  ForEachLine(Text, [&](std::string_view Line) {
    // The width goes along: a viewer without the font keeps the layout.
    const std::string Shown = ToShownLine(Line).toStdString();
    if (!Shown.empty())
      Add(State, "<text" + Attribute("x", Number(Origin.X)) + Attribute("y", Number(BaseLine)) + Look +
                     Attribute("textLength", Number(Font.MeasureString(Shown).Width)) +
                     Attribute("lengthAdjust", "spacingAndGlyphs") + Attribute("xml:space", "preserve") +
                     TransformAttribute("transform", PlaceOf(State, AtCorners)) +
                     PaintOf(State, AtCorners, Brush, Box, "fill") + ">" + EscapeXmlText(Shown) + "</text>");
    BaseLine += Font.GetHeight();
  });
}

void TSvgBackend::Clear(const TDrawState& State, ARGB Color) {
  Add(State, "<rect" + Attribute("width", Number(FWidth)) + Attribute("height", Number(FHeight)) +
                 ColorAttributes("fill", "fill-opacity", Color) + "/>");
}

std::string TSvgBackend::Document() {
  UseClip(Region());
  const std::string Width = Number(FWidth), Height = Number(FHeight);
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg" + Attribute("xmlns", "http://www.w3.org/2000/svg") +
         Attribute("xmlns:xlink", "http://www.w3.org/1999/xlink") + Attribute("width", Width) +
         Attribute("height", Height) + Attribute("viewBox", "0 0 " + Width + " " + Height) + ">\n<defs>\n" +
         FDefinitions + "</defs>\n" + FBody + "</svg>\n";
}

}  // namespace zy
