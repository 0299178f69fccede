// A million points, and a thousand more ten times a second: the chart follows, and tells how long each repaint took.
//
//   live [FOLDER]
//
// Without a display, thirty frames are drawn into pictures in the folder instead, and the program ends.

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "graph/ZyGraph2D.h"
#include "looks/ZyLook.h"
#include "platform/controls/TApplication.h"
#include "platform/controls/TForm.h"
#include "platform/controls/TTimer.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"

namespace {

using namespace zy;

/// A chart that times its own paints.
class TTimedGraph : public TZyGraph2D {
 public:
  using TZyGraph2D::TZyGraph2D;

  void Paint(Graphics& Gr) override {
    const auto Start = std::chrono::steady_clock::now();
    TZyGraph2D::Paint(Gr);
    Note(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - Start).count());
  }
  void Note(double Milliseconds) {
    FTimes.push_back(Milliseconds);
    if (FTimes.size() % 10 != 0) return;
    std::vector<double> Last(FTimes.end() - 10, FTimes.end());
    std::sort(Last.begin(), Last.end());
    std::printf("ten repaints: %.2f ms in the middle, %.2f ms at most\n", Last[5], Last[9]);
    std::fflush(stdout);
  }

 private:
  std::vector<double> FTimes;
};

class TLiveForm : public TForm {
 public:
  TLiveForm() {
    SetCaption("Zyphos: a million points, live");
    SetPosition(poScreenCenter);
    SetBounds(0, 0, 1200, 800);
    FGraph->SetParent(this);
    FGraph->SetAlign(alClient);
    FGraph->TestPrimaryAxis();
    FGraph->PrimaryXAxis()->SetCaption("Time in s");
    FGraph->PrimaryYAxis()->SetCaption("Signal in V");
    auto* const Series = new TZyLineSeries(this);
    Series->SetXData(FTimes);
    Series->SetYData(FValues);
    FGraph->AddSeries(*Series);
    ApplyLook(*FGraph, TZyLook::Light());
    Append(1000000);
  }

  /// New points in one go: the series and its axes are told once.
  void Append(int Count) {
    FNewTimes.clear();
    FNewValues.clear();
    for (int i = 0; i < Count; ++i) {
      const double Time = 1e-4 * FNext++;
      FNewTimes.push_back(Time);
      FNewValues.push_back(10 * std::sin(0.3 * Time) + FNoise(FRandom));
    }
    FTimes->AddRange(FNewTimes);
    FValues->AddRange(FNewValues);
    FGraph->Invalidate();
  }

  TTimedGraph& Graph() { return *FGraph; }

 private:
  TTimedGraph* FGraph = new TTimedGraph(this);
  TZyDoubleVector* FTimes = new TZyDoubleVector(this);
  TZyDoubleVector* FValues = new TZyDoubleVector(this);
  std::vector<double> FNewTimes, FNewValues;
  int FNext = 0;
  std::mt19937 FRandom{1};
  std::uniform_real_distribution<double> FNoise{-2, 2};
};

void DrawFrames(TLiveForm& Form, const std::filesystem::path& Folder) {
  constexpr int Frames = 30;
  std::filesystem::create_directories(Folder);
  Bitmap Picture(Form.Width(), Form.Height());
  for (int Frame = 1; Frame <= Frames; ++Frame) {
    Form.Append(1000);
    Graphics Canvas(Picture);
    const auto Start = std::chrono::steady_clock::now();
    Form.Graph().PaintGr(Canvas);
    Form.Graph().Note(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - Start).count());
    if (Frame % 10 == 0) Picture.Save(Folder / ("frame" + std::to_string(Frame) + ".png"));
  }
  std::cout << "Wrote " << (Folder / "frame30.png").string() << '\n';
}

}  // namespace

int main(int ArgCount, char** Args) {
  TApplication Program(ArgCount, Args);
  try {
    TLiveForm Form;
    if (!Program.HasDisplay()) {
      DrawFrames(Form, ArgCount > 1 ? Args[1] : "out/live");
      return 0;
    }
    TTimer Timer;
    Timer.SetInterval(100);
    Timer.SetOnTimer([&Form](TObject*) { Form.Append(1000); });
    Form.Show();
    return Program.Run();
  } catch (const std::exception& Error) {
    std::cerr << "live: " << Error.what() << '\n';
    return 1;
  }
}
