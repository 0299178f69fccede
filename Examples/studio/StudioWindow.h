#pragma once

#include <QMainWindow>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include "common/ChartDocument.h"
#include "dialogs/forms/ZyChartMenu.h"
#include "studio/StudioData.h"

class QComboBox;
class QLabel;

namespace zy::examples {

/// The window of the studio: menus, columns of the data at the left, and one chart.
class TStudioWindow : public QMainWindow {
 public:
  TStudioWindow();
  ~TStudioWindow() override;

  /// Opens data or a chart, whichever the file holds.
  void Open(const std::filesystem::path& FileName);
  /// Adds a series of a kind (a class's name) of two columns; of the row's number for an X column below 0.
  TZySeries& AddSeries(const std::string& Kind, int XColumn, int YColumn);
  /// Adds a curve of a kind through the points of another series.
  TZySeries& AddCurve(const std::string& Kind, TZySeries& Of);
  void AddLegend();
  void AddMarker(const std::string& Kind);

  TZyGraph2D& Graph() { return *FGraph; }
  TZyChartMenu& Menu() { return *FMenu; }
  TChartDocument& Document() { return *FDocument; }
  void SaveTo(const std::filesystem::path& FileName);
  void Tell(const std::exception& Error);

 protected:
  void closeEvent(QCloseEvent* Event) override;

 private:
  using TCommand = std::function<void()>;

  void MakeMenus();
  void MakeColumns();
  void AddCommand(QMenu& Menu, const char* Text, const char* Keys, const TCommand& Run);
  void OpenData(const std::filesystem::path& FileName);
  void NewChart(const std::string& Title);
  void Take(std::unique_ptr<TChartDocument> Document);
  TZySeries& Join(const std::string& Kind, const std::string& Caption);
  TZyDoubleVector& VectorOf(int Column);
  TZySeries* ChooseSeries();
  int Choose(const char* Question, const QStringList& Names);
  void ShowColumns();
  void ShowTitle();
  bool MayLeave();
  bool Save();
  bool SaveAs();
  void Ask(const char* Title, const std::string& Filter);

  std::unique_ptr<TChartDocument> FDocument;
  std::unique_ptr<TZyChartMenu> FMenu;
  TZyGraph2D* FGraph = nullptr;  // of the document
  std::filesystem::path FFileName;
  std::vector<TStudioColumn> FColumns;
  QComboBox *FX, *FY, *FKind;
  QLabel* FHelp;
};

}  // namespace zy::examples
