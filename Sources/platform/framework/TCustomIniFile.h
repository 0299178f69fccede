#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zy {

/// A store of values under keys in sections.
///
/// Names of sections and keys compare without regard to the case of ASCII letters and keep the form in which they were
/// first written; sections and keys stay in the order of writing. A value is any text and reads back exactly as
/// written. A reader gives its default when the key is absent.
class TCustomIniFile {
 public:
  TCustomIniFile() = default;
  virtual ~TCustomIniFile() = default;
  TCustomIniFile(const TCustomIniFile&) = delete;
  TCustomIniFile& operator=(const TCustomIniFile&) = delete;

  std::string ReadString(std::string_view Section, std::string_view Ident, std::string_view Default) const;
  /// The typed readers throw EConvertError, naming section, key and text, when the key holds a text of another kind.
  /// ReadInteger does so too for a value beyond 32 bits.
  int ReadInteger(std::string_view Section, std::string_view Ident, int Default) const;
  std::int64_t ReadInt64(std::string_view Section, std::string_view Ident, std::int64_t Default) const;
  /// False for 0 and true for every other integer.
  bool ReadBool(std::string_view Section, std::string_view Ident, bool Default) const;
  /// A real with a decimal point, whatever the locale.
  double ReadFloat(std::string_view Section, std::string_view Ident, double Default) const;

  /// Stores a value; section and key are made when they are absent. Throws EIniFileError, with nothing changed, for a
  /// name that cannot be stored: empty, with control characters or malformed UTF-8, with blanks around it, beginning
  /// with ';' or '#', a section with '[' or ']' in it, a key with '=' in it or beginning with '['.
  virtual void WriteString(std::string_view Section, std::string_view Ident, std::string_view Value) = 0;
  void WriteInteger(std::string_view Section, std::string_view Ident, int Value);
  void WriteInt64(std::string_view Section, std::string_view Ident, std::int64_t Value);
  /// Stores 0 or 1.
  void WriteBool(std::string_view Section, std::string_view Ident, bool Value);
  /// Stores the shortest text that reads back as the very same value.
  void WriteFloat(std::string_view Section, std::string_view Ident, double Value);

  /// Names of the keys in a section, in order of writing; none when it is absent.
  virtual std::vector<std::string> ReadSection(std::string_view Section) const = 0;
  /// Names of the sections, in order of writing.
  virtual std::vector<std::string> ReadSections() const = 0;
  virtual bool SectionExists(std::string_view Section) const = 0;
  bool ValueExists(std::string_view Section, std::string_view Ident) const;

  /// Removes a key; the section stays, even when it is empty then. Nothing happens when the key is absent.
  virtual void DeleteKey(std::string_view Section, std::string_view Ident) = 0;
  /// Removes a section with its keys. Nothing happens when it is absent.
  virtual void EraseSection(std::string_view Section) = 0;
  /// Takes the changes to where the store is kept.
  virtual void UpdateFile() = 0;

 protected:
  /// The text of a key, or nothing when it is absent.
  virtual std::optional<std::string> FindValue(std::string_view Section, std::string_view Ident) const = 0;

 private:
  template <class T, class TConvert>
  T ReadAs(std::string_view Section, std::string_view Ident, T Default, TConvert Convert) const;
};

}  // namespace zy
