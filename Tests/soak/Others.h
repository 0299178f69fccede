#pragma once

#include <random>
#include <string>
#include <vector>

#include "annotations/ZyMovable.h"
#include "dialogs/controls/ZyLinkedChecks.h"
#include "framework/Bytes.h"
#include "graph/SampleChart.h"
#include "persistence/RandomChart.h"
#include "platform/controls/TApplication.h"
#include "platform/framework/XmlDocument.h"
#include "platform/sql/TSqlDataSet.h"
#include "tables/ZyTableData.h"
#include "texts/Exceptions.h"
#include "undo/ZyUndoStack.h"

namespace zy::testing {

/// What else a soak uses: records of charts, links of controls to what comes and goes, a table that stays in its file.
/// Each use returns what was found to be wrong, nothing when all held.
class TOthers {
 public:
  explicit TOthers(unsigned Seed) : FRandom(Seed) {
    FBase.SetConnectionText((FFolder / "rows.db").string());
    std::fclose(std::fopen((FFolder / "rows.db").c_str(), "w"));
    FBase.ExecSQL("PRAGMA synchronous = OFF");
    FBase.ExecSQL("CREATE TABLE rows (t DOUBLE PRECISION PRIMARY KEY, v DOUBLE PRECISION)");
    AppendRows(FewRows);
  }

  /// A chart of everything through its record, in a stream or as XML.
  std::string StoreRecords() {
    const bool AsXml = Roll(2) == 0;
    std::vector<std::string> Texts;
    {
      const TRandomChart Chart(static_cast<unsigned>(FRandom()), FData);
      for (TZyGraph2D* Graph : Chart.Graphs()) Texts.push_back(Written(*Graph, AsXml));
    }
    const TGraphPair Loaded(false);
    const std::vector<TZyGraph2D*> Graphs = Loaded.Graphs();
    for (std::size_t i = 0; i < Texts.size(); ++i) Read(*Graphs[i], AsXml, Texts[i]);
    for (std::size_t i = 0; i < Texts.size(); ++i)
      if (Written(*Graphs[i], AsXml) != Texts[i]) return "a record is not what was read";
    return {};
  }

  /// Boxes that show a property of markers, which are changed by both, undone, freed and brought back.
  std::string UseLinks() {
    TSampleChart Chart;
    Chart.Form.SetName("Linked");
    TZyUndoStack Stack(&Chart.Form);
    Stack.SetLimit(0);
    std::vector<std::pair<std::string, TZyCheckBox*>> Boxes;
    for (TZyMovable* Marker : Chart.AddMarkers("")) {
      Marker->SetUndoStack(&Stack);
      auto* const Box = new TZyCheckBox(&Chart.Form);
      Box->SetParent(&Chart.Form);
      Box->PropertyLinks().Items().Add("Linked." + Marker->Name() + ".ClipToData");
      Boxes.emplace_back(Marker->Name(), Box);
    }
    TApplication::Idle();
    for (int Action = 0; Action < 60; ++Action) {
      const auto& [Name, Box] = Boxes[static_cast<std::size_t>(Roll(static_cast<int>(Boxes.size())))];
      auto* const Marker = dynamic_cast<TZyMovable*>(Chart.Form.FindComponent(Name));
      const int What = Roll(6);
      if (What == 0) Stack.Undo(Roll(3));
      if (What == 1) Stack.Redo(Roll(3));
      if (What == 2 && Marker != nullptr) {
        Stack.PushComponent(Marker, "gone");
        delete Marker;
      } else if (What == 3 && Marker != nullptr) {
        Marker->SetClipToData(!Marker->ClipToData());
      } else if (What > 3) {
        Box->SetChecked(!Box->Checked());
      }
      TApplication::Idle();
      for (const auto& [Each, Shown] : Boxes)
        if (const auto* const Now = dynamic_cast<TZyMovable*>(Chart.Form.FindComponent(Each));
            Now != nullptr && Now->ClipToData() != Shown->Checked())
          return "a linked box does not show what " + Each + " has";
    }
    while (Stack.CanUndo()) Stack.Undo();
    for (const auto& [Name, Box] : Boxes)
      if (Chart.Form.FindComponent(Name) == nullptr) return "a marker did not come back";
    return {};
  }

  /// A chart over a table that grows, while it is zoomed, waits or does not, and is closed and opened.
  std::string UseTable() {
    if (FRows > 2 * FewRows) FBase.ExecSQL("DELETE FROM rows WHERE t >= " + std::to_string(FRows = FewRows));
    TSampleChart Chart;
    TZyTableData Data;
    Data.SetConnectionText(FBase.ConnectionText());
    Data.SetTableName("rows");
    Data.SetXField("t");
    Data.SetYField("v");
    Data.SetKind(Roll(2) == 0 ? TZyTableKind::Points : TZyTableKind::Records);
    Data.SetXAxis(Chart.X);
    TDataSource Source;
    Source.SetDataSet(&Data);
    TZySeries& Series = *Chart.AddSeries("Series");
    const bool IsPoints = Data.Kind() == TZyTableKind::Points;
    for (auto& [Vector, Field] : {std::pair{Series.XData(), "t"}, std::pair{Series.YData(), IsPoints ? "v" : "Mean"}}) {
      dynamic_cast<TZyDoubleVector&>(*Vector).SetDataSource(&Source);
      dynamic_cast<TZyDoubleVector&>(*Vector).SetDataField(Field);
    }
    TSampleChart::FixEnds(Chart.X, 0, FewRows);
    Data.Open();
    for (int Action = 0; Action < 20; ++Action) {
      const int What = Roll(8);
      if (What == 0) AppendRows(1 + Roll(50));
      if (What == 1) Data.Refresh();
      if (What == 2) Data.Close(), Data.Open();
      if (What == 3) Data.WaitForAnswer();
      if (What > 3) {
        const double Start = 50 * Roll(100), Stop = Start + 50 * (1 + Roll(100));
        Chart.X->SetStart(Start);
        Chart.X->SetStop(Stop);
      }
      Chart.Paint();
    }
    Data.Refresh();
    int Questions = 0;
    do Chart.Paint();
    while (Data.WaitForAnswer() && ++Questions < 20);
    if (Questions == 20) return "the table is asked without an end";
    if (!Data.LastError().empty()) return "the table: " + Data.LastError();
    return Data.Total().Count == FRows ? std::string() : "the table has other rows than were put there";
  }

 private:
  int Roll(int Count) { return static_cast<int>(FRandom() % static_cast<unsigned>(Count)); }

  void AppendRows(int Count) {
    std::string Rows;
    for (int i = 0; i < Count; ++i, ++FRows)
      Rows += (Rows.empty() ? "(" : ", (") + std::to_string(FRows) + ", " + std::to_string(Roll(100)) + ")";
    FBase.ExecSQL("INSERT INTO rows VALUES " + Rows);
  }

  static std::string Written(const TZyGraph2D& Graph, bool AsXml) {
    if (AsXml) {
      const TXMLDocument Document("Chart");
      Graph.WriteTo(Document.DocumentElement(), true);
      return Document.SaveToText();
    }
    TMemoryStream Stream;
    Graph.WriteTo(Stream, true);
    return AsText(Stream);
  }
  static void Read(TZyGraph2D& Graph, bool AsXml, const std::string& Text) {
    if (AsXml) {
      TXMLDocument Document("Chart");
      Document.LoadFromText(Text);
      Graph.ReadFrom(Document.DocumentElement());
    } else {
      TMemoryStream Stream(AsBytes(Text));
      Graph.ReadFrom(Stream);
    }
    for (TZySeries* Series : Graph.RelatedSeries()) Quieten(*Series);
  }

  static constexpr int FewRows = 5000;

  std::mt19937 FRandom;
  const TTemporaryFolder FFolder;
  TSqlDataSet FBase;
  TSampleData FData;
  int FRows = 0;
};

}  // namespace zy::testing
