#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "persistence/ZyArchive.h"

namespace zy {

/// What the writers of XML and INI share: the texts of values. A descendant says where they go.
///
/// Integers, ordinals and sets are decimal, reals the shortest text that reads back, colours a name of the colour table
/// or "$" and hexadecimal digits. The desktop's colours are written by value, so that a chart looks the same elsewhere.
class TZyTextWriter : public TZyArchive {
 public:
  bool IsReading() const override { return false; }

 protected:
  virtual void Put(const TZyFieldName& Name, std::string_view Text) = 0;

  bool Visit(const TZyFieldName& Name, TOrdinal& Value) override;
  bool Visit(const TZyFieldName& Name, std::int32_t& Value) override;
  bool Visit(const TZyFieldName& Name, TZyColor& Value) override;
  bool Visit(const TZyFieldName& Name, float& Value) override;
  bool Visit(const TZyFieldName& Name, double& Value) override;
};

/// What the readers of XML and INI share. A descendant finds the texts.
class TZyTextReader : public TZyArchive {
 public:
  bool IsReading() const override { return true; }

 protected:
  /// The text of a field, or nothing when the property is to be left alone.
  virtual std::optional<std::string> Get(const TZyFieldName& Name) const = 0;
  /// Throws EConvertError that names the place of a text of another kind.
  [[noreturn]] virtual void Mistyped(const TZyFieldName& Name, std::string_view Text) const = 0;

  bool Visit(const TZyFieldName& Name, bool& Value) override;
  bool Visit(const TZyFieldName& Name, TOrdinal& Value) override;
  bool Visit(const TZyFieldName& Name, std::int32_t& Value) override;
  bool Visit(const TZyFieldName& Name, TZyColor& Value) override;
  bool Visit(const TZyFieldName& Name, float& Value) override;
  bool Visit(const TZyFieldName& Name, double& Value) override;
  bool Visit(const TZyFieldName& Name, std::string& Value) override;

 private:
  template <class TValue, class TConvert>
  bool Read(const TZyFieldName& Name, TValue& Value, TConvert Convert) const;
};

}  // namespace zy
