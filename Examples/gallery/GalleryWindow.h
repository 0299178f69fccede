#pragma once

#include <exception>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include "dialogs/forms/ZyChartMenu.h"
#include "gallery/Gallery.h"
#include "platform/controls/TForm.h"
#include "platform/controls/TFrame.h"
#include "platform/controls/TPopupMenu.h"
#include "platform/controls/TPostBox.h"

class QMimeData;

namespace zy::examples {

/// The window: names and commands at the left, the chosen chart at the right. Chart files are opened by command, from
/// the list of recent ones, or dropped; whatever would lose changes asks first.
class TGalleryWindow : public TForm {
 public:
  TGalleryWindow();
  ~TGalleryWindow() override;

  /// Shows a chart file unless the user wants to keep what is there. What cannot be loaded is thrown, and the present
  /// chart stays.
  void Open(const std::filesystem::path& FileName);
  /// Tells the user what went wrong.
  void Tell(const std::exception& Error);

  TChartDocument& Document() { return *FDocument; }
  /// The file of the chart; empty for one that has none yet.
  const std::filesystem::path& FileName() const { return FFileName; }

 protected:
  QWidget* CreateWidget() override;
  bool WidgetEvent(QEvent& Event) override;

 private:
  using TCommand = std::function<void()>;

  TFrame& AddList();
  void AddCharts(TFrame& List);
  void AddCommands(TFrame& List);
  /// A line that is clicked, with the keys that do the same.
  void AddCommand(TFrame& List, const char* Text, const char* Keys, const TCommand& Run);
  void AddGap() { FTop += 14; }

  void Make(const TEntry& Entry);
  void Take(std::unique_ptr<TChartDocument> Document, const std::filesystem::path& FileName);
  void ShowTitle();
  /// Asks what is to become of changes, if there are any. Whether the chart may go.
  bool MayLeave();
  void AskOpen();
  void ShowRecent();
  /// Whether the chart is saved then.
  bool Save();
  bool SaveAs();
  void SaveTo(const std::filesystem::path& Target);
  void SavePicture();
  void Print();
  void ToggleGrid();
  void ThickenLines();

  TZyCustomGraph& Chart() { return *FDocument->Charts().front(); }
  /// Does something to the first graph, where there is one with axes.
  void WithGraph(const std::function<void(TZyGraph2D& Graph)>& Do);
  void Zoom(double Factor);

  std::unique_ptr<TChartDocument> FDocument;
  const TEntry* FEntry = nullptr;  // null for a chart from a file
  std::filesystem::path FFileName;
  std::filesystem::path FDropped;
  TPostBox FOpenDropped;  // later, so that the program where the drag began does not wait for questions
  TPopupMenu FKeys, FRecent;
  std::vector<std::unique_ptr<TZyChartMenu>> FMenus;  // one for each chart
  static constexpr int FirstTop = 12;
  int FTop = FirstTop;  // of the next command
};

}  // namespace zy::examples
