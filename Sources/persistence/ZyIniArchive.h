#pragma once

#include <string>
#include <vector>

#include "persistence/ZyTextArchive.h"

namespace zy {

class TCustomIniFile;

/// Writes fields as keys of one section. Booleans are 0 and 1.
class TZyIniWriter : public TZyTextWriter {
 public:
  TZyIniWriter(TCustomIniFile& Ini, std::string_view Section) : FIni(Ini), FSection(Section) {}
  bool IsIni() const override { return true; }

 protected:
  using TZyTextWriter::Visit;
  bool Visit(const TZyFieldName& Name, bool& Value) override;
  bool Visit(const TZyFieldName& Name, std::string& Value) override;
  void Put(const TZyFieldName& Name, std::string_view Text) override;
  bool BeginPart(const TZyFieldName& Name) override;
  void EndPart() override { FPrefixes.pop_back(); }

 private:
  TCustomIniFile& FIni;
  std::string FSection;
  std::vector<std::string> FPrefixes;  // of the parts, outermost first, each with all in front of a key
};

/// Reads such keys. An absent one reads as its default text, or leaves the property alone when it has none.
class TZyIniReader : public TZyTextReader {
 public:
  TZyIniReader(const TCustomIniFile& Ini, std::string_view Section) : FIni(Ini), FSection(Section) {}
  bool IsIni() const override { return true; }

 protected:
  std::optional<std::string> Get(const TZyFieldName& Name) const override;
  [[noreturn]] void Mistyped(const TZyFieldName& Name, std::string_view Text) const override;
  bool BeginPart(const TZyFieldName& Name) override;
  void EndPart() override { FPrefixes.pop_back(); }

 private:
  const TCustomIniFile& FIni;
  std::string FSection;
  std::vector<std::string> FPrefixes;
};

}  // namespace zy
