// Curves fitted to data, with widgets of the toolkit around them: a formula that the user types is fitted while its
// coefficients show, and can be stopped; the order of a polynomial is chosen beside what it leaves over; the phase of a
// spectrum is switched on by a box.
//
//   analysis [FOLDER]
//
// Without a display each page is drawn into a picture in the folder, and the program ends.

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>
#include <filesystem>
#include <iostream>

#include "annotations/ZyRichLabel.h"
#include "gallery/Gallery.h"
#include "platform/controls/TApplication.h"
#include "series/ZyDiscreteFourier.h"
#include "series/ZyFittedLine.h"
#include "series/ZyLeastSquares.h"
#include "texts/Exceptions.h"

namespace {

using namespace zy;
using namespace zy::examples;

/// A page of the gallery below a row of tools.
class TPage : public QWidget {
 public:
  TPage(const char* Name, void (*Make)(TChartDocument& Document)) : FDocument(Name) {
    FDocument.Page().SetBounds(0, 0, PageWidth, PageHeight);
    Make(FDocument);
    auto* const Column = new QVBoxLayout(this);
    Column->addLayout(FTools);
    Column->addWidget(FDocument.Page().Widget(), 1);
  }

 protected:
  /// The series of a kind; the page has one.
  template <class TSeries>
  TSeries& Find() {
    for (TComponent* Each : FDocument.Holder().Components())
      if (auto* const Series = dynamic_cast<TSeries*>(Each)) return *Series;
    throw EInvalidOperation("The page has no such curve");
  }
  template <class TTool>
  TTool& Add(TTool* Tool, int Stretch = 0) {
    FTools->addWidget(Tool, Stretch);
    return *Tool;
  }

  TChartDocument FDocument;

 private:
  QHBoxLayout* FTools = new QHBoxLayout;
};

/// The formula is fitted at Return, step by step before the user's eyes; each further Return goes on from there.
class TFitPage : public TPage {
 public:
  TFitPage() : TPage("Fit", MakeFit), FLine(Find<TZyFittedLine>()) {
    Add(new QLabel("&Formula")).setBuddy(&FFormula);
    Add(&FFormula, 1).setText(QString::fromStdString(FLine.Expression()));
    Add(&FFit);
    Add(&FStop).setEnabled(false);
    Add(&FState).setMinimumWidth(220);
    FLine.SetOnCalculationError([this](TObject*, const std::exception& e) { FState.setText(e.what()); });
    FLine.SetOnIteration([this](TObject*) { ShowStep(); });
    connect(&FFormula, &QLineEdit::returnPressed, this, &TFitPage::Fit);
    connect(&FFit, &QPushButton::clicked, this, &TFitPage::Fit);
    connect(&FStop, &QPushButton::clicked, this, [this] { FLine.StopIterations(); });
  }

 private:
  void Fit() {
    if (FIsFitting) return;
    FIsFitting = true;
    FStop.setEnabled(true);
    FState.clear();
    try {
      FLine.SetExpression(FFormula.text().toStdString());
      FLine.RangesModified();
      FDocument.Graphs().front()->TestSeriesAndAxis();
    } catch (const Exception& Error) {  // the formula is refused
      FState.setText(Error.what());
    }
    FStop.setEnabled(false);
    FIsFitting = false;
  }

  /// Between two steps the application lives: the button can be pressed, and the chart shows what was found so far.
  void ShowStep() {
    if (!FIsFitting) return;  // the first fit, of the first paint
    UpdateVariablesObjects(*FLine.ObjectsToUpdate());
    FState.setText(QString("%1 steps left, residuals %2").arg(FLine.Iteration()).arg(FLine.SumOfResiduals()));
    QApplication::processEvents();
  }

  TZyFittedLine& FLine;
  QLineEdit FFormula;
  QPushButton FFit{"F&it"}, FStop{"&Stop"};
  QLabel FState;
  bool FIsFitting = false;
};

class TPolynomialPage : public TPage {
 public:
  TPolynomialPage() : TPage("Polynomial", MakePolynomial) {
    auto& Curve = Find<TZyPolynomial>();
    Add(new QLabel("&Order")).setBuddy(&FOrder);
    FOrder.setRange(2, 12);
    Add(&FOrder).setValue(Curve.Order());
    Add(new QLabel, 1);
    connect(&FOrder, &QSpinBox::valueChanged, this, [&Curve](int Order) { Curve.SetOrder(Order); });
  }

 private:
  QSpinBox FOrder;
};

class TSpectrumPage : public TPage {
 public:
  TSpectrumPage() : TPage("Spectrum", MakeSpectrum) {
    auto& Phase = Find<TZyDiscreteFourier>().Phase();
    Add(&FPhase);
    connect(&FPhase, &QCheckBox::toggled, this, [&Phase](bool IsOn) { Phase.SetVisible(IsOn); });
  }

 private:
  QCheckBox FPhase{"&Phase"};
};

void DrawPages(QTabWidget& Window, const std::filesystem::path& Folder) {
  std::filesystem::create_directories(Folder);
  Window.show();
  for (int Page = 0; Page < Window.count(); ++Page) {
    Window.setCurrentIndex(Page);
    QApplication::processEvents();
    const std::string Name = Window.tabText(Page).toLower().toStdString() + ".png";
    if (!Window.grab().save(QString::fromStdString((Folder / Name).string()))) throw EFileError("Cannot write " + Name);
  }
  std::cout << "Wrote " << (Folder / "fit.png").string() << '\n';
}

}  // namespace

int main(int ArgCount, char** Args) {
  TApplication Program(ArgCount, Args);
  try {
    QTabWidget Window;  // before its pages, which it would free
    TFitPage Fit;
    TPolynomialPage Polynomial;
    TSpectrumPage Spectrum;
    Window.setWindowTitle("Zyphos: curves fitted to data");
    Window.addTab(&Fit, "Fit");
    Window.addTab(&Polynomial, "Polynomial");
    Window.addTab(&Spectrum, "Spectrum");
    Window.resize(PageWidth, PageHeight);
    if (!Program.HasDisplay()) {
      DrawPages(Window, ArgCount > 1 ? Args[1] : "out/analysis");
      return 0;
    }
    Window.show();
    return Program.Run();
  } catch (const std::exception& Error) {
    std::cerr << "analysis: " << Error.what() << '\n';
    return 1;
  }
}
