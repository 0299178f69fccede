// Every published setter of the chart against the undo stack: whatever the user changes, undo brings it back.

#include <gtest/gtest.h>

#include <limits>

#include "controls/ControlSamples.h"
#include "undo/UndoWalk.h"

namespace zy {
namespace {

using testing::IsUndone;
using testing::TUndoForm;
using testing::TUndoWalk;

TEST(ZyChartUndoTest, EverySetterPushesOneStepThatUndoReverts) {
  TUndoForm Form;
  TZyUndoStack& Stack = Form.Stack;
  std::mt19937 Random(5);
  int Tried = 0;
  for (TPersistent* Object : Form.Objects()) {
    for (const TPropInfo* Info : Object->ClassInfo().Properties()) {
      if (!IsUndone(*Info) || Info->IsOwnedObject) continue;
      const std::string Before = Form.Bytes();
      for (int Attempt = 0; Attempt < 20 && Form.Bytes() == Before; ++Attempt)
        if (!testing::SetAtRandom(*Object, *Info, Form.Form, Random)) break;
      if (Form.Bytes() == Before) continue;
      ++Tried;
      const std::string After = Form.Bytes();
      testing::RestoreOf(*Object, *Info)();  // the value that is there already is no step
      ASSERT_EQ(Stack.UndoList().Count(), 1) << Object->ClassName() << '.' << Info->Name;
      const std::string Label = Stack.UndoList().Get(0);
      const bool HasNoTexts = !std::string_view(Object->ClassName()).starts_with("TZy");
      EXPECT_TRUE(Info->Label ? Label == LoadResString(*Info->Label) : HasNoTexts || Label != Info->Name)
          << Object->ClassName() << '.' << Info->Name << ": " << Label;
      Stack.Undo();
      EXPECT_TRUE(Form.Bytes() == Before) << Object->ClassName() << '.' << Info->Name;
      Stack.Redo();
      EXPECT_TRUE(Form.Bytes() == After) << Object->ClassName() << '.' << Info->Name;
      Stack.Undo();
      Stack.Clear();
    }
  }
  EXPECT_GT(Tried, 60);
}

TEST(ZyChartUndoTest, AFormReadIntoItselfPushesNothing) {
  for (unsigned Seed = 1; Seed <= 5; ++Seed) {
    TUndoWalk Form(Seed);
    for (const char* Text : {"one", "two"}) Form.Chart.X->Rubrics()->Add(Text);
    Form.Walk(300);
    Form.Form.SetChildIndex(Form.Stack, std::numeric_limits<int>::max());  // while it is read itself it is silent
    for (TComponent* Component : Form.Form.Components())
      if (auto* const Part = dynamic_cast<TGraphicControl*>(Component); Part != nullptr && Part->Parent() == nullptr)
        Part->SetParent(&Form.Form);  // as the reader does with an axis or a legend whose graph was freed
    for (TComponent* Component : Form.Form.Components())
      if (auto* const Legend = dynamic_cast<TZyLegend*>(Component))
        Legend->PreparePaint();  // as it is when it was read
    Form.Stack.Clear();
    const std::string Bytes = testing::BytesOf(Form.Form);
    ReadBack(Form.Form, Form.Form);
    EXPECT_TRUE(testing::BytesOf(Form.Form) == Bytes) << Seed;
    for (int Step = 0; Step < Form.Stack.UndoList().Count(); ++Step) ADD_FAILURE() << Form.Stack.UndoList().Get(Step);
  }
}

TEST(ZyChartUndoTest, RandomWalksComeBackToTheFirstBytesInGroupsToo) {
  for (unsigned Seed = 1; Seed <= 20; ++Seed) {
    TUndoWalk Form(Seed);
    TZyUndoStack& Stack = Form.Stack;
    const std::string Before = Form.Text();
    Form.Walk(1000);
    const std::string After = Form.Text();
    EXPECT_NE(After, Before);
    const int Undone = Stack.RedoList().Count();  // the walk may have ended with an undo
    const int Steps = Stack.UndoList().Count();
    Form.UndoAll();
    std::string Now = Form.Text();
    EXPECT_TRUE(Now == Before) << "undone, seed " << Seed;
    EXPECT_EQ(Stack.RedoList().Count(), Steps + Undone);
    Stack.Redo(Steps - 1);
    Now = Form.Text();
    EXPECT_TRUE(Now == After) << "redone, seed " << Seed;
    Form.UndoAll();
    Now = Form.Text();
    EXPECT_TRUE(Now == Before) << "undone again, seed " << Seed;
  }
}

TEST(ZyChartUndoTest, WhatComesBackIsLoggedAgain) {
  TUndoForm Form;
  for (TComponent* Component : Form.Form.Components()) {
    if (dynamic_cast<TZyMovable*>(Component) == nullptr) continue;
    const std::string Name = Component->Name();
    Form.Stack.PushComponent(Component, "gone");
    delete Component;
    Form.Stack.Undo();
    auto& Marker = dynamic_cast<TZyMovable&>(*Form.Form.FindComponent(Name));
    Marker.SetClipToData(!Marker.ClipToData());
    EXPECT_EQ(Form.Stack.UndoList().Count(), 1) << Name;
    Form.Stack.Undo();
  }
}

}  // namespace
}  // namespace zy
