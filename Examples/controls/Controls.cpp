// The controls for the user of an application, each linked to a property of a live chart. No code lies between them and
// the chart: a link is a path.
//
//   controls [FOLDER [--dark] [--long]]   draws the window into controls.png, controls@1.5x.png and controls@2x.png
//   controls --show [--dark] [--long]     opens it
//
// --dark takes a dark palette, --long texts that are half longer, as many languages have them.

#include <QApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPalette>
#include <QPixmap>
#include <QVBoxLayout>
#include <QWidget>
#include <cmath>
#include <filesystem>
#include <set>
#include <string>

#include "Charts.h"
#include "Dialogs.h"

namespace {

using namespace zy;

QPalette DarkPalette() {
  QPalette Result;
  const QColor Face(0x35, 0x35, 0x35), Field(0x23, 0x23, 0x23), Text(0xE8, 0xE8, 0xE8), Gray(0x80, 0x80, 0x80);
  for (const auto Role : {QPalette::Window, QPalette::Button, QPalette::AlternateBase, QPalette::ToolTipBase})
    Result.setColor(Role, Face);
  Result.setColor(QPalette::Base, Field);
  for (const auto Role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText, QPalette::BrightText})
    Result.setColor(Role, Text);
  for (const auto Role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    Result.setColor(QPalette::Disabled, Role, Gray);
  Result.setColor(QPalette::Highlight, QColor(0x2A, 0x82, 0xDA));
  Result.setColor(QPalette::HighlightedText, Text);
  return Result;
}

/// A waveform with its points; all of it has names, by which the links find it.
void MakeChart(TForm& Form) {
  auto* const X = new TZyDoubleVector(&Form);
  auto* const Y = new TZyDoubleVector(&Form);
  for (int Index = 0; Index <= 40; ++Index) {
    X->Add(Index * 0.25);
    Y->Add(std::exp(-Index * 0.05) * std::cos(Index * 0.5));
  }
  auto* const Graph = new TZyGraph2D(&Form);
  Graph->SetName("Graph");
  Graph->SetParent(&Form);
  Graph->SetCaption("Damped oscillation");
  Graph->SetCaptionVisible(true);
  Graph->TestPrimaryAxis();
  Graph->PrimaryXAxis()->SetCaption("Time / s");
  Graph->PrimaryYAxis()->SetCaption("Displacement / mm");
  auto* const Series = new TZyPointSeries(&Form);
  Series->SetName("Series");
  Series->SetXData(X);
  Series->SetYData(Y);
  Graph->AddSeries(*Series);
  ApplyLook(*Graph, TZyLook::Light());
  Series->Line().SetVisible(true);
  Series->PointSymbol().SetVisible(true);
  Series->PointSymbol().SetSize(9);
}

/// The column of controls, line by line.
class TColumn {
 public:
  TColumn(TForm& Form, QFormLayout& Lines, bool IsLong) : FForm(Form), FLines(Lines), FIsLong(IsLong) {}

  /// A control, tied to the property at a path, behind its label.
  template <class T>
  T& Add(const std::string& Text, const char* Path) {
    auto* const Control = new T(&FForm);
    Control->SetParent(&FForm);
    Control->PropertyLinks().Items().Add(std::string("Controls.") + Path);
    Control->SetHint(Path);
    Control->SetShowHint(true);
    const std::string Shown = FIsLong ? Text + " " + Text.substr(0, Text.size() / 2) : Text;
    if constexpr (requires { Control->Checked(); }) {
      Control->SetCaption(Shown);
      FLines.addRow(Control->Widget());
    } else {
      auto* const Label = new TStaticText(&FForm);
      Label->SetCaption(Shown);
      Label->SetParent(&FForm);
      Label->SetFocusControl(Control);
      FLines.addRow(Label->Widget(), Control->Widget());
    }
    return *Control;
  }

 private:
  TForm& FForm;
  QFormLayout& FLines;
  bool FIsLong;
};

void MakeControls(TColumn& Column) {
  Column.Add<TZyCaptionEdit>("&Title", "Graph.Caption");
  Column.Add<TZyCheckBox>("Title is &visible", "Graph.CaptionVisible");
  Column.Add<TZyColorPickCombo>("&Background", "Graph.DataAreaColor");
  auto& Width = Column.Add<TZyNumericUpDn>("Line &width", "Series.Line.Width");
  Width.SetMinValue(0.5);
  Width.SetMaxValue(12);
  Width.SetIncrement(0.5);
  Width.SetDigits(1);
  Column.Add<TZyColorPickCombo>("Line &color", "Series.Line.Color");
  auto& Dashes = Column.Add<TZyDashStylesCombo>("&Dashes", "Series.Line.DashStyle");
  Dashes.SetLineWidth(2);
  auto& Symbol = Column.Add<TZyPointSymbolsCombo>("&Symbol", "Series.PointSymbol.PointSymbol");
  Symbol.SetDropPickList(true);
  auto& Size = Column.Add<TZyDoubleEdit>("Symbol si&ze", "Series.PointSymbol.Size");
  Size.SetMinValue(1);
  Size.SetMaxValue(50);
  Column.Add<TZyCheckBox>("&Area below the line", "Series.Area.Visible");
  auto& Area = Column.Add<TZyAreaStylesCombo>("A&rea style", "Series.Area.AreaStyle");
  Area.SetDropPickList(true);
  Column.Add<TZyColorPickCombo>("Area c&olor", "Series.Area.ForeColor");
  auto& Group = Column.Add<TZyRadioGroup>("Title stands", "Graph.CaptionAlignment");
  Group.Items().SetText("Left\nRight\nIn the middle");
  Group.SetColumns(3);
  auto& Digits = Column.Add<TZyIntegerEdit>("More digits on X axis", "Graph.PrimaryXAxis.ExtraDigits");
  Digits.SetMaxValue(5);
}

/// A tool bar with the buttons that take back what the controls did, and do it again.
TToolBar& MakeBar(TForm& Form) {
  auto* const Stack = new TZyUndoStack(&Form);
  static_cast<TZyGraph2D&>(*Form.FindComponent("Graph")).SetUndoStack(Stack);
  auto* const Bar = new TToolBar(&Form);
  Bar->SetTabStop(true);
  Bar->SetParent(&Form);
  const auto Add = [&](TZyDropDnButton* Button) {
    Button->SetBounds(0, 0, 37, 22);
    Button->SetParent(Bar);
    Button->SetAlign(alLeft);
    Button->SetUndoStack(Stack);
  };
  Add(new TZyUndoButton(&Form));
  Add(new TZyRedoButton(&Form));
  Bar->SetAlign(alNone);  // the layout has the last word
  Bar->Widget()->setFixedHeight(28);
  return *Bar;
}

bool SavePictures(QWidget& Window, const std::string& Stem) {
  for (const auto& [Scale, End] : {std::pair{1.0, ".png"}, {1.5, "@1.5x.png"}, {2.0, "@2x.png"}}) {
    QPixmap Picture(Window.size() * Scale);
    Picture.setDevicePixelRatio(Scale);
    Picture.fill(Qt::transparent);
    Window.render(&Picture);
    if (!Picture.save(QString::fromStdString(Stem + End))) return false;
  }
  return true;
}

}  // namespace

int main(int Count, char* Arguments[]) {
  TApplication Program;
  std::set<std::string> Options(Arguments + 1, Arguments + Count);
  const bool IsDark = Options.erase("--dark") > 0, IsLong = Options.erase("--long") > 0,
             Shows = Options.erase("--show") > 0;
  if (IsDark) QApplication::setPalette(DarkPalette());

  TForm Form;
  Form.SetName("Controls");
  Form.SetCaption("Linked controls");
  Form.SetBounds(0, 0, 980, 640);
  MakeChart(Form);
  auto* const All = new QHBoxLayout(Form.Widget());
  auto* const Left = new QVBoxLayout;
  Left->addWidget(MakeBar(Form).Widget());
  auto* const Lines = new QFormLayout;
  TColumn Column(Form, *Lines, IsLong);
  MakeControls(Column);
  auto* const Graph = static_cast<TZyGraph2D*>(Form.FindComponent("Graph"));
  Left->addLayout(Lines, 1);
  All->addLayout(Left, 1);
  All->addWidget(Graph->Widget(), 2);
  Form.Show();
  if (Shows) return Program.Run();

  TApplication::Idle();  // the links bring the values
  Program.ProcessMessages();
  const std::string Folder = Options.empty() ? "out" : *Options.begin();
  std::filesystem::create_directories(Folder);
  return SavePictures(*Form.Widget(), Folder + "/controls" + (IsDark ? "_dark" : "") + (IsLong ? "_long" : "")) ? 0 : 1;
}
