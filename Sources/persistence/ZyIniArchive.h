#pragma once

#include <string>
#include <vector>

#include "persistence/ZyTextArchive.h"

namespace zy {

class TCustomIniFile;

namespace detail {

/// Where an archive stands in a store of keys: the section, and what stands in front of a key.
class TIniPlaces {
 public:
  TIniPlaces(std::string_view Section, std::string_view Prefix)
      : FPlaces{{std::string(Section), std::string(Prefix)}} {}

  const std::string& Section() const { return FPlaces.back().Section; }
  std::string Key(const TZyFieldName& Name) const { return FPlaces.back().Prefix + std::string(Name.IniName()); }
  /// The key of one of a list of texts, and of their count.
  std::string Key(const TZyFieldName& Name, std::size_t Index) const;
  std::string CountKey(const TZyFieldName& Name) const;
  /// The section of a record inside this one.
  std::string SectionOf(const TZyFieldName& Name) const { return Section() + "." + std::string(Name.IniName()); }

  void Enter(const TZyScope& Scope);
  void Leave() { FPlaces.pop_back(); }

 private:
  struct TPlace {
    std::string Section;
    std::string Prefix;
  };
  std::vector<TPlace> FPlaces;
};

}  // namespace detail

/// Writes fields as keys of one section, behind a prefix. Booleans are 0 and 1.
class TZyIniWriter : public TZyTextWriter {
 public:
  TZyIniWriter(TCustomIniFile& Ini, std::string_view Section, std::string_view Prefix = {})
      : FIni(Ini), FPlaces(Section, Prefix) {}
  bool IsIni() const override { return true; }

 protected:
  using TZyTextWriter::Visit;
  bool Visit(const TZyFieldName& Name, bool& Value) override;
  bool Visit(const TZyFieldName& Name, std::string& Value) override;
  void Put(const TZyFieldName& Name, std::string_view Text) override;
  void PutItems(const TZyFieldName& Name, std::size_t Count, const TTextAt& TextAt) override;
  void PutTexts(const TZyFieldName& Name, const std::vector<std::string>& Texts) override;
  bool Choose(const TZyFieldName& Name, bool IsFirst) override;
  void VisitCount(const TZyFieldName& Name, int& Count) override;
  bool Enter(const TZyScope& Scope) override { return FPlaces.Enter(Scope), true; }
  void Leave() override { FPlaces.Leave(); }

 private:
  TCustomIniFile& FIni;
  detail::TIniPlaces FPlaces;
};

/// Reads such keys. An absent one reads as its default text, or leaves the property alone when it has none.
class TZyIniReader : public TZyTextReader {
 public:
  TZyIniReader(const TCustomIniFile& Ini, std::string_view Section, std::string_view Prefix = {})
      : FIni(Ini), FPlaces(Section, Prefix) {}
  bool IsIni() const override { return true; }

 protected:
  using TZyTextReader::Visit;
  std::optional<std::string> Get(const TZyFieldName& Name) const override;
  bool GetItems(const TZyFieldName& Name, const TStart& Start, const TTakeText& Take) const override;
  bool GetTexts(const TZyFieldName& Name, const TStart& Start, const TTakeText& Take) const override;
  [[noreturn]] void Mistyped(const TZyFieldName& Name, std::string_view Text) const override;
  bool Choose(const TZyFieldName& Name, bool IsFirst) override;
  void VisitCount(const TZyFieldName& Name, int& Count) override;
  bool Enter(const TZyScope& Scope) override { return FPlaces.Enter(Scope), true; }
  void Leave() override { FPlaces.Leave(); }
  TZyIdentity Identify(bool Typed) override;

 private:
  int CountOf(const TZyFieldName& Name) const;

  const TCustomIniFile& FIni;
  detail::TIniPlaces FPlaces;
};

}  // namespace zy
