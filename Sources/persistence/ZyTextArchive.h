#pragma once

#include <functional>
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
  /// The elements of a list, Count of them.
  using TTextAt = std::function<std::string(std::size_t Index)>;
  virtual void PutItems(const TZyFieldName& Name, std::size_t Count, const TTextAt& TextAt) = 0;
  /// The same for texts that may have blanks and several lines.
  virtual void PutTexts(const TZyFieldName& Name, const std::vector<std::string>& Texts) = 0;

  bool Visit(const TZyFieldName& Name, TOrdinal& Value) override;
  bool Visit(const TZyFieldName& Name, std::int32_t& Value) override;
  bool Visit(const TZyFieldName& Name, TZyColor& Value) override;
  bool Visit(const TZyFieldName& Name, float& Value) override;
  bool Visit(const TZyFieldName& Name, double& Value) override;
  bool Visit(const TZyFieldName& Name, std::vector<double>& Values) override;
  bool Visit(const TZyFieldName& Name, std::vector<std::int32_t>& Values) override;
  bool Visit(const TZyFieldName& Name, std::vector<std::string>& Values) override;
};

/// What the readers of XML and INI share. A descendant finds the texts.
class TZyTextReader : public TZyArchive {
 public:
  bool IsReading() const override { return true; }

 protected:
  /// The text of a field, or nothing when the property is to be left alone.
  virtual std::optional<std::string> Get(const TZyFieldName& Name) const = 0;
  /// Calls Start and then Take for each element of a list, or returns false when the list is to be left alone.
  using TTakeText = std::function<void(std::string_view Text)>;
  using TStart = std::function<void(std::size_t Count)>;
  virtual bool GetItems(const TZyFieldName& Name, const TStart& Start, const TTakeText& Take) const = 0;
  virtual bool GetTexts(const TZyFieldName& Name, const TStart& Start, const TTakeText& Take) const = 0;
  /// Throws EConvertError that names the place of a text of another kind.
  [[noreturn]] virtual void Mistyped(const TZyFieldName& Name, std::string_view Text) const = 0;

  bool Visit(const TZyFieldName& Name, bool& Value) override;
  bool Visit(const TZyFieldName& Name, TOrdinal& Value) override;
  bool Visit(const TZyFieldName& Name, std::int32_t& Value) override;
  bool Visit(const TZyFieldName& Name, TZyColor& Value) override;
  bool Visit(const TZyFieldName& Name, float& Value) override;
  bool Visit(const TZyFieldName& Name, double& Value) override;
  bool Visit(const TZyFieldName& Name, std::string& Value) override;
  bool Visit(const TZyFieldName& Name, std::vector<double>& Values) override;
  bool Visit(const TZyFieldName& Name, std::vector<std::int32_t>& Values) override;
  bool Visit(const TZyFieldName& Name, std::vector<std::string>& Values) override;

 private:
  template <class TValue, class TConvert>
  bool Read(const TZyFieldName& Name, TValue& Value, TConvert Convert) const;
  template <class TValue, class TConvert>
  TValue Converted(const TZyFieldName& Name, std::string_view Text, TConvert Convert) const;
  template <class TValue, class TConvert>
  bool ReadAll(const TZyFieldName& Name, std::vector<TValue>& Values, TConvert Convert) const;
};

}  // namespace zy
