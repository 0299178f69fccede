#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "graph/ZyGraph2D.h"
#include "platform/controls/TFrame.h"
#include "platform/framework/Application.h"
#include "undo/ZyUndoStack.h"

namespace zy::examples {

/// What one chart file holds: a page with one graph or several, and all that these are made of.
///
/// A stored chart calls its parts by their full names, "Gallery.Graph1", so what is loaded belongs to holders that have
/// the first of these names. The holders show nothing; the page shows the graphs wherever it is put.
class TChartDocument {
 public:
  /// An empty page.
  TChartDocument() = default;
  /// One whose parts are made by the program, with a holder of that name to own them.
  explicit TChartDocument(const std::string& HolderName) { AddHolder(HolderName); }

  TFrame& Page() { return FPage; }
  /// The owner of what the program makes; the first holder.
  TComponent& Holder() { return *FHolders.front(); }
  /// A further form or data module for the parts of a chart that do not belong to the same as the graph.
  TComponent& AddHolder(const std::string& Name);
  TZyUndoStack& Undo() { return FUndo; }
  /// The charts on the page in the order in which they were put there. One whose axis another one uses comes first.
  std::vector<TZyCustomGraph*> Charts() const;
  /// Those of them with axes.
  std::vector<TZyGraph2D*> Graphs() const;

  /// Fills the empty page with all charts of a file, whose form follows from its extension. The page gets the size that
  /// the charts had when they were stored.
  ///
  /// A stream has the records of the charts in a row, that of a pie behind the name of its class. In XML they are the
  /// root or children of the root, in INI the sections that have the keys of a chart, whatever their names.
  ///
  /// Throws EFileError for a file that cannot be opened, EInvalidOperation for an extension of no form, for a file
  /// without a chart and for a chart that lacks data, EClassNotFound for a curve of an unknown kind, and what readers
  /// throw; the text begins with the file's name. The document is of no further use then.
  void Load(const std::filesystem::path& FileName);
  /// Writes all charts of the page, in one step. Throws EFileError, with an old file whole, when that fails, and
  /// EInvalidOperation for an extension of no form.
  void Save(const std::filesystem::path& FileName, bool WithData = true) const;

  /// While this lives, no name leads to the parts of a document, so that another one may load the same names.
  class THidden {
   public:
    explicit THidden(TChartDocument& Document);
    ~THidden();
    THidden(const THidden&) = delete;
    THidden& operator=(const THidden&) = delete;

   private:
    TChartDocument& FDocument;
    std::vector<std::string> FNames;
  };

 private:
  TComponent* OwnerOf(std::string_view Reference);
  TZyCustomGraph& AddChart(const std::string& Reference, bool IsPie);
  void LoadStream(TStream& Stream, const std::string& Name);
  void LoadXml(TStream& Stream, const std::string& Name);
  void LoadIni(TStream& Stream, const std::string& Name);
  void TestComplete(TComponent& Owner) const;
  void PutOnPage();

  TFrame FPage;
  TZyUndoStack FUndo;
  std::vector<std::unique_ptr<TDataModule>> FHolders;
  std::vector<TZyCustomGraph*> FLoaded;  // on their way to the page
};

}  // namespace zy::examples
