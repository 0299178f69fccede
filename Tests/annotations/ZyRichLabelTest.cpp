#include "annotations/ZyRichLabel.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/controls/TForm.h"
#include "platform/drawing/TRecordingGraphics.h"
#include "platform/framework/Exceptions.h"
#include "series/ZyLineSeries.h"

namespace zy {
namespace {

class ZyRichLabelTest : public ::testing::Test {
 protected:
  ZyRichLabelTest() {
    Form.SetName("Form");
    Label.SetName("Label");
    Label.SetParent(&Form);
    Series.SetName("Series");
  }

  void Paint() {
    Canvas.ClearCalls();
    Label.PaintGr(Canvas);
  }
  /// The same text laid out on its own.
  SizeF Extent() {
    TZyRichCaptionObject Caption;
    Caption.SetCaption(Label.Caption());
    Caption.CaptionFont().Assign(&Label.Font());
    Caption.ParseForSize();
    return {Caption.Width(), Caption.Height()};
  }

  TForm Form;
  TZyRichLabel Label{&Form};
  TZyLineSeries Series{&Form};
  TRecordingGraphics Canvas;
};

TEST_F(ZyRichLabelTest, FitsItsTurnedTextFromTheFirstPaintOn) {
  Label.SetBounds(7, 8, 65, 17);
  Label.SetCaption("some \\btext\\b  ");
  EXPECT_EQ(Label.Caption(), "some \\btext\\b");
  EXPECT_EQ(Label.Width(), 65);
  Paint();
  const auto [Width, Height] = Extent();
  EXPECT_EQ(Label.PlainText(), "some text");
  EXPECT_EQ(Label.BoundsRect(),
            (TRect{7, 8, 7 + static_cast<int>(std::lround(Width)), 8 + static_cast<int>(std::lround(Height))}));
  Label.SetAngle(-270);
  EXPECT_EQ(Label.Angle(), 90.0f);
  EXPECT_EQ(Label.Width(), std::lround(Height));
  EXPECT_EQ(Label.Height(), std::lround(Width));
  Label.SetAngle(30);
  EXPECT_EQ(Label.Width(), std::lround(std::sqrt(0.75f) * Width + 0.5f * Height));
  const int Before = Label.Width();
  Label.Font().SetSize(20);
  EXPECT_GT(Label.Width(), Before);
  Series.SetCaption("text");
  Label.SetCaption("<%Form.Series.Caption%>");
  const int Short = Label.Width();
  Series.SetCaption("some text");
  EXPECT_GT(Label.Width(), Short);
  EXPECT_THROW(Label.SetCaption("<%nothing%>"), EMathError);
  EXPECT_EQ(Label.PlainText(), "some text");
}

TEST_F(ZyRichLabelTest, TheTurnedTextStandsWhereItIsAligned) {
  Label.SetCaption("wide text");
  Label.SetAutoSize(false);
  Label.SetBounds(0, 0, 300, 200);
  const auto [Width, Height] = Extent();
  for (const float Angle : {0.0f, 60.0f, 90.0f, 140.0f, 180.0f, 200.0f, 270.0f, 300.0f})
    for (int Place = 0; Place < 9; ++Place) {
      Label.SetAngle(Angle);
      Label.SetTextAlign(static_cast<TZyContentAlignment>(Place));
      Paint();
      double M11 = 1, M12 = 0, M21 = 0, M22 = 1, Dx = 0, Dy = 0;
      const std::string& Transform = Canvas.Calls()[0];
      const int Read =
          std::sscanf(Transform.c_str(), "SetTransform(%lf %lf %lf %lf, %lf %lf", &M11, &M12, &M21, &M22, &Dx, &Dy);
      EXPECT_EQ(Read, Transform.starts_with("SetTransform") ? 6 : 0);
      const double Turn = static_cast<double>(Angle) * std::acos(-1) / 180;
      EXPECT_NEAR(M11, std::cos(Turn), 0.006);
      EXPECT_NEAR(M12, -std::sin(Turn), 0.006);
      // The box around the text, from where its corner is put.
      const double Xs[] = {0, std::cos(Turn) * static_cast<double>(Width),
                           std::sin(Turn) * static_cast<double>(Height)};
      const double Ys[] = {0, -std::sin(Turn) * static_cast<double>(Width),
                           std::cos(Turn) * static_cast<double>(Height)};
      const auto Check = [](const double(&Ends)[3], double From, int Where, int Room) {
        const double Low = From + std::min(Ends[1], 0.0) + std::min(Ends[2], 0.0);
        const double High = From + std::max(Ends[1], 0.0) + std::max(Ends[2], 0.0);
        EXPECT_NEAR(Where == 0 ? Low : Where == 1 ? (Low + High) / 2 : High, Room * Where / 2.0, 0.02);
      };
      Check(Xs, Dx, Place % 3, 300);
      Check(Ys, Dy, Place / 3, 200);
    }
}

TEST_F(ZyRichLabelTest, TakesFontAndColoursUntilTheyAreItsOwn) {
  Form.ControlFont().SetColor(Colors::Red);
  EXPECT_EQ(Label.ForeColor(), Colors::Red);
  Label.SetBackColor(Colors::Yellow);
  EXPECT_TRUE(Label.ParentFont());
  Label.SetForeColor(0x80008000);
  EXPECT_EQ(Label.ForeColor(), Colors::Green);
  EXPECT_FALSE(Label.ParentFont());
  Form.ControlFont().SetColor(Colors::Blue);
  EXPECT_EQ(Label.ForeColor(), Colors::Green);
  Label.SetCaption("text");
  Paint();
  EXPECT_EQ(Canvas.CallsOf("FillRectangle(FFFFFF00").size(), 1u);
}

}  // namespace
}  // namespace zy
