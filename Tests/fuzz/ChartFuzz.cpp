// Whole charts: whatever the bytes, reading them as the record of a graph or of a pie, in a stream, as XML and as INI,
// ends in a chart or in an exception of ours. Either way the chart is whole: it can be painted, undone and redone, and
// what it writes is read by an empty one, which writes the same.

#include <algorithm>
#include <memory>
#include <string>

#include "fuzz/Check.h"
#include "fuzz/EachForm.h"
#include "fuzz/FontLeaks.h"
#include "graph/ZyGraph2D.h"
#include "pie/ZyPieDonut.h"
#include "platform/controls/TApplication.h"
#include "platform/controls/TForm.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/Application.h"
#include "undo/ZyUndoStack.h"

namespace zy::testing {
namespace {

template <class TKind>
struct TChart {
  TChart() {
    Form.SetName("Form");
    Graph->SetName("Chart");
    Graph->SetParent(&Form);
    Graph->SetUndoStack(&Stack);
  }
  /// What a record gives to the application, for want of a form, goes with the chart.
  ~TChart() {
    const auto& All = Application().Components();
    while (All.size() > BesideForms) delete All.back();
  }
  const std::size_t BesideForms = Application().Components().size();
  TForm Form;
  TZyUndoStack Stack{&Form};
  TKind* Graph = new TKind(&Form);
};

/// Paints, whatever bounds the record gave the chart.
template <class TKind>
void Paint(TKind& Graph) {
  Graph.SetBounds(0, 0, 160, 120);
  Bitmap Picture(160, 120);
  Graphics Canvas(Picture);
  Graph.PaintGr(Canvas);
}

std::string Written(const TZyCustomGraph& Graph) {
  TMemoryStream Stream;
  Graph.WriteTo(Stream);
  return std::string(reinterpret_cast<const char*>(Stream.Bytes().data()), Stream.Bytes().size());
}

template <class TWork>
void Attempt(const TWork& Work) {
  try {
    Work();
  } catch (const Exception&) {
  }
}

void ReadBytes(TZyCustomGraph& Graph, std::string_view Text) {
  TMemoryStream Stream(std::as_bytes(std::span(Text)));
  try {
    Graph.ReadFrom(Stream);
  } catch (const Exception& Error) {
    Check(false, Error.what());
  }
  Check(Stream.Remaining() == 0, "a record is read to its end");
}

/// What a chart writes that has read a record and was painted.
template <class TKind>
std::string Passed(std::string_view Bytes) {
  TChart<TKind> Chart;
  ReadBytes(*Chart.Graph, Bytes);
  return Written(*Chart.Graph);
}

bool IsReading(const TZyGraph2D& Graph) { return Graph.LoadingRecord(); }
bool IsReading(const TZyPieChart& Chart) { return Chart.Updating(); }

template <class TKind, class TRead>
void CheckChart(const TRead& Read) {
  std::string Bytes;
  {
    TChart<TKind> Chart;
    Attempt([&] { Read(*Chart.Graph); });
    Check(!IsReading(*Chart.Graph) && !Chart.Graph->Updating(), "nothing stays in the state of reading");
    Attempt([&] { Paint(*Chart.Graph); });
    Attempt([&] {
      while (Chart.Stack.CanUndo()) Chart.Stack.Undo();
      Paint(*Chart.Graph);
      while (Chart.Stack.CanRedo()) Chart.Stack.Redo();
    });
    Bytes = Written(*Chart.Graph);
  }
  const std::string Once = Passed<TKind>(Bytes);
  Check(Once == Passed<TKind>(Once), "what was read writes a record that reads the same");
}

}  // namespace
}  // namespace zy::testing

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  static zy::TApplication Program;
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  using namespace zy;
  const std::string_view Text(reinterpret_cast<const char*>(Data), Size);
  testing::CheckEachForm(Text, "Chart", [](const auto& Read) {
    testing::CheckChart<TZyGraph2D>(Read);
    testing::CheckChart<TZyPieChart>(Read);
  });
  return 0;
}
