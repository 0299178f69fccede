// How charts look: each chart of the gallery, each kind of series and marker, each look, beside a stored picture of it.
// `ZY_STORE_PICTURES=1 test_examples --gtest_filter=*Pictures*` stores what is drawn now; look at the changes before.

#include <gtest/gtest.h>

#include <QImage>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "drawing/Pixels.h"
#include "gallery/Gallery.h"
#include "graph/SampleChart.h"
#include "looks/ZyLook.h"
#include "series/ZyArrows.h"
#include "series/ZyBubbles.h"
#include "series/ZyCustomOHLC.h"
#include "series/ZyFittedLine.h"
#include "series/ZyLeastSquares.h"
#include "series/ZyPointWithErrorSeries.h"
#include "texts/NumberText.h"

namespace zy::examples {
namespace {

using testing::TSampleChart;

const std::filesystem::path Stored = ZY_TEST_PICTURES;

/// A quarter in both directions, each pixel the mean of sixteen, so that glyphs are shades of grey.
QImage Small(const Bitmap& Picture) {
  const QImage& Whole = Picture.ToQt();
  return Whole.scaled(Whole.width() / 4, Whole.height() / 4, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
      .convertToFormat(QImage::Format_RGB32);
}

/// The pixels of A that are like none around the same place of B: with a channel by more than Tolerance outside the
/// channels of the nine pixels there. What is shifted a little, as texts of another version of a font, is none of them.
int CountStrange(const QImage& A, const QImage& B) {
  constexpr int Tolerance = 44;
  int Result = 0;
  for (int Y = 0; Y < A.height(); ++Y) {
    for (int X = 0; X < A.width(); ++X) {
      bool Strange = false;
      for (const int Shift : {0, 8, 16}) {
        const int Value = static_cast<int>(A.pixel(X, Y) >> Shift & 255);
        int Low = 255, High = 0;
        for (int Row = std::max(Y - 1, 0); Row <= std::min(Y + 1, B.height() - 1); ++Row) {
          for (int Column = std::max(X - 1, 0); Column <= std::min(X + 1, B.width() - 1); ++Column) {
            const int Near = static_cast<int>(B.pixel(Column, Row) >> Shift & 255);
            Low = std::min(Low, Near);
            High = std::max(High, Near);
          }
        }
        Strange = Strange || Value < Low - Tolerance || Value > High + Tolerance;
      }
      Result += Strange;
    }
  }
  return Result;
}

int CountDifferent(const QImage& A, const QImage& B) {
  return A.size() != B.size() ? A.width() * A.height() : CountStrange(A, B) + CountStrange(B, A);
}

/// More different pixels than this are another picture.
constexpr int FewPixels = 50;

void CompareWithStored(const std::string& Name, const Bitmap& Picture) {
  const QImage Seen = Small(Picture);
  const std::filesystem::path File = Stored / (Name + ".png");
  if (std::getenv("ZY_STORE_PICTURES") != nullptr) {
    ASSERT_TRUE(Seen.save(QString::fromStdString(File.string())));
    return;
  }
  const QImage Wanted(QString::fromStdString(File.string()));
  ASSERT_FALSE(Wanted.isNull()) << File << " is missing";
  const int Different = CountDifferent(Seen, Wanted.convertToFormat(QImage::Format_RGB32));
  if (Different <= FewPixels) return;
  const std::string Changed = Name + "-changed.png";
  Picture.Save(std::filesystem::path(Changed));
  ADD_FAILURE() << Name << " differs in " << Different << " places from " << File << ": see "
                << std::filesystem::absolute(Changed);
}

Bitmap PictureOfEntry(const TEntry& Entry, const std::function<void(TChartDocument&)>& Change = {}) {
  TChartDocument Chart("Gallery");
  Chart.Page().SetBounds(0, 0, PageWidth, PageHeight);
  Entry.Make(Chart);
  if (Change) Change(Chart);
  return PictureOf(PageWidth, PageHeight, [&](Graphics& Gr) { Chart.Page().PaintTo(Gr); });
}

class GalleryPictures : public ::testing::TestWithParam<TEntry> {};

TEST_P(GalleryPictures, AreAsStored) { CompareWithStored(GetParam().Name, PictureOfEntry(GetParam())); }

INSTANTIATE_TEST_SUITE_P(All, GalleryPictures, ::testing::ValuesIn(Entries().begin(), Entries().end()),
                         [](const auto& Info) {
                           std::string Name = Info.param.Name;
                           std::ranges::replace(Name, '-', '_');
                           return Name;
                         });

/// Charts side by side, four in a row.
class TSheet {
 public:
  explicit TSheet(int Count) : FPicture(4 * Width, (Count + 3) / 4 * Height) {
    Graphics(FPicture).Clear(Colors::White);
  }
  void Put(TSampleChart& Chart) {
    Graphics Gr(FPicture);
    Gr.TranslateTransform(static_cast<float>(FPlace % 4 * Width), static_cast<float>(FPlace / 4 * Height));
    Chart.Graph->PaintTo(Gr);
    ++FPlace;
  }
  /// Whether a chart that was put is another one without a part of it, with the axes as they are.
  template <class TPart>
  static bool Shows(TSampleChart& Chart, TPart& Part) {
    const auto Paint = [&] { return PictureOf(Width, Height, [&](Graphics& Gr) { Chart.Graph->PaintTo(Gr); }).ToQt(); };
    for (TZyAxis* Axis : {Chart.X, Chart.Y}) TSampleChart::FixEnds(Axis, Axis->Start(), Axis->Stop());
    const QImage With = Paint();
    Part.SetVisible(false);
    return With != Paint();
  }
  const Bitmap& Picture() const { return FPicture; }

  static constexpr int Width = 300, Height = 200;

 private:
  Bitmap FPicture;
  int FPlace = 0;
};

/// What a series needs beside X and Y to be drawn.
void AddInputs(TSampleChart& Chart, TZySeries& Series) {
  const auto Add = [&](const char* Name, const std::vector<double>& Values) {
    return Chart.AddVector(Series.Name() + Name, Values);
  };
  if (auto* const Arrows = dynamic_cast<TZyArrows*>(&Series)) {
    Arrows->SetDeltaX(Add("DeltaX", {1, 1, -1, -1}));
    Arrows->SetDeltaY(Add("DeltaY", {5, -5, 5, -5}));
  } else if (auto* const Bubbles = dynamic_cast<TZyBubbles*>(&Series)) {
    Bubbles->SetRadiusData(Add("Radii", {1, 2, 3, 4}));
  } else if (auto* const Prices = dynamic_cast<TZyCustomOHLC*>(&Series)) {
    Prices->SetOpenData(Add("Open", {15, 25, 30, 25}));
    Prices->SetHighData(Add("High", {20, 35, 35, 45}));
    Prices->SetLowData(Add("Low", {5, 20, 15, 20}));
  } else if (auto* const Errors = dynamic_cast<TZyPointWithErrorSeries*>(&Series)) {
    Errors->SetDeltaXPlus(Add("DeltaXPlus", {0.2, 0.4, 0.6, 0.8}));
    Errors->SetDeltaYMinus(Add("DeltaYMinus", {2, 4, 6, 8}));
  } else if (auto* const Fit = dynamic_cast<TZyFittedLine*>(&Series)) {
    Fit->SetExpression("A+B*X");
  } else if (auto* const Linear = dynamic_cast<TZyGeneralLinearLeastSquares*>(&Series)) {
    Linear->SetBasisFunction([](TObject*, const TZyGeneralLinearFittingArgs& e) { return std::pow(e.X, e.Index); });
  }
}

TEST(KindPictures, AreAsStored) {
  const std::size_t Kinds = TSampleChart().AddOfEachKind("S").size(), Markers = TSampleChart().AddMarkers("M").size();
  ASSERT_GT(Kinds, 16u);
  TSheet Sheet(static_cast<int>(Kinds + Markers));
  for (std::size_t Kind = 0; Kind < Kinds; ++Kind) {
    TSampleChart Chart(TSheet::Width, TSheet::Height);
    const std::vector<TZySeries*> All = Chart.AddOfEachKind("S");
    for (std::size_t Each = 0; Each < Kinds; ++Each) {
      All[Each]->SetVisible(Each == Kind);
      AddInputs(Chart, *All[Each]);
      if (auto* const Points = dynamic_cast<TZyPointSeries*>(All[Each]); Points != nullptr) {  // else each has its own
        Points->PointSymbol().SetPointSymbol(TZyPointSymbol::Diamond);
        Points->PointSymbol().SetFillColor(Colors::Orange);
        Points->PointSymbol().SetBorderColor(Colors::Black);
      }
    }
    Sheet.Put(Chart);
    EXPECT_TRUE(TSheet::Shows(Chart, *All[Kind])) << All[Kind]->Name();
  }
  for (std::size_t Kind = 0; Kind < Markers; ++Kind) {
    TSampleChart Chart(TSheet::Width, TSheet::Height);
    Chart.AddSeries("S", {1, 2, 3, 4}, {10, 30, 20, 40});
    const std::vector<TZyMovable*> All = Chart.AddMarkers("M");
    for (std::size_t Each = 0; Each < Markers; ++Each) All[Each]->SetVisible(Each == Kind);
    All[Kind]->SetX(2.5);
    All[Kind]->SetY(15);
    All[Kind]->SetCaption("Mark");
    All[Kind]->SetCaptionVisible(true);
    Sheet.Put(Chart);
    EXPECT_TRUE(TSheet::Shows(Chart, *All[Kind])) << All[Kind]->Name();
  }
  CompareWithStored("kinds", Sheet.Picture());
}

TEST(LookPictures, AreAsStored) {
  TSheet Sheet(4);
  for (const TZyLook* Look : {&TZyLook::Light(), &TZyLook::Dark(), &TZyLook::Print(), &TZyLook::HighContrast()}) {
    TSampleChart Chart(TSheet::Width, TSheet::Height);
    for (const double Shift : {0, 5, 10})
      Chart.AddSeries("S" + FloatToStr(Shift), {1, 2, 3, 4}, {10 + Shift, 30 - Shift, 20, 40 - Shift});
    ApplyLook(*Chart.Graph, *Look);
    Sheet.Put(Chart);
  }
  CompareWithStored("looks", Sheet.Picture());
}

TEST(PictureComparison, SeesWhatChangedAndNotWhereAFontPutsItsGlyphs) {
  const TEntry& Entry = Entries().front();
  const QImage Before = Small(PictureOfEntry(Entry));
  const auto Changed = [&](auto Change) {
    return CountDifferent(Before, Small(PictureOfEntry(Entry, [&](TChartDocument& Chart) {
                            for (TComponent* Part : Chart.Holder().Components()) Change(Part);
                          })));
  };
  int Number = 0;
  const auto Recolored = Changed([&](TComponent* Part) {
    auto* const Series = dynamic_cast<TZyLineSeries*>(Part);
    if (Series != nullptr && Number++ == 0) Series->Line().SetColor(0xFF904040);
  });
  const auto WithoutLegend = Changed([](TComponent* Part) {
    if (auto* const Legend = dynamic_cast<TZyLegend*>(Part)) Legend->SetVisible(false);
  });
  const auto Renamed = Changed([](TComponent* Part) {
    if (auto* const Axis = dynamic_cast<TZyAxis*>(Part); Axis != nullptr && !Axis->Caption().empty())
      Axis->SetCaption("Other");
  });
  const auto Reworded = Changed([](TComponent* Part) {
    if (auto* const Axis = dynamic_cast<TZyAxis*>(Part)) Axis->Font().SetSize(Axis->Font().Size() * 1.02f);
  });
  EXPECT_EQ(Changed([](TComponent*) {}), 0);
  EXPECT_GT(std::min({Recolored, WithoutLegend, Renamed}), FewPixels);
  EXPECT_LE(Reworded, FewPixels);
}

}  // namespace
}  // namespace zy::examples
