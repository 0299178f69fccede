#include "looks/ZyLook.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <QPalette>
#include <array>
#include <cmath>

#include "annotations/ZyRichLabel.h"
#include "graph/SampleChart.h"
#include "looks/ZyPaletteLook.h"
#include "pie/ZyPieDonut.h"
#include "series/ZyBars.h"
#include "series/ZyPointWithErrorSeries.h"
#include "undo/ZyUndoStack.h"

namespace zy::testing {
namespace {

double LinearOf(unsigned Channel) {
  const double Part = Channel / 255.0;
  return Part <= 0.03928 ? Part / 12.92 : std::pow((Part + 0.055) / 1.055, 2.4);
}

/// Contrast ratio of two colours by WCAG 2.1, from 1 to 21.
double Contrast(TZyColor A, TZyColor B) {
  const auto Luminance = [](TZyColor Color) {
    return 0.2126 * LinearOf(GetR(Color)) + 0.7152 * LinearOf(GetG(Color)) + 0.0722 * LinearOf(GetB(Color));
  };
  const double La = Luminance(A), Lb = Luminance(B);
  return (std::max(La, Lb) + 0.05) / (std::min(La, Lb) + 0.05);
}

TEST(Look, TextsAndLinesStandOutFromTheGround) {
  const std::pair<const TZyLook*, double> Looks[] = {
      {&TZyLook::Light(), 4.5}, {&TZyLook::Dark(), 4.5}, {&TZyLook::Print(), 7}, {&TZyLook::HighContrast(), 7}};
  for (const auto& [Look, Least] : Looks) {
    EXPECT_GE(Contrast(Look->Text, Look->Back), Least);
    EXPECT_GE(Contrast(Look->Axis, Look->Back), Least);
    for (const TZyColor Color : Look->SeriesColors) EXPECT_GE(Contrast(Color, Look->Back), 2) << std::hex << Color;
  }
}

/// How people see a colour who lack one kind of cones, by Machado, Oliveira and Fernandes, A Physiologically-based
/// Model for Simulation of Color Vision Deficiency (2009), at full severity; in CIE L*a*b*.
std::array<double, 3> Seen(TZyColor Color, const std::array<double, 9>& Matrix) {
  const double Linear[] = {LinearOf(GetR(Color)), LinearOf(GetG(Color)), LinearOf(GetB(Color))};
  double Rgb[3];
  for (std::size_t i = 0; i < 3; ++i)
    Rgb[i] =
        std::clamp(Matrix[3 * i] * Linear[0] + Matrix[3 * i + 1] * Linear[1] + Matrix[3 * i + 2] * Linear[2], 0.0, 1.0);
  const auto F = [](double Part) { return Part > 216.0 / 24389 ? std::cbrt(Part) : (24389.0 / 27 * Part + 16) / 116; };
  const double X = F((0.4124 * Rgb[0] + 0.3576 * Rgb[1] + 0.1805 * Rgb[2]) / 0.9505);
  const double Y = F(0.2126 * Rgb[0] + 0.7152 * Rgb[1] + 0.0722 * Rgb[2]);
  const double Z = F((0.0193 * Rgb[0] + 0.1192 * Rgb[1] + 0.9505 * Rgb[2]) / 1.0890);
  return {116 * Y - 16, 500 * (X - Y), 200 * (Y - Z)};
}

TEST(Look, SeriesAreToldApartByWhoLacksAKindOfCones) {
  constexpr std::array<double, 9> Protan{0.152286, 1.052583,  -0.204868, 0.114503, 0.786281,
                                         0.099216, -0.003882, -0.048116, 1.051998};
  constexpr std::array<double, 9> Deutan{0.367322, 0.860646,  -0.227968, 0.280085, 0.672501,
                                         0.047413, -0.011820, 0.042940,  0.968881};
  constexpr std::array<double, 9> Tritan{1.255528, -0.076749, -0.178779, -0.078411, 0.930809,
                                         0.147602, 0.004733,  0.691367,  0.303900};
  for (const TZyLook* Look : {&TZyLook::Light(), &TZyLook::Dark(), &TZyLook::Print(), &TZyLook::HighContrast()})
    for (const auto& Matrix : {Protan, Deutan, Tritan})
      for (std::size_t i = 0; i < Look->SeriesColors.size(); ++i)
        for (std::size_t k = 0; k < i; ++k) {
          const auto A = Seen(Look->SeriesColors[i], Matrix), B = Seen(Look->SeriesColors[k], Matrix);
          EXPECT_GT(std::hypot(A[0] - B[0], A[1] - B[1], A[2] - B[2]), 15) << i << " and " << k << ", " << Matrix[0];
        }
}

TEST(Look, APieAndWhatBelongsToSeriesTakeItToo) {
  TSampleChart Chart;
  for (TZySeries* Series : Chart.AddOfEachKind("")) Series->SetCaption("");
  TZyPieChart Pie(&Chart.Form);
  Pie.SetLabelPosition(TZyPieLabelPosition::Callouts);
  TZyUndoStack Stack;
  Pie.SetUndoStack(&Stack);
  ApplyLook(*Chart.Graph, TZyLook::Dark());
  ApplyLook(Pie, TZyLook::Dark());
  EXPECT_EQ(Stack.UndoCount(), 1);
  EXPECT_EQ(Pie.BackColor(), TZyLook::Dark().Back);
  EXPECT_GE(Contrast(Pie.LabelColor(), Pie.BackColor()), 4.5);
  for (TZySeries* Series : Chart.Graph->RelatedSeries()) {
    const auto* const Bars = dynamic_cast<TZyBars*>(Series);
    auto* const Points = dynamic_cast<TZyPointWithErrorSeries*>(Series);
    EXPECT_TRUE(Bars == nullptr || Contrast(Bars->LabelColor(), TZyLook::Dark().Back) >= 4.5);
    EXPECT_TRUE(Points == nullptr || Contrast(Points->ErrorIndicator().Color(), TZyLook::Dark().Back) >= 2);
  }
}

TEST(Look, OneStepOfUndoBringsTheOldLookBack) {
  TSampleChart Chart;
  TZyUndoStack Stack;
  Chart.AddSeries("A", {1, 2, 3}, {1, 4, 2});
  Chart.AddSeries("B", {1, 2, 3}, {3, 1, 2});
  TZyRichLabel Label(&Chart.Form);
  Label.SetParent(Chart.Graph);
  Label.SetCaption("note");
  Chart.Graph->SetUndoStack(&Stack);
  const QImage Before = Chart.Paint().ToQt();
  const TZyColor LabelBefore = Label.ForeColor();
  ApplyLook(*Chart.Graph, TZyLook::Dark());
  const QImage Dark = Chart.Paint().ToQt();
  EXPECT_EQ(Dark.pixel(1, 1), TZyLook::Dark().Back);
  ASSERT_EQ(Stack.UndoCount(), 1);
  EXPECT_EQ(Label.ForeColor(), TZyLook::Dark().Text);
  Stack.Undo();
  EXPECT_EQ(Label.ForeColor(), LabelBefore);
  EXPECT_TRUE(Label.ParentFont());
  EXPECT_EQ(Chart.Paint().ToQt(), Before);
  Stack.Redo();
  EXPECT_EQ(Chart.Paint().ToQt(), Dark);
}

TEST(Look, FollowsThePaletteWithoutAStepOfUndo) {
  struct TPalette {
    QPalette Before = QGuiApplication::palette();
    ~TPalette() { QGuiApplication::setPalette(Before); }
  } const Kept;
  TSampleChart Chart;
  TZyUndoStack Stack;
  Chart.Graph->SetUndoStack(&Stack);
  TZyPaletteLook Follower;
  Follower.SetGraph(Chart.Graph);
  TZyPieChart Pie(&Chart.Form);
  TZyPaletteLook Second;
  Second.SetGraph(&Pie);
  for (const QRgb Ground : {0xFF101418u, 0xFFFAFAF0u}) {
    QPalette Palette = Kept.Before;
    Palette.setColor(QPalette::Base, QColor(Ground));
    Palette.setColor(QPalette::Text, QColor(Ground ^ 0x00FFFFFF));
    QGuiApplication::setPalette(Palette);
    QCoreApplication::processEvents();
    EXPECT_EQ(Chart.Graph->BackColor(), Ground);
    EXPECT_EQ(Pie.BackColor(), Ground);
    EXPECT_GE(Contrast(Chart.X->NumbersColor(), Chart.Graph->BackColor()), 4.5);
  }
  EXPECT_EQ(Stack.UndoCount(), 0);
  EXPECT_TRUE(Stack.Enabled());
}

}  // namespace
}  // namespace zy::testing
