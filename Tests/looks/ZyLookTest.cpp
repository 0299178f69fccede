#include "looks/ZyLook.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <QPalette>
#include <cmath>

#include "graph/SampleChart.h"
#include "looks/ZyPaletteLook.h"
#include "undo/ZyUndoStack.h"

namespace zy::testing {
namespace {

/// Contrast ratio of two colours by WCAG 2.1, from 1 to 21.
double Contrast(TZyColor A, TZyColor B) {
  const auto Luminance = [](TZyColor Color) {
    const auto Linear = [](unsigned Channel) {
      const double Part = Channel / 255.0;
      return Part <= 0.03928 ? Part / 12.92 : std::pow((Part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * Linear(GetR(Color)) + 0.7152 * Linear(GetG(Color)) + 0.0722 * Linear(GetB(Color));
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

TEST(Look, OneStepOfUndoBringsTheOldLookBack) {
  TSampleChart Chart;
  TZyUndoStack Stack;
  Chart.AddSeries("A", {1, 2, 3}, {1, 4, 2});
  Chart.AddSeries("B", {1, 2, 3}, {3, 1, 2});
  Chart.Graph->SetUndoStack(&Stack);
  const QImage Before = Chart.Paint().ToQt();
  ApplyLook(*Chart.Graph, TZyLook::Dark());
  const QImage Dark = Chart.Paint().ToQt();
  EXPECT_EQ(Dark.pixel(1, 1), TZyLook::Dark().Back);
  ASSERT_EQ(Stack.UndoCount(), 1);
  Stack.Undo();
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
  for (const QRgb Ground : {0xFF101418u, 0xFFFAFAF0u}) {
    QPalette Palette = Kept.Before;
    Palette.setColor(QPalette::Base, QColor(Ground));
    Palette.setColor(QPalette::Text, QColor(Ground ^ 0x00FFFFFF));
    QGuiApplication::setPalette(Palette);
    QCoreApplication::processEvents();
    EXPECT_EQ(Chart.Graph->BackColor(), Ground);
    EXPECT_GE(Contrast(Chart.X->NumbersColor(), Chart.Graph->BackColor()), 4.5);
  }
  EXPECT_EQ(Stack.UndoCount(), 0);
  EXPECT_TRUE(Stack.Enabled());
}

}  // namespace
}  // namespace zy::testing
