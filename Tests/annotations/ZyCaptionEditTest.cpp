#include "annotations/ZyCaptionEdit.h"

#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextEdit>
#include <QTreeWidget>
#include <random>

#include "annotations/CaptionRoundTrip.h"
#include "controls/ControlSamples.h"
#include "series/ZyFittedLine.h"
#include "undo/ZyUndoStack.h"

namespace zy {
namespace {

class CaptionEditTest : public ::testing::Test {
 protected:
  CaptionEditTest() {
    AddStringToList("Plain", "", nullptr, GlobalStringList(), [this] { return FValue; });
    AddStringToList("Bold", "", nullptr, GlobalStringList(), [] { return "x\\by"; });
    FForm.SetBounds(0, 0, 400, 200);
    Put(FEdit, FForm, 0, 0, 380, 80);
    FEdit.SetName("Edit");
    ShowNow(FForm);
  }
  ~CaptionEditTest() override { GlobalStringList().RemoveContainer(nullptr); }

  void Press(int Key, Qt::KeyboardModifiers Keys = Qt::NoModifier, const QString& Text = {}) {
    QKeyEvent Event(QEvent::KeyPress, Key, Keys, Text);
    QCoreApplication::sendEvent(FEdit.Widget(), &Event);
  }
  void Type(const QString& Text) {
    for (const QChar C : Text) C == '\n' ? Press(Qt::Key_Return, {}, "\r") : Press(0, {}, C);
  }
  /// "caption|SelStart,SelLength".
  std::string State() const {
    return FEdit.Caption() + "|" + IntToStr(FEdit.SelStart()) + "," + IntToStr(FEdit.SelLength());
  }

  std::string FValue = "value";
  TForm FForm;
  TZyCaptionEdit FEdit{&FForm};
};

TEST_F(CaptionEditTest, KeysMoveOverVariablesAndRemoveThemWhole) {
  struct {
    const char* Caption;
    int Start;
    std::vector<std::pair<int, Qt::KeyboardModifiers>> Keys;
    const char* After;
  } const Cases[] = {
      {"a<%Plain%>b", 1, {{Qt::Key_Right, Qt::NoModifier}}, "a<%Plain%>b|6,0"},
      {"a<%Plain%>b", 6, {{Qt::Key_Left, Qt::NoModifier}}, "a<%Plain%>b|1,0"},
      {"a<%Plain%>b", 0, {{Qt::Key_Right, Qt::ShiftModifier}, {Qt::Key_Right, Qt::ShiftModifier}}, "a<%Plain%>b|0,6"},
      {"a<%Plain%>b", 6, {{Qt::Key_Backspace, Qt::NoModifier}}, "ab|1,0"},
      {"a<%Plain%>b", 1, {{Qt::Key_Delete, Qt::NoModifier}}, "ab|1,0"},
      {"a<%Plain%>b", 1, {{Qt::Key_Return, Qt::ShiftModifier}}, "a\r\n<%Plain%>b|2,0"},
      {"a<%Plain%>b", 3, {}, "a<%Plain%>b|1,0"},
  };
  for (const auto& Case : Cases) {
    FEdit.SetCaption(Case.Caption);
    FEdit.SetSelStart(Case.Start);
    for (const auto& [Key, Modifiers] : Case.Keys) Press(Key, Modifiers);
    EXPECT_EQ(State(), Case.After) << Case.Start;
    if (FEdit.CanUndo()) FEdit.Undo();
    EXPECT_EQ(FEdit.Caption(), Case.Caption);
  }
}

TEST_F(CaptionEditTest, TypingInARowIsOneStep) {
  FEdit.SetCaption("ab");
  FEdit.SetSelStart(1);
  Type("<%x\\\n");
  EXPECT_EQ(State(), "a<%<%x\\\\\r\nb|6,0");
  Press(Qt::Key_Home);
  Type("y");
  EXPECT_EQ(FEdit.UndoStack()->UndoCount(), 2);
  Press(Qt::Key_Z, Qt::ControlModifier);
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(State(), "ab|1,0");
  Press(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(FEdit.Caption(), "a<%<%x\\\\\r\nb");
  QInputMethodEvent Composed("か", {}), Committed;
  QCoreApplication::sendEvent(FEdit.Widget(), &Composed);
  EXPECT_EQ(FEdit.Caption(), "a<%<%x\\\\\r\nb") << "what is being composed is no text yet";
  Committed.setCommitString("漢");
  QCoreApplication::sendEvent(FEdit.Widget(), &Committed);
  EXPECT_NE(FEdit.Caption().find("漢"), std::string::npos);
}

TEST_F(CaptionEditTest, StylesComeByKeyAndGoIntoTheMarkup) {
  FEdit.SetCaption("ab<%Bold%>c");
  FEdit.Select(1, 1);
  for (const int Key : {Qt::Key_B, Qt::Key_I, Qt::Key_U, Qt::Key_O, Qt::Key_Plus}) Press(Key, Qt::ControlModifier);
  FEdit.SetSelColor(0xFF010203);
  EXPECT_EQ(FEdit.Caption(), "a\\b\\i\\u\\o\\+\\c[A=255, R=1, G=2, B=3]b\\b\\i\\u\\o\\+\\c[]<%Bold%>c\\b");
  EXPECT_TRUE(FEdit.Bold() && FEdit.Superscript());
  EXPECT_EQ(FEdit.SelVariable(), "");
  FEdit.Select(2, 2);
  EXPECT_EQ(FEdit.SelVariable(), "Bold");
  FEdit.SetSelVariable("Plain");
  EXPECT_EQ(FEdit.Variables().at(0).EditStart, 2);
  EXPECT_EQ(FEdit.Variables().at(0).EditLength, 5);
  const TZyRichCaption Before = FEdit.Caption();
  EXPECT_THROW(FEdit.SetSelVariable("No.Such"), Exception);
  EXPECT_THROW(FEdit.SetCaption("\\c[x]"), EConvertError);
  EXPECT_THROW(FEdit.SetFontName("a]"), EConvertError);
  EXPECT_EQ(FEdit.Caption(), Before);
}

TEST_F(CaptionEditTest, WhatIsNotEditedComesBackByteByByte) {
  for (const char* Caption : {"\\x\\b\\b", "a\rb\n", "\\c[A=1,R=2,G=3,B=4]a", "\\", "a%>%>b", "\\<%Bold%>b"}) {
    FEdit.SetCaption(Caption);
    EXPECT_EQ(FEdit.Caption(), Caption);
    Type("q");
    EXPECT_NE(FEdit.Caption(), Caption);
    FEdit.Undo();
    EXPECT_EQ(FEdit.Caption(), Caption) << "and after a step back";
  }
}

TEST_F(CaptionEditTest, TheClipboardCarriesVariablesAndTakesForeignTexts) {
  FEdit.SetCaption("a\\b<%Plain%>\\b");
  FEdit.SelectAll();
  FEdit.CopyToClipboard();
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "avalue");
  TZyCaptionEdit Other(&FForm);
  Other.PasteFromClipboard();
  EXPECT_EQ(Other.Caption(), "a\\b<%Plain%>\\b");
  const auto Paste = [&](const char* Format, const QByteArray& Bytes) {
    auto Content = std::make_unique<QMimeData>();
    Content->setData(Format, Bytes);
    QGuiApplication::clipboard()->setMimeData(Content.release());
    Other.SetCaption("_");
    Other.SelectAll();
    Press(Qt::Key_A);
    try {
      Other.PasteFromClipboard();
    } catch (const Exception&) {
      return "thrown " + Other.Caption();
    }
    return std::string(Other.Caption());
  };
  EXPECT_EQ(Paste("text/plain", "a\tb\x01\x02\r\nc\xEF\xBF\xBC<%Pi%>\\"), "a b\r\nc<%<%Pi%>%>\\\\");
  EXPECT_EQ(Paste("text/html", "<b>x</b>y<img src='file:///etc/passwd'><table><tr><td>z</td></tr></table>"),
            "\\bx\\by\r\nz\r\n");
  constexpr const char* Own = "application/x-qt-windows-mime;value=\"TZyCaptionEdit\"";
  EXPECT_EQ(Paste(Own, QByteArray("<\0%\0N\0o\0%\0>\0", 12)), "thrown _");
  EXPECT_EQ(Paste(Own, QByteArray("a\0b", 3)), "a") << "an odd number of bytes";
  EXPECT_EQ(Paste(Own, QByteArray()), "_");
}

TEST_F(CaptionEditTest, AWalkOfEditsKeepsVariablesWhole) {
  std::mt19937 Random(7);
  const auto Below = [&](int Count) { return static_cast<int>(Random() % static_cast<unsigned>(Count)); };
  FEdit.SetCaption("one <%Plain%> \\btwo\\b <%Bold%> three");
  for (int Step = 0; Step < 1500; ++Step) {
    FEdit.Select(Below(FEdit.ShownLength() + 1), Below(3) == 0 ? Below(9) - 4 : 0);
    switch (Below(14)) {
      case 0:
        Press(Qt::Key_Backspace);
        break;
      case 1:
        Press(Qt::Key_Delete);
        break;
      case 2:
        Press(Qt::Key_B, Qt::ControlModifier);
        break;
      case 3:
        Press(Qt::Key_Minus, Qt::ControlModifier);
        break;
      case 4:
        FEdit.CutToClipboard();
        break;
      case 5:
        FEdit.CopyToClipboard();
        break;
      case 6:
        FEdit.PasteFromClipboard();
        break;
      case 7:
        FEdit.Undo();
        break;
      case 8:
        FEdit.Redo();
        break;
      case 9:
        FEdit.SetSelVariable(Below(2) == 0 ? "Plain" : "Bold");
        break;
      case 10:
        FEdit.SetSelColor(Below(2) == 0 ? 0xFF000000 : 0xFFFF0000);
        break;
      case 11:
        Press(Qt::Key_Return);
        break;
      default:
        Type(QStringList{"a", "\\", "<%", "%>", "b", "א"}.at(Below(6)));
    }
    const TZyRichCaption Caption = FEdit.Caption();
    if (Caption.size() > 600) FEdit.SetCaption("<%Plain%>");
    ASSERT_EQ(zy::testing::RoundTripFault(Caption), "") << Step << ' ' << Caption;
    int Found = 0;
    for (const TZyCaptionRun& Run : ReadCaption(Caption, nullptr)) Found += Run.Atom != nullptr ? 1 : 0;
    if (Caption.size() > 600) continue;
    ASSERT_EQ(Found, static_cast<int>(FEdit.Variables().size())) << Step << ' ' << Caption;
    for (const TZyCaptionVariableRec& Each : FEdit.Variables())
      ASSERT_TRUE(Each.Variable == "Plain" || Each.Variable == "Bold") << Each.Variable;
  }
}

/// In a line that runs to the left the arrows go by what is seen; whichever way they take, none stops inside.
TEST_F(CaptionEditTest, TextFromRightToLeftKeepsVariablesWhole) {
  const std::string Caption = "\u05e9\u05dc\u05d5\u05dd <%Plain%> \u05e2\u05d5\u05dc\u05dd";
  FValue = "\u05d0\u05d1 12";
  FEdit.SetCaption(Caption);
  const TZyCaptionVariableRec Variable = FEdit.Variables().at(0);
  std::mt19937 Random(3);
  for (int Step = 0; Step < 300; ++Step) {
    constexpr int Keys[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End};
    Press(Keys[Random() % 4], Random() % 3 == 0 ? Qt::ShiftModifier : Qt::NoModifier);
    for (const int Place : {FEdit.SelStart(), FEdit.SelStart() + FEdit.SelLength()})
      ASSERT_FALSE(Place > Variable.EditStart && Place < Variable.EditStart + Variable.EditLength) << Step;
  }
  EXPECT_EQ(FEdit.Caption(), Caption);
  FEdit.Select(Variable.EditStart, 0);
  QInputMethodEvent Composed("\u05d2", {}), Committed;
  QCoreApplication::sendEvent(FEdit.Widget(), &Composed);
  EXPECT_EQ(FEdit.Variables().size(), 1U) << "while it is composed";
  Committed.setCommitString("\u05d2");
  QCoreApplication::sendEvent(FEdit.Widget(), &Committed);
  EXPECT_EQ(FEdit.Caption(), "\u05e9\u05dc\u05d5\u05dd \u05d2<%Plain%> \u05e2\u05d5\u05dc\u05dd");
}

TEST_F(CaptionEditTest, HugeTextsAreTaken) {
  std::string Huge(300'000, 'x');
  for (std::size_t Place = 100; Place < Huge.size(); Place += 100) Huge[Place] = ' ';
  FEdit.SetCaption(Huge + "<%Plain%>");
  FEdit.Select(FEdit.ShownLength(), 0);
  Type("y");
  EXPECT_EQ(FEdit.Caption().size(), Huge.size() + std::string_view("<%Plain%>y").size());
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(FEdit.Caption(), Huge + "<%Plain%>");
}

TEST_F(CaptionEditTest, TheTreeOfVariablesPutsOneIn) {
  FForm.SetName("Page");
  TZyFittedLine Fit(&FForm);
  Fit.SetName("Fit");
  FEdit.SetFocus();
  FEdit.SetCaption("a");
  Press(Qt::Key_Space, Qt::ControlModifier, " ");
  auto* const Tree = QApplication::activePopupWidget()->findChild<QTreeWidget*>();
  ASSERT_NE(Tree, nullptr);
  const auto Key = [Tree](int Code) {
    QKeyEvent Event(QEvent::KeyPress, Code, Qt::NoModifier);
    QCoreApplication::sendEvent(Tree, &Event);
  };
  Key(Qt::Key_Return);
  EXPECT_NE(QApplication::activePopupWidget(), nullptr) << "a group is no variable";
  const auto Found = Tree->findItems("AverageX", Qt::MatchExactly | Qt::MatchRecursive);
  ASSERT_EQ(Found.size(), 1);
  EXPECT_EQ(Found.front()->parent()->text(0), "Fit");
  Tree->setCurrentItem(Found.front());
  Key(Qt::Key_Return);
  EXPECT_EQ(FEdit.Caption(), "a<%Page.Fit.AverageX%>");
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  FEdit.SetCaption("<%Page.Fit.AverageX;0.00%>");
  Press(Qt::Key_Space, Qt::ControlModifier, " ");
  EXPECT_EQ(Tree->currentItem()->text(0), "AverageX") << "where the caret is";
  Key(Qt::Key_Escape);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(FEdit.Caption(), "<%Page.Fit.AverageX;0.00%>");
}

TEST_F(CaptionEditTest, ValuesFollowTheirVariablesAndTheControlOutlivesItsWidget) {
  FEdit.SetCaption("a<%Plain%>b");
  FValue = "other value";
  FEdit.ControlFont().SetSize(14);  // shows all again
  EXPECT_EQ(FEdit.Text(), "aother valueb");
  delete FEdit.Widget();
  EXPECT_EQ(FEdit.Text(), "aother valueb");
  FEdit.SetCaption("c");
  TZyUndoStack Shared(&FForm);
  FEdit.SetUndoStack(&Shared);
  FEdit.Widget();
  Type("d");
  EXPECT_EQ(Shared.UndoCount(), 1);
  auto* const Doomed = new TZyCaptionEdit(&FForm);
  Doomed->SetParent(&FForm);
  Doomed->SetOnChange([Doomed](TObject*) { delete Doomed; });
  QKeyEvent Event(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a");
  QCoreApplication::sendEvent(Doomed->Widget(), &Event);
  HandleEvents();
}

}  // namespace
}  // namespace zy
