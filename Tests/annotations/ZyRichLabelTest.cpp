#include "annotations/ZyRichLabel.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/controls/TForm.h"
#include "platform/drawing/TRecordingGraphics.h"
#include "platform/framework/Reflection.h"
#include "series/ZyLineSeries.h"
#include "texts/Exceptions.h"

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
  const auto Round = [](float Value) { return static_cast<int>(std::lround(Value)); };
  EXPECT_EQ(Label.BoundsRect(), (TRect{7, 8, 7 + Round(Width), 8 + Round(Height)}));
  Label.SetAngle(-270);
  EXPECT_EQ(Label.Angle(), 90.0f);
  EXPECT_EQ((TPoint{Label.Width(), Label.Height()}), (TPoint{Round(Height), Round(Width)}));
  Label.SetAngle(30);
  EXPECT_EQ(Label.Width(), Round(std::sqrt(0.75f) * Width + 0.5f * Height));
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
  const double Width = Extent().Width, Height = Extent().Height;
  for (const int Angle : {0, 60, 90, 140, 180, 200, 270, 300})
    for (int Place = 0; Place < 9; ++Place) {
      Label.SetAngle(static_cast<float>(Angle));
      Label.SetTextAlign(static_cast<TZyContentAlignment>(Place));
      Paint();
      double M11 = 1, M12 = 0, Dx = 0, Dy = 0;
      std::sscanf(Canvas.Calls()[0].c_str(), "SetTransform(%lf %lf %*f %*f, %lf %lf", &M11, &M12, &Dx, &Dy);
      const double Turn = Angle * std::acos(-1) / 180, Cos = std::cos(Turn), Sin = std::sin(Turn);
      EXPECT_NEAR(M11, Cos, 0.006);
      EXPECT_NEAR(M12, -Sin, 0.006);
      EXPECT_EQ(Canvas.GetTransform(), Matrix());
      // The box around the text along one direction, from where its corner is put.
      const auto Check = [](double AlongText, double AcrossText, double From, int Where, int Room) {
        const double Low = From + std::min(AlongText, 0.0) + std::min(AcrossText, 0.0);
        const double High = From + std::max(AlongText, 0.0) + std::max(AcrossText, 0.0);
        EXPECT_NEAR(Where == 0 ? Low : Where == 1 ? (Low + High) / 2 : High, Room * Where / 2.0, 0.02);
      };
      Check(Cos * Width, Sin * Height, Dx, Place % 3, 300);
      Check(-Sin * Width, Cos * Height, Dy, Place / 3, 200);
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

TEST_F(ZyRichLabelTest, FollowsItsNameWhileDesignedUntilItIsSet) {
  Label.SetName("Before");
  EXPECT_EQ(Label.Caption(), "");
  Form.SetDesigning(true);
  for (const char* Name : {"First", "Second"}) {
    Label.SetName(Name);
    EXPECT_EQ(Label.Caption(), Name);
  }
  Label.SetCaption("set");
  Label.SetName("Third");
  EXPECT_EQ(Label.Caption(), "set");
  EXPECT_EQ(GetPropInfo(Label, "Caption")->TypeName(), "TZyRichCaption");
}

}  // namespace
}  // namespace zy
