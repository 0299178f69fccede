#include "common/ChartDocument.h"

#include <algorithm>

#include "common/ChartForms.h"
#include "persistence/ZyIO.h"
#include "pie/ZyPieDonut.h"
#include "platform/framework/ClassRegistry.h"
#include "platform/framework/TMemIniFile.h"
#include "platform/framework/TStream.h"
#include "platform/framework/WholeFile.h"
#include "platform/framework/XmlDocument.h"
#include "series/ZySeries.h"
#include "texts/Exceptions.h"

namespace zy::examples {
namespace {

constexpr std::string_view GraphClass = "TZyGraph2D", PieClass = "TZyPieChart";

TChartForm KnownFormOf(const std::filesystem::path& FileName) {
  if (const auto Form = ChartFormOf(FileName)) return *Form;
  throw EInvalidOperation(FileName.string() + ": the extension tells no form of charts; these are " +
                          ChartExtensions());
}

/// Runs what reads a place in a file, which is put in front of an error's text.
template <class TRead>
void At(const std::string& Place, const TRead& Read) {
  try {
    Read();
  } catch (Exception& Error) {
    Error.AddPlace(Place);
    throw;
  }
}

/// A reader leaves out what it has no class for.
void TestKnown(const std::string& ClassName) {
  if (GetClass(ClassName) == nullptr) throw EClassNotFound("there is no class " + ClassName + " in this program");
}

}  // namespace

std::vector<TZyCustomGraph*> TChartDocument::Charts() const {
  std::vector<TZyCustomGraph*> Result;
  for (TControl* Control : FPage.Controls())
    if (auto* const Chart = dynamic_cast<TZyCustomGraph*>(Control)) Result.push_back(Chart);
  return Result;
}

std::vector<TZyGraph2D*> TChartDocument::Graphs() const {
  std::vector<TZyGraph2D*> Result;
  for (TZyCustomGraph* Chart : Charts())
    if (auto* const Graph = dynamic_cast<TZyGraph2D*>(Chart)) Result.push_back(Graph);
  return Result;
}

// --- Names ----------------------------------------------------------------------------------------------------------

TComponent& TChartDocument::AddHolder(const std::string& Name) {
  auto& Result = *FHolders.emplace_back(std::make_unique<TDataModule>());
  Result.SetName(Name);
  return Result;
}

/// The component in front of the last name of a reference; those that are missing are made. Null for a reference of one
/// name, whose object belongs to nobody.
TComponent* TChartDocument::OwnerOf(std::string_view Reference) {
  const std::string Path(OwnerName(Reference));
  if (Path.empty()) return nullptr;
  if (TComponent* const Found = GetComponentFromRef(Path)) return Found;
  const std::string Name(ComponentName(Path));
  TComponent* const Owner = OwnerOf(Path);
  if (Owner == nullptr) return &AddHolder(Name);
  auto* const Result = new TComponent(Owner);
  Result->SetName(Name);
  return Result;
}

TChartDocument::THidden::THidden(TChartDocument& Document) : FDocument(Document) {
  for (const auto& Holder : FDocument.FHolders) {
    FNames.push_back(Holder->Name());
    Holder->SetName({});
  }
}

TChartDocument::THidden::~THidden() {
  for (std::size_t Index = 0; Index < FNames.size(); ++Index) FDocument.FHolders[Index]->SetName(FNames[Index]);
}

// --- Loading --------------------------------------------------------------------------------------------------------

void TChartDocument::Load(const std::filesystem::path& FileName) {
  const TChartForm Form = KnownFormOf(FileName);
  const std::string Name = FileName.string();
  TFileStream File(FileName, fmOpenRead | fmShareDenyWrite);
  switch (Form) {
    case TChartForm::Stream:
      LoadStream(File, Name);
      break;
    case TChartForm::Xml:
      LoadXml(File, Name);
      break;
    case TChartForm::Ini:
      LoadIni(File, Name);
      break;
  }
  At(Name, [&] {
    if (FLoaded.empty()) throw EInvalidOperation("there is no chart in the file");
    for (const auto& Holder : FHolders) TestComplete(*Holder);
  });
  PutOnPage();
}

/// Without a parent a chart keeps the bounds that are stored, however it is aligned.
TZyCustomGraph& TChartDocument::AddChart(const std::string& Reference, bool IsPie) {
  TComponent* const Owner = OwnerOf(Reference);
  if (Owner == nullptr)
    throw EInvalidOperation("the chart \"" + Reference +
                            "\" was saved without the name of a form, which its parts need");
  TZyCustomGraph* Result = nullptr;
  if (IsPie)
    Result = new TZyPieChart(Owner);
  else
    Result = new TZyGraph2D(Owner);
  Result->SetName(std::string(ComponentName(Reference)));
  FLoaded.push_back(Result);
  return *Result;
}

void TChartDocument::LoadStream(TStream& Stream, const std::string& Name) {
  At(Name, [&] {
    while (Stream.Remaining() > 0) {
      std::int64_t Start = Stream.Position();
      std::string Reference;
      const auto ReadName = [&] { At("name of the chart", [&] { Reference = StringFromStream(Stream); }); };
      ReadName();
      const bool IsPie = Reference == PieClass;
      if (IsPie) {
        Start = Stream.Position();
        ReadName();
      }
      Stream.SetPosition(Start);
      AddChart(Reference, IsPie).ReadFrom(Stream);
    }
  });
}

void TChartDocument::LoadXml(TStream& Stream, const std::string& Name) {
  TXMLDocument Document;
  Document.LoadFromStream(Stream, Name);
  const IXMLNode Root = Document.DocumentElement();
  std::vector<IXMLNode> Nodes = Root.ChildNodes();
  const auto IsChart = [](const IXMLNode& Node) {
    return Node.NodeName() == GraphClass || Node.NodeName() == PieClass;
  };
  if (IsChart(Root)) Nodes = {Root};
  At(Name, [&] {
    for (const IXMLNode& Node : Nodes) {
      if (!IsChart(Node)) continue;
      for (const char* List : {"RelatedSeries", "Markers"})
        if (const IXMLNode Items = Node.FindNode(List))
          for (const IXMLNode& Item : Items.ChildNodes()) TestKnown(Item.NodeName());
      AddChart(Node.Attribute("Name").AsText(), Node.NodeName() == PieClass).ReadFrom(Node);
    }
  });
}

void TChartDocument::LoadIni(TStream& Stream, const std::string& Name) {
  TMemIniFile Ini;
  Ini.LoadFrom(Stream, Name);
  At(Name, [&] {
    const std::vector<std::string> Sections = Ini.ReadSections();
    for (const std::string& Section : Sections) {
      const bool IsPie = Ini.ValueExists(Section, "DonutHoleSize");
      if (!IsPie && !Ini.ValueExists(Section, "RelatedSeries.Count")) continue;
      for (const std::string& Part : Sections)
        if (Part.starts_with(Section + ".") && Ini.ValueExists(Part, "Type"))
          TestKnown(Ini.ReadString(Part, "Type", {}));
      AddChart(Ini.ReadString(Section, "Name", {}), IsPie).ReadFrom(Ini, Section);
    }
  });
}

/// All curves are complete when they are stored, and belong to a graph then.
void TChartDocument::TestComplete(TComponent& Owner) const {
  for (TComponent* Component : Owner.Components()) {
    if (!Component->ClassInfo().InheritsFrom(TZySeries::StaticClassInfo())) {
      TestComplete(*Component);
      continue;
    }
    const auto* const Series = static_cast<const TZySeries*>(Component);
    const auto HasIt = [Series](const TZyCustomGraph* Chart) {
      const auto* const Graph = dynamic_cast<const TZyGraph2D*>(Chart);
      return Graph != nullptr && Graph->RelatedSeries().Contains(Series);
    };
    if (std::ranges::none_of(FLoaded, HasIt))
      throw EInvalidOperation("the data or the axes of " + GetComponentRef(Series) + " are not in the file");
  }
}

void TChartDocument::PutOnPage() {
  int Width = 0, Height = 0;
  for (const TZyCustomGraph* Graph : FLoaded) {
    Width = std::max(Width, Graph->Left() + Graph->Width());
    Height = std::max(Height, Graph->Top() + Graph->Height());
  }
  FPage.SetBounds(FPage.Left(), FPage.Top(), Width, Height);
  for (TZyCustomGraph* Graph : FLoaded) Graph->SetParent(&FPage);
  FLoaded.clear();
}

// --- Saving ---------------------------------------------------------------------------------------------------------

void TChartDocument::Save(const std::filesystem::path& FileName, bool WithData) const {
  const std::vector<TZyCustomGraph*> All = Charts();
  for (TZyCustomGraph* Chart : All)  // not every form has the places of its legends
    if (auto* const Pie = dynamic_cast<TZyPieChart*>(Chart)) Pie->BringUpToDate();
  switch (KnownFormOf(FileName)) {
    case TChartForm::Stream:
      return SaveWholeFile(FileName, [&](TStream& Stream) {
        for (const TZyCustomGraph* Chart : All) {
          if (Chart->ClassName() == PieClass) StringToStream(Stream, PieClass);
          Chart->WriteTo(Stream, WithData);
        }
      });
    case TChartForm::Xml: {
      const TXMLDocument Document("Charts");
      for (const TZyCustomGraph* Chart : All) Chart->WriteTo(Document.DocumentElement(), WithData);
      return Document.SaveToFile(FileName);
    }
    case TChartForm::Ini: {
      TMemIniFile Ini;
      for (std::size_t Index = 0; Index < All.size(); ++Index)
        All[Index]->WriteTo(Ini, "Chart" + std::to_string(Index + 1), WithData);
      return SaveWholeFile(FileName, Ini.SaveToText());
    }
  }
}

}  // namespace zy::examples
