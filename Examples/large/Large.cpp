// A table of a hundred million rows as a chart that is zoomed and panned at once, however many rows there are.
//
//   large [--rows NUMBER] [--show] [FOLDER]
//
// The first run makes the table, signal.db in the folder (out/large), and beside it the summary that wide ranges are
// read from; that takes some minutes for the hundred million rows of a run without --rows. Later runs take what is
// there, or make it anew when --rows asks for another number. Then pictures of ever smaller ranges go to the folder,
// with the times that they took. With --show the chart comes up in a window instead.

#include <sys/resource.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

#include "common/Pictures.h"
#include "graph/ZyGraph2D.h"
#include "looks/ZyLook.h"
#include "platform/controls/TApplication.h"
#include "platform/controls/TForm.h"
#include "platform/data/TDataSource.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"
#include "platform/sql/TSqlDataSet.h"
#include "series/ZyBars.h"
#include "series/ZyCandleSticks.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"
#include "tables/ZyTableData.h"

namespace {

using namespace zy;
using TClock = std::chrono::steady_clock;

constexpr double SecondsPerRow = 0.1;

double MillisecondsSince(TClock::time_point Start) {
  return std::chrono::duration<double, std::milli>(TClock::now() - Start).count();
}

void ShowProgress(const char* What, std::int64_t Done, std::int64_t All) {
  std::printf("\r%s: %lld of %lld rows ", What, static_cast<long long>(Done), static_cast<long long>(All));
  std::fflush(stdout);
  if (Done >= All) std::printf("\n");
}

/// Rows up to Last, and the state of the generator there, from which the next piece is made.
void MakePiece(TSqlDataSet& Base, const std::string& Last) {
  const std::string Noise = "((seed >> 8) / 4194304.0 - 1)";                       // of 31 bits, -1 to 1
  const std::string Day = "(i * 0.1 / 86400 - CAST(i * 0.1 / 86400 AS INTEGER))";  // part of the day
  const std::string Generator =
      "WITH RECURSIVE g (i, seed, drift) AS (SELECT i, seed, drift FROM maker UNION ALL SELECT i + 1, (seed * "
      "1103515245 + 12345) & 2147483647, drift * 0.99999 + 0.01 * " +
      Noise + " FROM g WHERE i";
  Base.ExecSQL(Generator + " + 1 < " + Last + ") INSERT INTO signal SELECT i * 0.1 + 0.02 * " + Noise +
               ", CASE WHEN i % 1000 = 999 THEN NULL ELSE 20 + drift + 0.4 * " + Noise + " + 24 * " + Day + " * (1 - " +
               Day + ") + CASE WHEN i % 1234567 = 890 THEN 15 ELSE 0 END END FROM g");
  // The last state of the generator is computed once more.
  Base.ExecSQL(Generator + " < " + Last +
               ") UPDATE maker SET (i, seed, drift) = (SELECT i, seed, drift FROM g WHERE i = " + Last + ")");
}

/// A sensor read ten times a second: a daily wave, a drift, noise, now and then a spike, every thousandth reading
/// missing. Made by the database itself, a million rows at a time; the state of drift and noise goes on in `maker`.
void MakeTable(TSqlDataSet& Base, std::int64_t Rows) {
  constexpr std::int64_t Piece = 1000000;
  Base.ExecSQL("PRAGMA journal_mode = OFF");
  Base.ExecSQL("PRAGMA synchronous = OFF");
  Base.ExecSQL("CREATE TABLE signal (t REAL PRIMARY KEY, v REAL) WITHOUT ROWID");
  Base.ExecSQL("CREATE TEMP TABLE maker (i INTEGER, seed INTEGER, drift REAL)");
  Base.ExecSQL("INSERT INTO maker VALUES (0, 1, 0)");
  for (std::int64_t First = 0; First < Rows; First += Piece) {
    MakePiece(Base, std::to_string(std::min(First + Piece, Rows)));
    ShowProgress("Making", std::min(First + Piece, Rows), Rows);
  }
}

/// A chart of one series over the table.
class TLargeForm : public TForm {
 public:
  explicit TLargeForm(const std::string& File) {
    SetCaption("Zyphos: a table that no memory holds");
    SetPosition(poScreenCenter);
    SetBounds(0, 0, 1200, 800);
    FGraph->SetParent(this);
    FGraph->SetAlign(alClient);
    FGraph->TestPrimaryAxis();
    FGraph->PrimaryXAxis()->SetCaption("Time in s");
    FGraph->PrimaryYAxis()->SetCaption("Temperature in °C");
    ApplyLook(*FGraph, TZyLook::Light());
    FData->SetConnectionText("sqlite:" + File);
    FData->SetTableName("signal");
    FData->SetXField("t");
    FData->SetYField("v");
    FData->SetXAxis(FGraph->PrimaryXAxis());
    FData->SetOnNotice([](TObject*, const std::string& Text) { std::cout << Text << '\n'; });
    FSource->SetDataSet(FData);
  }

  /// A line, with what lies below it or without.
  void ShowLine(bool HasArea) {
    auto& Line = *new TZyLineSeries(this);
    Line.Line().SetColor(Colors::SteelBlue);
    Line.Area().SetVisible(HasArea);
    Line.SetYData(Column("v"));
    Join(Line);
  }
  /// The mean of each stretch of time as a bar.
  void ShowBars() {
    FData->SetKind(TZyTableKind::Records);
    auto& Bars = *new TZyBars(this);
    Bars.SetYData(Column("mean"));
    Join(Bars);
  }
  /// The first, highest, lowest and last value of each.
  void ShowCandles() {
    FData->SetKind(TZyTableKind::Records);
    auto& Candles = *new TZyCandleSticks(this);
    Candles.SetOpenData(Column("open"));
    Candles.SetHighData(Column("high"));
    Candles.SetLowData(Column("low"));
    Candles.SetCloseData(Column("close"));
    Join(Candles);
  }

  TZyGraph2D& Graph() { return *FGraph; }
  TZyTableData& Data() { return *FData; }

 private:
  TZyDoubleVector* Column(const char* Field) {
    auto* const Result = new TZyDoubleVector(this);
    Result->SetDataSource(FSource);
    Result->SetDataField(Field);
    return Result;
  }
  void Join(TZySeries& Series) {
    Series.SetXData(Column("t"));
    Series.SetXAxis(FGraph->PrimaryXAxis());
    Series.SetYAxis(FGraph->PrimaryYAxis());
  }

  TZyGraph2D* FGraph = new TZyGraph2D(this);
  TZyTableData* FData = new TZyTableData(this);
  TDataSource* FSource = new TDataSource(this);
};

void Draw(TLargeForm& Form, Bitmap& Picture) {
  Graphics Canvas(Picture);
  Form.Graph().PaintGr(Canvas);
}

/// Draws what is there, waits for what the table answers, draws that, and tells how long both took.
void DrawRange(TLargeForm& Form, const std::filesystem::path& File, const char* What) {
  Bitmap Picture(Form.Width(), Form.Height());
  const auto Start = TClock::now();
  Draw(Form, Picture);
  const double AtOnce = MillisecondsSince(Start);
  while (Form.Data().WaitForAnswer()) Draw(Form, Picture);
  std::printf("%-24s %7.1f ms, with what was there after %5.1f ms; %d records\n", What, MillisecondsSince(Start),
              AtOnce, Form.Data().RecordCount());
  Picture.Save(File);
}

void DrawZooms(TLargeForm& Form, const std::filesystem::path& Folder) {
  const auto Start = TClock::now();
  Form.Data().Open();
  Form.Data().WaitForAnswer();
  DrawRange(Form, Folder / "all.png", "The whole table");
  std::printf("%-24s %7.1f ms from opening on\n", "First picture", MillisecondsSince(Start));
  TZyAxis& Axis = *Form.Graph().PrimaryXAxis();
  const double First = Form.Data().Total().FirstX, Length = Form.Data().Total().LastX - First;
  for (int Depth = 1; Length / std::pow(100, Depth) > 50 * SecondsPerRow; ++Depth) {
    const double Share = Length / std::pow(100, Depth), From = First + 0.618 * Length;
    Axis.ZoomIn(From, From + Share);
    const std::string Name = "a hundredth " + std::to_string(Depth) + " times";
    DrawRange(Form, Folder / ("zoom" + std::to_string(Depth) + ".png"), Name.c_str());
    Axis.SetStartStop(From + Share / 4, From + Share * 5 / 4);
    DrawRange(Form, Folder / ("pan" + std::to_string(Depth) + ".png"), "panned");
  }
  rusage Usage;
  getrusage(RUSAGE_SELF, &Usage);
  std::printf("Largest memory: %ld MB\n", Usage.ru_maxrss / 1024);
}

/// The other kinds of series, over a hundredth of the table.
void DrawKinds(const std::string& File, const std::filesystem::path& Folder) {
  const std::pair<const char*, void (*)(TLargeForm&)> Kinds[] = {
      {"area", [](TLargeForm& Form) { Form.ShowLine(true); }},
      {"bars", [](TLargeForm& Form) { Form.ShowBars(); }},
      {"candles", [](TLargeForm& Form) { Form.ShowCandles(); }}};
  for (const auto& [Name, Show] : Kinds) {
    TLargeForm Form(File);
    Show(Form);
    Form.Data().Open();
    Form.Data().WaitForAnswer();
    Bitmap Picture(Form.Width(), Form.Height());
    Draw(Form, Picture);
    const double First = Form.Data().Total().FirstX, Length = Form.Data().Total().LastX - First;
    Form.Graph().PrimaryXAxis()->ZoomIn(First + 0.6 * Length, First + 0.61 * Length);
    do Draw(Form, Picture);
    while (Form.Data().WaitForAnswer());
    examples::SavePictures(Folder / Name, Form.Width(), Form.Height(), [&](Graphics& Gr) { Form.Graph().PaintGr(Gr); });
  }
}

/// By the time of the last row: counting reads the whole file.
std::int64_t RowsIn(const std::string& File) {
  TSqlDataSet Base;
  Base.SetConnectionText("sqlite:" + File);
  Base.SetQuery("SELECT MAX(t) AS last FROM signal");
  Base.Open();
  return std::llround(Base.FieldByName("last").AsFloat() / SecondsPerRow) + 1;
}

/// The table and its summary, made where they are missing or have another number of rows; 0 takes any.
void Prepare(const std::string& File, std::int64_t Rows) {
  if (std::filesystem::exists(File)) {
    const std::int64_t There = RowsIn(File);
    const bool IsWanted = Rows == 0 || Rows == There;
    std::printf("%s has %lld rows%s\n", File.c_str(), static_cast<long long>(There), IsWanted ? "" : ": made anew");
    if (IsWanted) return;
  }
  if (Rows == 0) Rows = 100000000;
  const std::string Unfinished = File + ".making";
  std::filesystem::remove(Unfinished);
  if (!std::ofstream(Unfinished)) throw std::runtime_error("cannot write " + Unfinished);
  {
    TSqlDataSet Base;
    Base.SetConnectionText("sqlite:" + Unfinished);
    MakeTable(Base, Rows);
    TLargeForm Form(Unfinished);
    Form.Data().MakeSummary([Rows](std::int64_t Done) {
      ShowProgress("Summing up", Done, Rows - Rows / 1000);
      return true;
    });
  }
  std::filesystem::rename(Unfinished, File);
}

}  // namespace

int main(int ArgCount, char** Args) {
  TApplication Program(ArgCount, Args);
  try {
    std::int64_t Rows = 0;
    bool Shows = false;
    std::filesystem::path Folder = "out/large";
    for (int i = 1; i < ArgCount; ++i) {
      const std::string Text = Args[i];
      if (Text == "--rows" && i + 1 < ArgCount) {
        Rows = static_cast<std::int64_t>(std::stod(Args[++i]));
      } else if (Text == "--show") {
        Shows = true;
      } else {
        Folder = Text;
      }
    }
    std::filesystem::create_directories(Folder);
    const std::string File = (Folder / "signal.db").string();
    Prepare(File, Rows);
    TLargeForm Form(File);
    Form.ShowLine(false);
    if (!Shows || !Program.HasDisplay()) {
      DrawZooms(Form, Folder);
      DrawKinds(File, Folder);
      std::cout << "Wrote " << (Folder / "all.png").string() << '\n';
      return 0;
    }
    Form.Data().Open();
    Form.Show();
    return Program.Run();
  } catch (const std::exception& Error) {
    std::cerr << "large: " << Error.what() << '\n';
    return 1;
  }
}
