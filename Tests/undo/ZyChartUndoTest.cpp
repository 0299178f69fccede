// Every published setter of the chart against the undo stack: whatever the user changes, undo brings it back.

#include <gtest/gtest.h>

#include <random>

#include "framework/SampleComponent.h"
#include "graph/SampleChart.h"
#include "platform/framework/Reflection.h"
#include "undo/RandomSetters.h"
#include "undo/ZyUndoGroup.h"
#include "undo/ZyUndoStack.h"

namespace zy {
namespace {

using testing::Collect;
using testing::IsUndone;
using testing::SetAtRandom;
using testing::TSample;

/// A form with a chart of a series of each kind and a sample of every kind of property, all of which push to one stack.
class ZyChartUndoTest : public ::testing::Test {
 protected:
  ZyChartUndoTest() {
    Chart.Graph->SetParentFont(false);  // else the first colour of its own would end it, which is no step
    Stack.SetLimit(0);
    Chart.Graph->SetUndoStack(&Stack);
    for (TZySeries* Series : Kinds) Series->SetUndoStack(&Stack);  // also of those that have not joined the graph
    Sample.SetName("Sample");
    Sample.MakePart();
    for (TSample* const Part : {&Sample, Sample.Part()}) {
      Part->BeforeChange = [this](TPersistent* Instance, const char* Property) {
        Stack.PushProperty(Instance, Property, Property);
      };
      Collect(*Part, Objects);
    }
    for (TComponent* Component : Form.Components())
      if (dynamic_cast<TZyGraph2D*>(Component) != nullptr || dynamic_cast<TZyAxis*>(Component) != nullptr ||
          dynamic_cast<TZySeries*>(Component) != nullptr)
        Collect(*Component, Objects);
  }

  static std::string Text(TComponent& Root) { return testing::BytesOf(Root); }

  testing::TSampleChart Chart;
  const std::vector<TZySeries*> Kinds = Chart.AddOfEachKind("");
  TForm& Form = Chart.Form;
  TZyUndoStack Stack{&Form};
  TSample Sample{&Form};
  std::vector<TPersistent*> Objects;
};

TEST_F(ZyChartUndoTest, EverySetterPushesOneStepThatUndoReverts) {
  Stack.SetToMemoryStream(false);  // the walks have the other kind
  std::mt19937 Random(5);
  int Tried = 0;
  for (TPersistent* Object : Objects) {
    for (const TPropInfo* Info : Object->ClassInfo().Properties()) {
      if (!IsUndone(*Info) || Info->IsOwnedObject) continue;
      const std::string Before = Text(Form);
      for (int Attempt = 0; Attempt < 20 && Text(Form) == Before; ++Attempt)
        if (!SetAtRandom(*Object, *Info, Form, Random)) break;
      if (Text(Form) == Before) continue;
      ++Tried;
      const std::string After = Text(Form);
      testing::RestoreOf(*Object, *Info)();  // the value that is there already is no step
      ASSERT_EQ(Stack.UndoList().Count(), 1) << Object->ClassName() << '.' << Info->Name;
      const std::string Label = Stack.UndoList().Get(0);
      const bool HasNoTexts = !std::string_view(Object->ClassName()).starts_with("TZy");
      EXPECT_TRUE(Info->Label ? Label == LoadResString(*Info->Label) : HasNoTexts || Label != Info->Name)
          << Object->ClassName() << '.' << Info->Name << ": " << Label;
      Stack.Undo();
      EXPECT_EQ(Text(Form), Before) << Object->ClassName() << '.' << Info->Name;
      Stack.Redo();
      EXPECT_EQ(Text(Form), After) << Object->ClassName() << '.' << Info->Name;
      Stack.Undo();
      Stack.Clear();
    }
  }
  EXPECT_GT(Tried, 60);
}

TEST_F(ZyChartUndoTest, RandomWalksComeBackToTheFirstBytesInGroupsToo) {
  const std::string Before = Text(Form);
  for (unsigned Seed = 1; Seed <= 20; ++Seed) {
    std::mt19937 Random(Seed);
    int Level = 0;
    for (int Call = 0; Call < 3000; ++Call) {
      if (Random() % 10 == 0 && Level < 4) Stack.StartGroup("group"), ++Level;
      TPersistent& Object = *Objects[Random() % Objects.size()];
      const auto& Properties = Object.ClassInfo().Properties();
      const TPropInfo& Info = *Properties[Random() % Properties.size()];
      if (IsUndone(Info)) SetAtRandom(Object, Info, Form, Random);
      if (Random() % 50 == 0) Sample.SetShades(TSet<testing::TShade>::FromBits(Random() % 8));
      if (Random() % 50 == 0) Sample.Lines().Add("line " + std::to_string(Call));
      if (Random() % 8 == 0 && Level > 0) Stack.StopGroup(), --Level;
      if (Random() % 50 == 0 && Level == 0 && Stack.CanUndo()) Stack.Undo();  // forgets a branch now and then
    }
    while (Level-- > 0) Stack.StopGroup();
    const std::string After = Text(Form);
    ASSERT_NE(After, Before);
    const int Undone = Stack.RedoList().Count();  // the walk may have ended with an undo
    const int Steps = Stack.UndoList().Count();
    while (Stack.CanUndo()) Stack.Undo(std::min(Stack.UndoList().Count() - 1, static_cast<int>(Random() % 50)));
    ASSERT_TRUE(Text(Form) == Before) << "undone, seed " << Seed;
    ASSERT_EQ(Stack.RedoList().Count(), Steps + Undone);
    Stack.Redo(Steps - 1);
    ASSERT_TRUE(Text(Form) == After) << "redone, seed " << Seed;
    Stack.Undo(Steps - 1);
    ASSERT_TRUE(Text(Form) == Before) << "undone again, seed " << Seed;
    Stack.Clear();
  }
}

TEST_F(ZyChartUndoTest, WhatWasDeletedComesBackToItsPlaceWithWhatPointedAtIt) {
  std::vector<std::string> Names;
  for (TComponent* Component : Form.Components())
    if (Component != &Sample && Component != &Stack && Component != Chart.Graph) Names.push_back(Component->Name());
  ASSERT_GT(Names.size(), 20U);
  const std::string Before = Text(Form);
  for (const std::string& Name : Names) {
    {
      const TZyUndoGroup Group(&Stack, "gone");  // what pointed at it says so in steps of its own
      Stack.PushComponent(Form.FindComponent(Name), "gone");
      delete Form.FindComponent(Name);
    }
    const std::string After = Text(Form);
    for (int Round = 0; Round < 2; ++Round) {
      Stack.Undo();
      EXPECT_TRUE(Text(Form) == Before) << Name;
      Stack.Redo();
      EXPECT_TRUE(Text(Form) == After) << Name;
    }
    Stack.Undo();
    Stack.Clear();
  }
}

}  // namespace
}  // namespace zy
