#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zy {

/// A value of one of the kinds that properties, XML attributes and records carry: null, boolean, integer, real, text
/// or a one-dimensional array of such values.
///
/// The `As...` readers convert between kinds where the text or the number allows it and throw EConvertError otherwise.
class TVariant {
 public:
  using TArray = std::vector<TVariant>;

  // In the source file, with all else that makes, copies and compares: every file with a chart compiles this header.
  TVariant() noexcept;
  TVariant(bool Value);
  TVariant(int Value);
  TVariant(unsigned Value);
  TVariant(long Value);
  TVariant(long long Value);
  TVariant(double Value);
  TVariant(const char* Value);
  TVariant(std::string_view Value);
  TVariant(std::string Value);
  TVariant(TArray Value);
  TVariant(const TVariant& Other);
  TVariant(TVariant&& Other) noexcept;
  TVariant& operator=(const TVariant& Other);
  TVariant& operator=(TVariant&& Other) noexcept;
  ~TVariant();

  bool IsNull() const { return std::holds_alternative<std::monostate>(FValue); }
  bool IsBoolean() const { return std::holds_alternative<bool>(FValue); }
  bool IsInteger() const { return std::holds_alternative<std::int64_t>(FValue); }
  bool IsReal() const { return std::holds_alternative<double>(FValue); }
  bool IsText() const { return std::holds_alternative<std::string>(FValue); }
  bool IsArray() const { return std::holds_alternative<TArray>(FValue); }

  /// Truth value: of a boolean, of a number that is not 0, of the texts "true", "false" (any case) and of numbers in
  /// text.
  bool AsBoolean() const;
  /// Integer: of a boolean 0 or 1, of a real that is whole, of a decimal text.
  std::int64_t AsInteger() const;
  /// Real: of any number, of a text with a decimal point.
  double AsReal() const;
  /// Text: booleans as "true" and "false", numbers as the shortest text that reads back; null as an empty text.
  std::string AsText() const;
  /// The elements. Throws EConvertError when this is no array.
  const TArray& AsArray() const;

  bool operator==(const TVariant& Other) const;

 private:
  std::variant<std::monostate, bool, std::int64_t, double, std::string, TArray> FValue;
};

}  // namespace zy
