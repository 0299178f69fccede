#include "persistence/ZyRecord.h"

#include "persistence/ZyIniArchive.h"
#include "persistence/ZyStreamArchive.h"
#include "persistence/ZyXmlArchive.h"
#include "platform/framework/TComponent.h"
#include "platform/framework/TStream.h"
#include "platform/framework/WholeFile.h"
#include "texts/Exceptions.h"

namespace zy {
namespace {

/// A writer only runs getters, some of which give parts of the object and so are not const.
TZyRecord& ToWrite(const TZyRecord& Object) { return const_cast<TZyRecord&>(Object); }

/// Class and, of a component, name: what a user knows the object by.
std::string TitleOf(const TZyRecord& Object) {
  std::string Title = Object.RecordName();
  if (const auto* const Component = dynamic_cast<const TComponent*>(&Object))
    if (!Component->Name().empty()) Title += " " + Component->Name();
  return Title;
}

}  // namespace

std::string TZyRecord::RecordName() const {
  const auto* const Object = dynamic_cast<const TObject*>(this);
  return Object == nullptr ? std::string() : Object->ClassName();
}

void TZyRecord::Visit(TZyArchive& Archive) {
  if (!Archive.IsReading()) return Fields(Archive);
  // The reason of a failure is the first one, whatever the end of the reading meets in what was half read.
  const auto EndFailed = [this] {
    try {
      EndRead();
    } catch (...) {
    }
  };
  const TZyArchive::TMark Mark = Archive.Mark();
  BeginRead();
  try {
    Fields(Archive);
  } catch (Exception& Error) {
    Error.AddPlace(TitleOf(*this) + Archive.PlaceSince(Mark));
    EndFailed();
    throw;
  } catch (...) {
    EndFailed();
    throw;
  }
  EndRead();
}

void TZyRecord::WriteTo(TStream& Stream) const {
  TZyStreamWriter Writer(Stream);
  ToWrite(*this).Visit(Writer);
}

void TZyRecord::ReadFrom(TStream& Stream) {
  TZyStreamReader Reader(Stream);
  Visit(Reader);
}

void TZyRecord::WriteTo(const std::filesystem::path& FileName) const {
  SaveWholeFile(FileName, [this](TStream& Stream) { WriteTo(Stream); });
}

void TZyRecord::ReadFrom(const std::filesystem::path& FileName) {
  TFileStream File(FileName, fmOpenRead | fmShareDenyWrite);
  ReadFrom(File);
}

void TZyRecord::WriteTo(const IXMLNode& Node) const { ToNode(Node, *this); }

void TZyRecord::ReadFrom(const IXMLNode& Node) {
  const std::string Mine = RecordName();
  ReadFromInner(Node.NodeName() == Mine ? Node : Node.Node(Mine));
}

void TZyRecord::WriteToInner(const IXMLNode& Node) const {
  TZyXmlWriter Writer(Node);
  ToWrite(*this).Visit(Writer);
}

void TZyRecord::ReadFromInner(const IXMLNode& Node) {
  TZyXmlReader Reader(Node);
  Visit(Reader);
}

void TZyRecord::WriteTo(TCustomIniFile& Ini, std::string_view Section) const {
  TZyIniWriter Writer(Ini, Section);
  ToWrite(*this).Visit(Writer);
}

void TZyRecord::ReadFrom(const TCustomIniFile& Ini, std::string_view Section) {
  TZyIniReader Reader(Ini, Section);
  Visit(Reader);
}

void ToStream(TStream& Stream, const TZyRecord& Object) { Object.WriteTo(Stream); }

void FromStream(TStream& Stream, TZyRecord& Object) { Object.ReadFrom(Stream); }

void ToNode(const IXMLNode& Node, const TZyRecord& Object, std::string_view Name) {
  Object.WriteToInner(Node.AddChild(Name));
}

void ToNode(const IXMLNode& Node, const TZyRecord& Object) { ToNode(Node, Object, Object.RecordName()); }

void FromNode(const IXMLNode& Node, TZyRecord& Object, std::string_view Name) { Object.ReadFromInner(Node.Node(Name)); }

void FromNode(const IXMLNode& Node, TZyRecord& Object) { FromNode(Node, Object, Object.RecordName()); }

void ToIni(TCustomIniFile& Ini, std::string_view Section, std::string_view Prefix, const TZyRecord& Object) {
  TZyIniWriter Writer(Ini, Section, std::string(Prefix) + ".");
  ToWrite(Object).Visit(Writer);
}

void FromIni(const TCustomIniFile& Ini, std::string_view Section, std::string_view Prefix, TZyRecord& Object) {
  TZyIniReader Reader(Ini, Section, std::string(Prefix) + ".");
  Object.Visit(Reader);
}

}  // namespace zy
