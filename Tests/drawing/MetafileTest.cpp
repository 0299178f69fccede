// Recordings: replayed, listed, and written as files; and the encoders of pictures.

#include "platform/drawing/Metafile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "drawing/Pixels.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Font.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"
#include "platform/drawing/TRecordingGraphics.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/TStream.h"
#include "platform/framework/XmlDocument.h"

namespace zy {
namespace {

constexpr ARGB Red = 0xFFFF0000;

/// Some of everything; what it refers to dies before the caller goes on.
void DrawSheet(Graphics& Canvas) {
  Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
  Canvas.FillRectangle(SolidBrush(0xFFFFFFFF), 0, 0, 200, 100);
  Canvas.TranslateTransform(5, 5);
  auto Gradient = std::make_unique<LinearGradientBrush>(RectF{0, 0, 50, 40}, Red, 0xFF0000FF, 30.0f);
  Canvas.FillRectangle(*Gradient, 0, 0, 50, 40);
  Gradient.reset();
  Canvas.FillRectangle(HatchBrush(HatchStyleWeave, Red, 0xFFFFFF00), 60, 0, 30, 40);
  Canvas.SetClip(RectF{0, 0, 150, 60}, CombineModeIntersect);
  GraphicsPath Hole;
  Hole.AddEllipse({110, 10, 20, 20});
  Canvas.ExcludeClip(Region(Hole));
  Canvas.FillPie(SolidBrush(0x8000A000), {95, -5, 60, 60}, 20, 300);
  Pen Thick(0xFF000000, 3);
  Thick.SetDashStyle(DashStyleDash);
  Thick.SetEndCap(LineCapArrowAnchor);
  const PointF Points[] = {{10, 50}, {60, 45}, {100, 55}};
  Canvas.DrawLines(Thick, Points);
  Canvas.ResetClip();
  Canvas.RotateTransform(-20);
  Canvas.DrawString("Text & <more>\nbelow", Font("Arial", 10, {TFontStyle::Bold}), SolidBrush(0xFF000080), 100, 60);
  Bitmap Picture(8, 8);
  Graphics(Picture).FillRectangle(SolidBrush(0xFF00FFFF), 0, 0, 4, 8);
  Canvas.DrawImage(Picture, 10, 70);
}

TEST(MetafileTest, ReplaysTheSamePicture) {
  Bitmap Direct(200, 100), Replayed(200, 100), Half(120, 70);
  {
    Graphics Canvas(Direct);
    DrawSheet(Canvas);
  }
  Metafile Recording(200, 100);
  {
    Graphics Canvas(Recording);
    DrawSheet(Canvas);
  }
  {
    Graphics Canvas(Replayed);
    Canvas.DrawImage(Recording, {0, 0, 200, 100});
    EXPECT_EQ(Canvas.GetTransform(), Matrix());
    EXPECT_TRUE(Canvas.GetClip().IsInfinite());
    EXPECT_EQ(Canvas.GetSmoothingMode(), SmoothingModeNone);
  }
  for (int Y = 0; Y < 100; ++Y)
    for (int X = 0; X < 200; ++X) ASSERT_EQ(Direct.GetPixel(X, Y), Replayed.GetPixel(X, Y)) << X << ", " << Y;
  Graphics(Half).DrawImage(Recording, {10, 10, 100, 50});
  EXPECT_EQ(Half.GetPixel(5, 5), 0u) << "outside the box";
  EXPECT_EQ(Half.GetPixel(109, 59), 0xFFFFFFFF);
  EXPECT_EQ(Half.GetPixel(112, 30), 0u);
  EXPECT_NE(Half.GetPixel(20, 20), 0xFFFFFFFF) << "the gradient, at half its size";

  Metafile Twice(200, 100);  // a recording of a recording
  {
    Graphics Canvas(Twice);
    Canvas.DrawImage(Recording, {0, 0, 200, 100});
  }
  Bitmap Again(200, 100);
  Graphics(Again).DrawImage(Twice, {0, 0, 200, 100});
  EXPECT_EQ(Again.GetPixel(30, 20), Direct.GetPixel(30, 20));
}

std::string Saved(const Metafile& Recording, std::string_view Format) {
  TMemoryStream Stream;
  Recording.Save(Stream, Format);
  const auto Bytes = Stream.Bytes();
  return {reinterpret_cast<const char*>(Bytes.data()), Bytes.size()};
}

TEST(MetafileTest, FilesHoldShapesAndTexts) {
  Metafile Recording(200, 100);
  {
    Graphics Canvas(Recording);
    DrawSheet(Canvas);
  }
  TXMLDocument Svg;
  Svg.LoadFromText(Saved(Recording, "svg"));
  const IXMLNode Root = Svg.DocumentElement();
  EXPECT_EQ(Root.NodeName(), "svg");
  EXPECT_EQ(Root.Attribute("viewBox").AsText(), "0 0 200 100");
  int Texts = 0, Paths = 0, Clips = 0;
  std::string Words;
  const std::function<void(const IXMLNode&)> Walk = [&](const IXMLNode& Node) {
    for (const IXMLNode& Child : Node.ChildNodes()) {
      if (Child.NodeName() == "text") Words += Child.Text() + "|", ++Texts;
      Paths += Child.NodeName() == "path" ? 1 : 0;
      Clips += Child.HasAttribute("mask") ? 1 : 0;
      for (const char* Reference : {"fill", "stroke", "clip-path", "mask"}) {
        if (!Child.HasAttribute(Reference)) continue;
        const std::string Value = Child.Attribute(Reference).AsText();
        if (!Value.starts_with("url(#")) continue;
        const std::string Id = Value.substr(5, Value.size() - 6);
        const auto Definitions = Root.Node("defs").ChildNodes();
        EXPECT_TRUE(std::any_of(Definitions.begin(), Definitions.end(), [&](const IXMLNode& D) {
          return D.Attribute("id").AsText() == Id;
        })) << Id;
      }
      Walk(Child);
    }
  };
  Walk(Root);
  EXPECT_EQ(Words, "Text & <more>|below|");
  EXPECT_GT(Paths, 5);
  EXPECT_GT(Clips, 0);

  EXPECT_TRUE(Saved(Recording, "PDF").starts_with("%PDF-"));
  EXPECT_EQ(Saved(Recording, "emf").substr(40, 4), " EMF");
  EXPECT_THROW(Saved(Recording, "WMF"), EStreamError);
  EXPECT_THROW(Recording.Save(std::filesystem::path("/nowhere/page.svg")), EFileError);
  EXPECT_THROW(Metafile(0, 10), ERangeError);
}

TEST(TRecordingGraphicsTest, ListsCallsWithWhatTheyDependOn) {
  TRecordingGraphics Canvas;
  Canvas.DrawLine(Pen(Red, 1.5f), 0, 1.234f, 10, 5);
  Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
  Canvas.TranslateTransform(10, 20);
  Canvas.FillRectangle(SolidBrush(0x80FF00FF), 1, 2, 3, 4);
  Canvas.SetClip(RectF{0, 0, 5, 5});
  Canvas.FillRectangle(SolidBrush(Red), 1, 2, std::numeric_limits<float>::quiet_NaN(), 4);  // draws nothing
  Canvas.DrawString("abc", Font("Arial", 12), SolidBrush(Red), 7, 8);
  EXPECT_EQ(Canvas.Calls(), (std::vector<std::string>{
                                "DrawLine(pen FFFF0000 1.5, 0 1.23, 10 5)", "SetTransform(1 0 0 1, 10 20)",
                                "SetSmoothingMode(2)", "FillRectangle(80FF00FF, 1 2 3 4)",
                                "SetClip(0 0 5 5 by 1 0 0 1, 10 20)", "DrawString(\"abc\", Arial 12, FFFF0000, 7 8)"}));
  EXPECT_EQ(Canvas.CallsOf("Draw"), (std::vector<std::size_t>{0, 5}));
}

TEST(BitmapEncoderTest, PicturesComeBackFromEveryFormat) {
  Bitmap Picture(17, 9);
  {
    Graphics Canvas(Picture);
    Canvas.FillRectangle(SolidBrush(0xFFFFFFFF), 0, 0, 17, 9);
    Canvas.FillRectangle(SolidBrush(Red), 0, 0, 8, 4);
    Canvas.FillRectangle(SolidBrush(0xFF000080), 8, 4, 9, 5);
  }
  for (const char* Format : {"BMP", "gif", "JPEG", "PNG", "TIFF"}) {
    TMemoryStream Stream;
    Picture.Save(Stream, Format);
    Stream.SetPosition(0);
    const Bitmap Loaded = Bitmap::Load(Stream);
    ASSERT_EQ(Loaded.GetWidth(), 17) << Format;
    ASSERT_EQ(Loaded.GetHeight(), 9) << Format;
    const int Tolerance = std::string_view(Format) == "JPEG" ? 40 : 0;
    for (const auto& [X, Y, Color] :
         {std::tuple(2, 1, Red), std::tuple(14, 7, 0xFF000080u), std::tuple(2, 7, 0xFFFFFFFFu)})
      EXPECT_LE(Distance(Loaded.GetPixel(X, Y), Color), Tolerance) << Format;
  }
}

TEST(BitmapEncoderTest, GifKeepsWhatIsTransparentAndManyColours) {
  Bitmap Picture(256, 64);
  Graphics(Picture).FillRectangle(LinearGradientBrush(RectF{0, 0, 256, 32}, 0xFFFF8000, 0xFF0040FF, 0.0f), 0, 0, 256,
                                  32);
  TMemoryStream Stream;
  Picture.Save(Stream, "GIF");
  Stream.SetPosition(0);
  const Bitmap Loaded = Bitmap::Load(Stream);
  EXPECT_EQ(Loaded.GetPixel(100, 50) >> 24, 0u);
  double Error = 0;
  for (int X = 0; X < 256; ++X)
    for (int Y = 0; Y < 32; ++Y)
      for (int Shift = 0; Shift < 24; Shift += 8)
        Error += (static_cast<double>(Loaded.GetPixel(X, Y) >> Shift & 255u) -
                  static_cast<double>(Picture.GetPixel(X, Y) >> Shift & 255u)) /
                 (256 * 32 * 3);
  EXPECT_LT(std::abs(Error), 4) << "dithering keeps the mean";
  TMemoryStream Broken(std::as_bytes(std::span("no picture", 10)));
  EXPECT_THROW(Bitmap::Load(Broken), EStreamError);
}

}  // namespace
}  // namespace zy
