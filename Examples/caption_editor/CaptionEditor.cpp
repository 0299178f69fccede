// A caption in its editor, and as it is drawn.
//
//   caption_editor [FOLDER]   draws both into caption_editor.png and caption_editor@2x.png
//   caption_editor --show     opens the window

#include <QPainter>
#include <QPixmap>
#include <QWidget>
#include <filesystem>
#include <string>

#include "Charts.h"

using namespace zy;

int main(int Count, char* Arguments[]) {
  TApplication Program;
  const std::string Argument = Count > 1 ? Arguments[1] : "out";
  TForm Form;
  Form.SetName("Form");
  Form.SetCaption("Caption editor");
  Form.SetBounds(0, 0, 520, 190);

  auto* const Label = new TZyRichLabel(&Form);
  Label->SetName("Label");
  Label->SetBounds(12, 120, 480, 60);
  Label->Font().SetName("DejaVu Sans");
  Label->Font().SetSize(14);
  Label->SetParent(&Form);

  auto* const Edit = new TZyCaptionEdit(&Form);
  Edit->SetBounds(12, 12, 496, 96);
  Edit->ControlFont().SetName("DejaVu Sans");
  Edit->ControlFont().SetSize(14);
  Edit->SetParent(&Form);
  Edit->SetHideSelection(false);
  Edit->SetOnChange([&](TObject*) { Label->SetCaption(Edit->Caption()); });
  Edit->SetCaption(R"(Heat of \bH\-2\-O\b in kJ mol\+-1\+: <%40.657;0.00%>)"
                   "\r\n"
                   R"(\c[A=255, R=178, G=34, B=34]\ired\i\c[], \uunderlined\u, \f[Courier New]family\f[], )");
  Edit->SetSelVariable("2*Pi;0.0000");
  Edit->Select(8, 3);

  if (Argument == "--show") {
    Form.Show();
    return Program.Run();
  }
  std::filesystem::create_directories(Argument);
  Form.Show();
  Program.ProcessMessages();
  for (const int Scale : {1, 2}) {
    QPixmap Picture(Form.Widget()->size() * Scale);
    Picture.setDevicePixelRatio(Scale);
    Form.Widget()->render(&Picture);
    const std::string Name = Argument + (Scale == 1 ? "/caption_editor.png" : "/caption_editor@2x.png");
    if (!Picture.save(QString::fromStdString(Name))) return 1;
  }
  return 0;
}
