// Undo and redo buttons over a chart, and an editor that is linked to its title: no code runs between them.
//
//   undo_buttons [FOLDER]   draws the window with its list open into undo_buttons.png and undo_buttons@2x.png, and in a
//                           dark palette into undo_buttons_dark.png and undo_buttons_dark@2x.png
//   undo_buttons --show     opens the window

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QStyleFactory>
#include <QWidget>
#include <filesystem>
#include <string>

#include "Charts.h"

using namespace zy;

namespace {

/// A window with a chart, its undo stack and the controls.
class TWindow : public TForm {
 public:
  TWindow() {
    SetName("Window");
    SetCaption("Undo buttons");
    SetBounds(0, 0, 460, 330);
    Put(FEdit, 4, 4, Width() - 8, 30);
    Put(FBar, 0, 38, Width(), 28);
    FBar.SetTabStop(true);  // the tabulator key comes to the buttons in it
    int Left = 4;
    for (TZyDropDnButton* const Button : std::initializer_list<TZyDropDnButton*>{&FUndoButton, &FRedoButton}) {
      Button->SetParent(&FBar);
      Button->SetBounds(Left, 3, 37, 22);
      Button->SetUndoStack(&FUndo);
      Left += 40;
    }
    Put(FGraph, 0, 70, Width(), Height() - 70);
    FGraph.SetName("Graph");
    FGraph.SetBackColor(0xFFFFFFFF);
    FGraph.SetUndoStack(&FUndo);
    FEdit.PropertyLinks().Items().Add("Window.Graph.Caption");
    for (const char* Text : {"Wind", "Wind in \\bMay\\b", "Wind in May, m s\\+-1\\+"}) FGraph.SetCaption(Text);
    FGraph.SetBackColor(0xFFF0F4F8);
    FUndo.Undo();
  }
  ~TWindow() override { Destroying(); }

  TZyDropDnButton& UndoButton() { return FUndoButton; }

 private:
  void Put(TControl& Control, int Left, int Top, int WidthOfIt, int HeightOfIt) {
    Control.SetParent(this);
    Control.SetBounds(Left, Top, WidthOfIt, HeightOfIt);
  }

  TZyUndoStack FUndo{this};
  TFrame FBar{this};
  TZyUndoButton FUndoButton{this};
  TZyRedoButton FRedoButton{this};
  TZyCaptionEdit FEdit{this};
  TZyGraph2D FGraph{this};
};

/// The window, and the list above it.
void SavePicture(TForm& Form, const std::string& FileName, int Scale) {
  QPixmap Picture(Form.Widget()->size() * Scale);
  Picture.setDevicePixelRatio(Scale);
  Form.Widget()->render(&Picture);
  QWidget& List = *TZyUndoListFrm::Get().Widget();
  QPainter Painter(&Picture);
  List.render(&Painter, List.pos() - Form.Widget()->mapToGlobal(QPoint(0, 0)));
  Painter.end();
  Picture.save(QString::fromStdString(FileName));
}

void UseDarkPalette() {
  QPalette Dark(QColor(53, 53, 53), QColor(42, 42, 42));
  Dark.setColor(QPalette::Base, QColor(35, 35, 35));
  Dark.setColor(QPalette::Text, Qt::white);
  QApplication::setPalette(Dark);
}

}  // namespace

int main(int Count, char* Arguments[]) {
  TApplication Program;
  const std::string Argument = Count > 1 ? Arguments[1] : "out";
  TWindow Window;
  if (Argument == "--show") {
    Window.Show();
    return Program.Run();
  }
  std::filesystem::create_directories(Argument);
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  for (const char* const Name : {"/undo_buttons", "/undo_buttons_dark"}) {
    if (std::string(Name).ends_with("dark")) UseDarkPalette();
    Window.Show();
    Program.ProcessMessages();
    TApplication::Idle();
    Window.UndoButton().ShowListWindow();
    TZyUndoListFrm::Get().LevelsList().SetItemIndex(2);
    Program.ProcessMessages();
    for (const int Scale : {1, 2}) SavePicture(Window, Argument + Name + (Scale == 1 ? ".png" : "@2x.png"), Scale);
    TZyUndoListFrm::Get().FormDeactivate();
  }
  return 0;
}
