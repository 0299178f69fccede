#pragma once

#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "platform/framework/TCustomIniFile.h"

namespace zy {

class TStream;

namespace detail {

/// Hash and equality of names without regard to the case of ASCII letters.
struct TIniNameHash {
  std::size_t operator()(std::string_view Name) const;
};
struct TIniNameEqual {
  bool operator()(std::string_view Left, std::string_view Right) const;
};

/// Values by name, in order of their adding.
template <class T>
class TIniList {
 public:
  struct TItem {
    std::string Name;
    T Value;
  };

  const T* Find(std::string_view Name) const {
    const auto Found = FIndex.find(Name);
    return Found == FIndex.end() ? nullptr : &Found->second->Value;
  }
  T* Find(std::string_view Name) { return const_cast<T*>(std::as_const(*this).Find(Name)); }

  /// The value of that name, made when it is absent.
  T& Add(std::string_view Name) {
    if (T* const Present = Find(Name)) return *Present;
    FItems.push_back({std::string(Name), T()});
    FIndex.emplace(FItems.back().Name, std::prev(FItems.end()));
    return FItems.back().Value;
  }

  bool Remove(std::string_view Name) {
    const auto Found = FIndex.find(Name);
    if (Found == FIndex.end()) return false;
    const auto Item = Found->second;
    FIndex.erase(Found);
    FItems.erase(Item);
    return true;
  }

  bool IsEmpty() const { return FItems.empty(); }
  auto begin() const { return FItems.begin(); }
  auto end() const { return FItems.end(); }

 private:
  std::list<TItem> FItems;
  // The keys are views of the items' names: list nodes never move, not even with the list.
  std::unordered_map<std::string_view, typename std::list<TItem>::iterator, TIniNameHash, TIniNameEqual> FIndex;
};

}  // namespace detail

/// A key-value store in memory, with its text form.
///
/// The text is UTF-8: `[section]` lines, each followed by `key=value` lines. A line that begins with ';' or '#' is a
/// comment; comments are not kept. A value that would not survive as it stands is put in double quotes, with
/// `\x` and two hexadecimal digits for a byte that a line cannot hold; every other backslash stands for itself, and so
/// does a double quote inside the quotes.
class TMemIniFile : public TCustomIniFile {
 public:
  void WriteString(std::string_view Section, std::string_view Ident, std::string_view Value) override;
  std::vector<std::string> ReadSection(std::string_view Section) const override;
  std::vector<std::string> ReadSections() const override;
  bool SectionExists(std::string_view Section) const override;
  void DeleteKey(std::string_view Section, std::string_view Ident) override;
  void EraseSection(std::string_view Section) override;
  /// Does nothing: memory is where this store is kept.
  void UpdateFile() override {}
  /// Removes every section.
  void Clear();

  /// Replaces the content by that of a text, with or without byte order mark and with any of the three line ends.
  /// Sections of the same name become one, and the last value of a key counts. Throws EIniFileError, naming SourceName
  /// and the line and with the content unchanged, for a text that is malformed.
  void LoadFromText(std::string_view Text, std::string_view SourceName = "text");
  /// The same with what the stream holds from its position to its end.
  void LoadFrom(TStream& Stream, std::string_view SourceName = "stream");
  std::string SaveToText() const;
  void SaveTo(TStream& Stream) const;

  /// Whether the content was changed since it was made or saved.
  bool Modified() const { return FModified; }

 protected:
  std::optional<std::string> FindValue(std::string_view Section, std::string_view Ident) const override;
  void SetModified(bool Value) { FModified = Value; }

 private:
  using TKeys = detail::TIniList<std::string>;
  using TSections = detail::TIniList<TKeys>;
  class TParser;

  TSections FSections;
  bool FModified = false;
};

}  // namespace zy
