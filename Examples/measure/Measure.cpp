// Reading values off a chart: a cross hair follows the mouse and tells the nearest point of each curve, the point under
// the mouse has a tool tip, and two lines that the mouse drags measure what lies between them.
//
//   measure [FOLDER]
//
// Without a display, a picture of it is drawn into the folder instead, and the program ends.

#include <cmath>
#include <filesystem>
#include <iostream>
#include <string>

#include "Charts.h"
#include "common/Pictures.h"
#include "texts/NumberText.h"

namespace {

using namespace zy;

std::string Text(double Value) { return FloatToStrFixed(Value, 2); }

class TMeasureForm : public TForm {
 public:
  TMeasureForm() {
    SetName("Form");
    SetCaption("Zyphos: measuring");
    SetPosition(poScreenCenter);
    SetBounds(0, 0, 900, 560);
    FGraph->SetParent(this);
    FGraph->SetAlign(alClient);
    FGraph->SetShowHint(true);
    FGraph->TestPrimaryAxis();
    FGraph->PrimaryXAxis()->SetCaption("Time in s");
    FGraph->PrimaryYAxis()->SetCaption("Displacement in mm");
    AddCurve("mass", 0);
    AddCurve("frame", 0.8);
    TZyLook Look = TZyLook::Light();
    Look.LineWidth = 2;
    ApplyLook(*FGraph, Look);
    FGraph->SetDistanceBorderAxisTop(30);  // for the captions of the markers

    FCross->SetParent(FGraph);
    FCross->SetXAxis(FGraph->PrimaryXAxis());
    FCross->SetYAxis(FGraph->PrimaryYAxis());
    FCross->SetEnabled(false);  // the mouse is the chart's
    FCross->Line().SetColor(Colors::DimGray);
    FCross->Line().SetDashStyle(DashStyleDot);
    FCross->SetCaptionBackColor(0xE0FFFFE0);
    FCross->CaptionBackFrame().SetVisible(true);
    FCross->SetCaptionBackSpaceToBorder(20);
    FGraph->SetOnMouseMove([this](TObject*, TShiftState, int X, int Y) { Follow({X, Y}); });
    FGraph->SetOnMouseLeave([this](TObject*) { FCross->SetVisible(false); });

    for (TZyVerticalMarker* Marker : {FFrom, FTo}) {
      Marker->SetParent(FGraph);
      Marker->SetXAxis(FGraph->PrimaryXAxis());
      Marker->Line().SetColor(Colors::Firebrick);
      Marker->Line().SetWidth(2);
      Marker->SetForeColor(Colors::Firebrick);
      Marker->SetCaptionVisible(true);
      Marker->SetOnMarkerMoving([this](TObject*) { Measure(); });
    }
    FFrom->SetX(2);
    FTo->SetX(5);
    Measure();
  }

  /// A place in the chart.
  void Follow(TPoint Place) {
    FCross->SetVisible(true);
    FCross->MoveTo(Place);
    std::string Caption = "t = " + Text(FCross->X()) + " s";
    for (TZySeries* Series : FGraph->RelatedSeries()) {
      const TZyNearestPointResult Near = Series->NearestX(static_cast<float>(Place.X));
      if (Near.Found) Caption += "\r" + Series->Caption() + " " + Text(Near.Y) + " mm";
    }
    FCross->SetCaption(Caption);
    const TZyFindSeriesPointResult Hit = FGraph->FindSeriesPoint(Place.X, Place.Y);
    FGraph->SetHint(Hit.Found ? Hit.InSeries->Caption() + ": " + Text(Hit.X) + " s, " + Text(Hit.Y) + " mm" : "");
  }

  TZyGraph2D& Graph() { return *FGraph; }

 private:
  void AddCurve(const char* Name, double Delay) {
    auto* const Times = new TZyDoubleVector(this);
    auto* const Values = new TZyDoubleVector(this);
    for (int Index = 0; Index <= 400; ++Index) {
      const double Time = 0.025 * Index;
      Times->Add(Time);
      Values->Add(10 * std::exp(-0.25 * Time) * std::cos(2.4 * (Time - Delay)));
    }
    auto* const Series = new TZyLineSeries(this);
    Series->SetXData(Times);
    Series->SetYData(Values);
    Series->SetCaption(Name);
    FGraph->AddSeries(*Series);
  }

  void Measure() {
    FFrom->SetCaption(Text(FFrom->X()) + " s");
    FTo->SetCaption(Text(FTo->X()) + " s, distance " + Text(std::fabs(FTo->X() - FFrom->X())) + " s");
  }

  TZyGraph2D* FGraph = new TZyGraph2D(this);
  TZyCrossHair* FCross = new TZyCrossHair(this);
  TZyVerticalMarker* FFrom = new TZyVerticalMarker(this);
  TZyVerticalMarker* FTo = new TZyVerticalMarker(this);
};

void SavePicture(TMeasureForm& Form, const std::filesystem::path& Folder) {
  std::filesystem::create_directories(Folder);
  Bitmap First(Form.Width(), Form.Height());
  Graphics Canvas(First);
  Form.Graph().PaintTo(Canvas);  // places need a layout
  Form.Follow({620, 200});
  examples::SavePictures(Folder / "measure", Form.Width(), Form.Height(),
                         [&](Graphics& Gr) { Form.Graph().PaintTo(Gr); });
  std::cout << "Wrote " << (Folder / "measure.png").string() << '\n';
}

}  // namespace

int main(int ArgCount, char** Args) {
  TApplication Program(ArgCount, Args);
  try {
    TMeasureForm Form;
    if (!Program.HasDisplay()) {
      SavePicture(Form, ArgCount > 1 ? Args[1] : "out/measure");
      return 0;
    }
    Form.Show();
    return Program.Run();
  } catch (const std::exception& Error) {
    std::cerr << "measure: " << Error.what() << '\n';
    return 1;
  }
}
