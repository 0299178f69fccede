// A window of the library's own controls: a chart that a timer feeds, with a status line below it.
//
//   form [PNG]
//
// Without a display the form is drawn into the picture, and the program ends.

#include <cmath>
#include <filesystem>
#include <iostream>

#include "graph/ZyGraph2D.h"
#include "looks/ZyLook.h"
#include "platform/controls/TApplication.h"
#include "platform/controls/TForm.h"
#include "platform/controls/TFrame.h"
#include "platform/controls/TLabel.h"
#include "platform/controls/TTimer.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"
#include "texts/NumberText.h"

namespace {

using namespace zy;

/// The window. What it is made of belongs to it, and goes with it.
class TLiveForm : public TForm {
 public:
  TLiveForm() {
    SetCaption("Zyphos: live data on a form");
    SetPosition(poScreenCenter);
    SetBounds(0, 0, 900, 600);
    ControlFont().SetSize(11);

    auto* const Status = new TFrame(this);
    Status->SetParent(this);
    Status->SetHeight(28);
    Status->SetAlign(alBottom);
    FCount = new TLabel(this);
    FCount->SetParent(Status);
    FCount->SetLeft(8);
    FCount->SetTop(5);
    auto* const Help = new TLabel(this);
    Help->SetParent(Status);
    Help->SetAlignment(TAlignment::taRightJustify);
    Help->SetAnchors({akTop, akRight});
    Help->SetCaption("Click the chart to stop and to go on");
    Help->SetLeft(Status->ClientWidth() - Help->Width() - 8);
    Help->SetTop(5);

    MakeChart();
    FTimer = new TTimer(this);
    FTimer->SetInterval(40);
    FTimer->SetOnTimer([this](TObject*) { Append(5); });
  }

  void Append(int Points) {
    for (int Point = 0; Point < Points; ++Point) {
      const double Time = 0.02 * static_cast<double>(FTimes->Count());
      FTimes->Add(Time);
      FValues->Add(std::sin(Time) + 0.3 * std::sin(7.3 * Time));
    }
    FCount->SetCaption(IntToStr(static_cast<int>(FTimes->Count())) + " points");
    FGraph->Invalidate();
  }

 private:
  void MakeChart() {
    FGraph = new TZyGraph2D(this);
    FGraph->SetParent(this);
    FGraph->SetAlign(alClient);
    FGraph->TestPrimaryAxis();
    FGraph->PrimaryXAxis()->SetCaption("Time in s");
    FGraph->PrimaryYAxis()->SetCaption("Signal in V");
    FGraph->SetCursor(crHandPoint);
    FGraph->SetOnClick([this](TObject*) { FTimer->SetEnabled(!FTimer->Enabled()); });

    FTimes = new TZyDoubleVector(this);
    FValues = new TZyDoubleVector(this);
    auto* const Series = new TZyLineSeries(this);
    Series->SetXData(FTimes);
    Series->SetYData(FValues);
    FGraph->AddSeries(*Series);
    ApplyLook(*FGraph, TZyLook::Light());
  }

  TZyGraph2D* FGraph = nullptr;
  TLabel* FCount = nullptr;
  TTimer* FTimer = nullptr;
  TZyDoubleVector *FTimes = nullptr, *FValues = nullptr;
};

}  // namespace

int main(int ArgCount, char** Args) {
  TApplication Program(ArgCount, Args);
  try {
    TLiveForm Form;
    if (Program.HasDisplay()) {
      Form.Show();
      return Program.Run();
    }
    Form.Append(1000);
    Bitmap Picture(Form.Width(), Form.Height());
    Graphics Canvas(Picture);
    Canvas.Clear(0xFFF0F0F0);
    Form.PaintTo(Canvas);
    const std::filesystem::path FileName = ArgCount > 1 ? Args[1] : "out/form.png";
    if (FileName.has_parent_path()) std::filesystem::create_directories(FileName.parent_path());
    Picture.Save(FileName);
    std::cout << "Wrote " << FileName.string() << '\n';
    return 0;
  } catch (const std::exception& Error) {
    std::cerr << "form: " << Error.what() << '\n';
    return 1;
  }
}
