// A line is fitted to measurements while they come in: the title shows its equation with the errors, the part of the
// scatter that it explains and the number of points, and follows by itself.
//
//   equation [FOLDER]
//
// Without a display, frames are drawn into pictures in the folder instead, and the program ends.

#include <filesystem>
#include <iostream>
#include <random>
#include <string>

#include "Charts.h"

namespace {

using namespace zy;

class TEquationForm : public TForm {
 public:
  TEquationForm() {
    SetName("Form");
    SetCaption("Zyphos: an equation that follows its data");
    SetPosition(poScreenCenter);
    SetBounds(0, 0, 900, 560);
    FGraph->SetParent(this);
    FGraph->SetAlign(alClient);
    FGraph->SetCaptionVisible(true);
    FGraph->TestPrimaryAxis();
    FGraph->PrimaryXAxis()->SetCaption("Elongation in mm");
    FGraph->PrimaryYAxis()->SetCaption("Force in N");
    ApplyLook(*FGraph, TZyLook::Light());
    Connect(*FPoints);
    FPoints->Line().SetVisible(false);
    FPoints->PointSymbol().SetSize(5);
    Connect(*FFit);
    FFit->SetName("Fit");
    FFit->Line().SetColor(Colors::Firebrick);
    FFit->Line().SetWidth(2);
    FFit->ConfidenceIntervalArea().SetVisible(true);
    FFit->ConfidenceIntervalArea().SetForeColor(0x30B22222);
    Measure(10);
    FGraph->SetCaption(R"(\iF\i = (<%Form.Fit.Slope;0.000%> ± <%Form.Fit.DeltaSlope;0.000%>) \ix\i + )"
                       R"((<%Form.Fit.Offset;0.00%> ± <%Form.Fit.DeltaOffset;0.00%>),   )"
                       R"(\ir\i\+2\+ = <%Form.Fit.Probability;0.0000%>)");
  }

  /// So many measurements more.
  void Measure(int Count) {
    for (int i = 0; i < Count; ++i) {
      const double Elongation = FAnywhere(FRandom);
      FElongations->Add(Elongation);
      FForces->Add(0.35 * Elongation + 2 + FNoise(FRandom));
    }
    FGraph->Invalidate();
  }
  TZyGraph2D& Graph() { return *FGraph; }

 private:
  void Connect(TZySeries& Series) {
    Series.SetXAxis(FGraph->PrimaryXAxis());
    Series.SetYAxis(FGraph->PrimaryYAxis());
    Series.SetXData(FElongations);
    Series.SetYData(FForces);
  }

  TZyGraph2D* FGraph = new TZyGraph2D(this);
  TZyDoubleVector* FElongations = new TZyDoubleVector(this);
  TZyDoubleVector* FForces = new TZyDoubleVector(this);
  TZyLinearRegression* FFit = new TZyLinearRegression(this);
  TZyPointSeries* FPoints = new TZyPointSeries(this);
  std::mt19937 FRandom{1};
  std::uniform_real_distribution<double> FAnywhere{0, 50};
  std::normal_distribution<double> FNoise{0, 1.5};
};

void DrawFrames(TEquationForm& Form, const std::filesystem::path& Folder) {
  constexpr int Frames = 3;
  std::filesystem::create_directories(Folder);
  Bitmap Picture(Form.Width(), Form.Height());
  for (int Frame = 1; Frame <= Frames; ++Frame) {
    Graphics Canvas(Picture);
    Form.Graph().PaintGr(Canvas);
    Picture.Save(Folder / ("frame" + std::to_string(Frame) + ".png"));
    Form.Measure(95);
  }
  std::cout << "Wrote " << (Folder / "frame3.png").string() << '\n';
}

}  // namespace

int main(int ArgCount, char** Args) {
  TApplication Program(ArgCount, Args);
  try {
    TEquationForm Form;
    if (!Program.HasDisplay()) {
      DrawFrames(Form, ArgCount > 1 ? Args[1] : "out/equation");
      return 0;
    }
    TTimer Timer;
    Timer.SetInterval(200);
    Timer.SetOnTimer([&Form](TObject*) { Form.Measure(1); });
    Form.Show();
    return Program.Run();
  } catch (const std::exception& Error) {
    std::cerr << "equation: " << Error.what() << '\n';
    return 1;
  }
}
