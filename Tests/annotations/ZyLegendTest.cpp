#include "annotations/ZyLegend.h"

#include <gtest/gtest.h>

#include <tuple>

#include "controls/ControlSamples.h"
#include "graph/SampleChart.h"
#include "persistence/ChartForms.h"
#include "texts/NumberText.h"
#include "undo/ZyUndoStack.h"

namespace zy::testing {
namespace {

// --- The grid, by figures worked out by hand ------------------------------------------------------------------------

/// "width x height" of the grid, then the corners of the symbols and the anchor of the title.
std::string Shape(const TZyLegendGridLook& Look, const TZyLegendTitle* Title, std::vector<SizeF> Captions) {
  std::vector<TZyLegendCell> Cells;
  for (const SizeF& Caption : Captions) Cells.push_back({Caption, {}});
  const TZyLegendGrid Grid(Look, Title, Cells);
  std::string Result = IntToStr(Grid.Width()) + "x" + IntToStr(Grid.Height());
  for (const TZyLegendCell& Cell : Cells) {
    Result += " " + IntToStr(Cell.Symbol.Left) + "," + IntToStr(Cell.Symbol.Top);
    EXPECT_EQ(Cell.Symbol.Width(), 20);
    EXPECT_EQ(Cell.Symbol.Height(), 12);
    EXPECT_EQ(Cell.Anchor.X, static_cast<float>(Cell.Symbol.Left + 24));
    EXPECT_NEAR(Cell.Anchor.Y, static_cast<float>(Cell.Symbol.Top + 6), 0.5);
  }
  if (Title == nullptr) return Result;
  return Result + " T" + FloatToStr(double(Grid.TitleAnchor().X)) + "," + FloatToStr(double(Grid.TitleAnchor().Y));
}

TEST(ZyLegendGridTest, PlacesItemsAsWorkedOutByHand) {
  const std::vector<SizeF> Five = {{30, 10}, {40, 10}, {50, 10}, {20, 10}, {25, 10}}, One = {{30, 10}};
  const std::vector<SizeF> Tall = {{30, 13}, {30, 13}, {30, 13}};
  const TZyLegendGridLook Columns{.ItemWidth = 20,
                                  .ItemHeight = 12,
                                  .DistanceItemCaption = 4,
                                  .DistanceBetweenLines = 3,
                                  .DistanceBetweenColumns = 10,
                                  .DistanceToBorder = 8};
  TZyLegendGridLook Two = Columns, Halves = Columns, Rows = Columns, Each, Fixed;
  Two.Columns = 2;
  Halves.DistanceBetweenLines = 2.5f;
  Rows.Order = TZyItemsOrder::ByRow;
  Each = Fixed = Rows;
  Rows.Rows = 2;
  Each.Rows = 5;
  Fixed.FixedWidth = 400;
  TZyLegendTitle Centre{{200, 20}, 2, 3, TAlignment::taCenter}, Left = Centre, Right = Centre, Narrow = Centre;
  Left.Alignment = TAlignment::taLeftJustify;
  Right.Alignment = TAlignment::taRightJustify;
  Narrow.Extent.Width = 20;
  const std::tuple<const char*, const TZyLegendGridLook*, const TZyLegendTitle*, std::vector<SizeF>, std::string>
      Cases[] = {
          {"nothing", &Columns, nullptr, {}, "16x16"},
          {"one column", &Columns, nullptr, Five, "90x88 8,8 8,23 8,38 8,53 8,68"},
          {"two columns: 3 of 5 fill half the height", &Two, nullptr, Five, "149x58 8,8 8,23 8,38 92,8 92,23"},
          {"halves go to the even pixel", &Halves, nullptr, Tall, "70x61 8,8 8,24 8,40"},
          {"two rows of 5 become three, each centred", &Rows, nullptr, Five, "144x58 8,8 72,8 8,23 92,23 47,38"},
          {"as many rows as items", &Each, nullptr, Five, "90x88 18,8 13,23 8,38 23,53 20,68"},
          {"a row in a fixed width", &Fixed, nullptr, Five, "341x28 37,8 101,8 175,8 259,8 313,8"},
          {"a narrow title", &Columns, &Narrow, One, "70x53 8,33 T35,10"},
          {"a wide title in the middle", &Columns, &Centre, One, "216x53 81,33 T108,10"},
          {"at the left", &Columns, &Left, One, "216x53 8,33 T8,10"},
          {"at the right", &Columns, &Right, One, "216x53 154,33 T208,10"},
      };
  for (const auto& [What, Look, Title, Captions, Expected] : Cases)
    EXPECT_EQ(Shape(*Look, Title, Captions), Expected) << What;
}

// --- The legend of a chart ------------------------------------------------------------------------------------------

class ZyLegendTest : public ::testing::Test, public TSampleChart {
 protected:
  ZyLegendTest() {
    Legend->SetName("Legend");
    Legend->SetParent(Graph);
    Legend->SetGraph(Graph);
    for (const char* Name : {"A", "B", "C"}) AddSeries(Name, {0, 1}, {1, 2})->SetCaption(Name);
  }
  std::string Listed() {
    Paint();
    std::string Result;
    for (const auto& Item : Legend->LegendCaptions()) Result += Item->PlainText();
    return Result;
  }
  TZySeries& Series(const char* Name) { return dynamic_cast<TZySeries&>(*Form.FindComponent(Name)); }
  TRect Box() { return Legend->BoundsRect(); }

  TZyLegend* Legend = new TZyLegend(&Form);
};

TEST_F(ZyLegendTest, ListsTheSeriesInTheirOrder) {
  EXPECT_EQ(Listed(), "ABC");
  Series("A").SetLayer(5);
  EXPECT_EQ(Listed(), "BCA");
  Series("A").SetLayer(-1);
  EXPECT_EQ(Listed(), "ABC");
  Series("B").SetVisible(false);
  EXPECT_EQ(Listed(), "AC");
  Series("C").SetMergeLegendItemWith(&Series("B"));
  Series("C").SetIncludeInLegend(false);
  EXPECT_EQ(Listed(), "AB") << "the hidden partner of a visible series";
  Legend->ItemsOrderList()->SetText("Form.C\nForm.B\nForm.Graph\nForm.Nobody\nForm.B");
  EXPECT_EQ(Listed(), "BA");
  TZyGraph2D& Other = AddCoupled();
  auto* const OtherY = new TZyAxis(&Form);
  OtherY->SetPosition(TZyAxisPosition::Left);
  OtherY->SetParent(&Other);
  Other.SetPrimaryYAxis(OtherY);
  auto* const Coupled = AddSeries("D", {0, 1}, {1, 2});
  Coupled->SetCaption("D");
  Coupled->SetYAxis(OtherY);
  EXPECT_EQ(Listed(), "BAD");
  Other.SetPrimaryXAxis(OtherY);
  EXPECT_EQ(Listed(), "BA") << "no longer coupled";
  Other.SetPrimaryXAxis(X);
  EXPECT_EQ(Listed(), "BAD");
  Legend->SetGraph(&Other);  // whose X axis is the other one's
  EXPECT_EQ(Listed(), "ABD") << "the order list is for series of the legend's own graph";
  delete &Series("A");
  EXPECT_EQ(Listed(), "BD");
  Legend->SetOnGetLegendItemCaption(
      [](TObject*, TZyLegendItemCaptionEventArgs& e) { e.Caption = IntToStr(e.Index) + e.Caption; });
  EXPECT_EQ(Listed(), "0B1D");
  delete &Other;
  EXPECT_EQ(Legend->Graph(), nullptr);
  EXPECT_TRUE(Graph->RelatedLegends().empty());
  EXPECT_EQ(Listed(), "0B") << "the parent is taken for the graph";
  TZyGraph2D& Third = AddCoupled();
  auto* const ThirdY = new TZyAxis(&Form);
  ThirdY->SetPosition(TZyAxisPosition::Left);
  ThirdY->SetParent(&Third);
  AddSeries("E", {0, 1}, {1, 2})->SetYAxis(ThirdY);
  Series("E").SetCaption("E");
  EXPECT_EQ(Listed(), "0B1E");
  delete &Third;
  EXPECT_EQ(Listed(), "0B") << "without those of a coupled graph that is gone";
}

TEST_F(ZyLegendTest, IsAsLargeAsItsContent) {
  const Font Face("Arial", 9, {});
  const int Width = 16 + 84 + RoundToPixels(CaptionExtent(Face, "C").Width);  // the widest
  const int Line = RoundToPixels(CaptionExtent(Face, "M").Height), Height = 16 + 3 * Line + 2 * 3;
  Paint();
  EXPECT_EQ(Box(), (TRect{0, 0, Width, Height}));
  Legend->SetDropShadow(true);
  for (const auto& [Color, Shadow] : {std::pair{0xC7FFFFFFu, 0}, {0xC8FFFFFFu, 1}, {0u, 0}}) {
    Legend->SetBackColor(Color);
    Paint();
    EXPECT_EQ(Box(), (TRect{0, 0, Width + 5 * Shadow, Height + 4 * Shadow})) << Color;
    EXPECT_EQ(Legend->CMHitTest(Width + 1, 1), Shadow == 0);
  }
  Legend->BackgroundGradient().SetVisible(true);
  Paint();
  EXPECT_EQ(Box(), (TRect{0, 0, Width + 5, Height + 4}));
  Series("B").Line().SetWidth(32);
  Paint();
  EXPECT_EQ(Legend->Height(), 16 + 3 * 32 + 2 * 3 + 4) << "the tallest symbol decides";
  Legend->SetItemHeight(50);
  Paint();
  EXPECT_EQ(Legend->Height(), 16 + 3 * 50 + 2 * 3 + 4);
}

TEST_F(ZyLegendTest, StandsBesideTheDataWhereItIsDocked) {
  UsePlainAxes();
  Legend->SetCaption("Title");
  Legend->SetCaptionVisible(true);
  for (int Place = 0; Place < 10; ++Place) {
    const auto Position = static_cast<TZyLegendPosition>(Place);
    const std::string Name(EnumInfo(Position).Values[static_cast<std::size_t>(Place)]);
    const bool IsAcross = Name.starts_with("Bottom") || Name.starts_with("Top");
    Legend->SetPosition(Position);
    Legend->SetColumns(2);
    Paint();
    EXPECT_EQ(Legend->ItemsOrder(), IsAcross ? TZyItemsOrder::ByRow : TZyItemsOrder::ByColumn) << Name;
    RectF Area{50, 50, 501, 251};
    const auto Width = static_cast<float>(Legend->Width()), Height = static_cast<float>(Legend->Height());
    (IsAcross ? Area.Height : Area.Width) -= IsAcross ? Height : Width;
    if (Name.starts_with("Top")) Area.Y += Height;
    if (Name.starts_with("Left")) Area.X += Width;
    EXPECT_EQ(Graph->DrawingArea(), Area) << Name;
    // The borders of the chart take 39 pixels at the left, 50 at the top and the right, 90 below.
    const float Side = Name.starts_with("Top")    ? 50
                       : Name.starts_with("Left") ? 39
                       : IsAcross                 ? 310 - Height
                                                  : 550 - Width;
    EXPECT_EQ(static_cast<float>(IsAcross ? Legend->Top() : Legend->Left()), Side) << Name;
    float Along = IsAcross ? 300 - Width / 2 : 200 - Height / 2;
    if (Name.ends_with("OfAxis"))
      Along = IsAcross ? Area.X + (Area.Width - Width) / 2 : Area.Y + (Area.Height - Height) / 2;
    if (Name.ends_with("TopOfAxis")) Along = Area.Y;
    EXPECT_NEAR(static_cast<float>(IsAcross ? Legend->Left() : Legend->Top()), Along, 1) << Name;
  }
  Legend->SetVisible(false);
  Paint();
  EXPECT_EQ(Graph->DrawingArea(), (RectF{50, 50, 501, 251})) << "a hidden one gives its room back";
  Legend->SetVisible(true);
  Legend->SetPosition(TZyLegendPosition::BottomCenterOfAxis);
  Paint();
  Graph->SetWidth(Legend->Width() + 4);
  Graph->SetDistanceBorderAxisLeft(100);
  Paint();
  EXPECT_EQ(Legend->Left(), 4) << "where it is not cut off";
}

TEST_F(ZyLegendTest, AStoredFormKeepsTheOrderOfItemsAtEveryPlace) {
  Legend->SetName("Legend");
  for (const auto Position : {TZyLegendPosition::BottomCenterOfGraph, TZyLegendPosition::LeftCenterOfGraph})
    for (const auto Order : {TZyItemsOrder::ByRow, TZyItemsOrder::ByColumn}) {
      Legend->SetPosition(TZyLegendPosition::FreeFloating);
      Legend->SetPosition(Position);
      Legend->SetItemsOrder(Order);
      TForm Loaded;
      ReadBack(Form, Loaded);
      EXPECT_EQ(dynamic_cast<TZyLegend&>(*Loaded.FindComponent("Legend")).ItemsOrder(), Order);
    }
}

TEST_F(ZyLegendTest, APositionIsOneStepOfUndo) {
  TZyUndoStack Stack(&Form);
  Graph->SetUndoStack(&Stack);
  ASSERT_EQ(Legend->UndoStack(), &Stack);
  Legend->SetBounds(33, 44, 1, 1);
  Legend->SetPosition(TZyLegendPosition::BottomCenterOfGraph);
  Paint();
  EXPECT_EQ(Stack.UndoCount(), 1);
  EXPECT_EQ(Stack.UndoList().Get(0), "Legend position");
  Stack.Undo();
  EXPECT_EQ(Legend->Position(), TZyLegendPosition::FreeFloating);
  EXPECT_EQ(Legend->ItemsOrder(), TZyItemsOrder::ByColumn);
  EXPECT_EQ((TPoint{Legend->Left(), Legend->Top()}), (TPoint{33, 44}));
  Legend->SetPosition(TZyLegendPosition::RightCenterOfGraph);
  Legend->SetItemsOrder(TZyItemsOrder::ByRow);
  Legend->SetPosition(TZyLegendPosition::FreeFloating);
  Stack.Undo();
  Stack.Redo();
  EXPECT_EQ(Legend->ItemsOrder(), TZyItemsOrder::ByRow) << "a docked place asks for another one, also in between";
  Stack.Clear();
  Legend->SetBorderRaised(true);
  EXPECT_FALSE(Legend->Frame().Visible());
  Stack.Undo();
  EXPECT_TRUE(Legend->Frame().Visible());
  EXPECT_FALSE(Stack.CanUndo());
}

TEST_F(ZyLegendTest, PaintsItsPartsAndMeasuresOnlyWhatChanged) {
  Legend->SetBackColor(0xFFABCDEF);
  Legend->SetCaption("Title");
  Legend->SetCaptionVisible(true);
  int Asked = 0;
  std::vector<TRect> Drawn;
  Legend->SetOnGetLegendItemCaption([&](TObject*, TZyLegendItemCaptionEventArgs&) { ++Asked; });
  Legend->SetOnDrawLegendItem([&](TObject*, const TZyLegendItemDrawArgs& e) { Drawn.push_back(e.Rect); });
  const TCalls First = Calls(), Second = Calls();
  EXPECT_EQ(Asked, 3) << "a plain repaint lists nothing";
  EXPECT_EQ(Drawn.size(), 6u);
  EXPECT_EQ(Drawn[1], Legend->ItemRects()[1]);
  for (const char* Part : {"FillRectangle(FFABCDEF", "\"Title\"", "\"A\"", "\"B\"", "\"C\""})
    EXPECT_EQ(CountOf(Second, Part), 1) << Part;
  Series("B").SetCaption("<%Form.Graph.Caption%>");
  Graph->SetCaption("x");
  EXPECT_EQ(CountOf(Calls(), "\"x\""), 1);
  Graph->SetCaption("a longer text");  // larger: the legend grows
  const int Before = Legend->Width();
  EXPECT_EQ(CountOf(Calls(), "\"a longer text\""), 1);
  EXPECT_GT(Legend->Width(), Before);
  Series("B").SetCaption("\\c[nonsense]B");
  Calls();
  EXPECT_NE(Listed().find("nonsense"), std::string::npos) << "what cannot be read is shown as it stands";
}

TEST_F(ZyLegendTest, HandlersMayFreeSeriesAndTheLegend) {
  Legend->SetOnGetLegendItemCaption([&](TObject*, TZyLegendItemCaptionEventArgs& e) {
    if (e.Index == 0) delete Form.FindComponent("B");
  });
  Paint();
  EXPECT_EQ(Listed(), "AC");
  Legend->SetOnGetLegendItemCaption({});
  Legend->SetOnDrawLegendItem([&](TObject* Sender, const TZyLegendItemDrawArgs&) { delete Sender; });
  Paint();
  EXPECT_TRUE(Graph->RelatedSeries().empty());
  AddSeries("E", {0, 1}, {1, 2});
  Legend->SetOnDrawLegendItem([&](TObject*, const TZyLegendItemDrawArgs&) { delete Legend; });
  Paint();
  auto* const Docked = new TZyLegend(&Form);
  Docked->SetParent(Graph);
  Docked->SetPosition(TZyLegendPosition::LeftTopOfAxis);
  Docked->SetOnGetLegendItemCaption([&](TObject*, TZyLegendItemCaptionEventArgs&) { delete Docked; });
  Paint();
  EXPECT_TRUE(Graph->RelatedLegends().empty());
}

TEST_F(ZyLegendTest, RecordsKeepTheHeightThatWasSet) {
  Legend->SetItemHeight(50);
  Legend->BackgroundGradient().SetVisible(true);
  Paint();
  const int Height = Legend->Height();
  for (const TForm3 Kind : AllForms) {
    const std::string Text = Written(*Graph, Kind);
    Legend->SetItemHeight(0);
    Legend->SetVisible(false);
    Read(*Graph, Kind, Text);
    Paint();
    EXPECT_TRUE(Legend->Visible());
    EXPECT_EQ(Legend->Height(), Height);
    EXPECT_EQ(Listed(), "ABC");
  }
  // A record of an older writer ends behind the title: what came later stays as it is.
  TMemoryStream Stream;
  Legend->WriteTo(Stream);
  std::string Old = AsText(Stream);
  TMemoryStream Gradient;
  ToStream(Gradient, Legend->BackgroundGradient());
  Old.resize(Old.size() - AsText(Gradient).size() - 3);  // the byte before it, the shadow, the byte behind
  Legend->SetColumns(3);
  TMemoryStream Cut(AsBytes(Old + '\0'));
  Legend->ReadFrom(Cut);
  EXPECT_EQ(Legend->Columns(), 1);
  EXPECT_TRUE(Legend->BackgroundGradient().Visible());
  EXPECT_EQ(Cut.Remaining(), 0);
}

}  // namespace
}  // namespace zy::testing
