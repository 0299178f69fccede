#pragma once

#include <string>

#include "dialogs/controls/ZyNumberEdit.h"

namespace zy {

/// Base of edits of a real, which may be a date and time or a time span; OnValueChanged as in TZyNumberEdit.
///
/// While the keyboard is elsewhere, a number that is too wide loses digits, down to 2; what is still too wide, and a
/// date or span that is, shows as "#" with DoHashes, and is cut off without it. The value keeps all its digits.
class TZyCustomDoubleEdit : public TZyNumberEdit<double> {
  ZY_CLASS(TZyCustomDoubleEdit, TCustomEdit)
  explicit TZyCustomDoubleEdit(TComponent* Owner = nullptr);
  ~TZyCustomDoubleEdit() override;

  /// Whether the value, in days since 30 December 1899, is shown as a date and time, in the locale's way; it is kept
  /// between the years 1 and 9999 then. Never together with AsTimeSpan: setting one clears the other.
  bool AsDateTime() const { return FAsDateTime; }
  void SetAsDateTime(bool Value);
  /// Whether the value, in days, is shown as a span such as "1.02:03:04". One below 0 has no text.
  bool AsTimeSpan() const { return FAsTimeSpan; }
  void SetAsTimeSpan(bool Value);
  bool DoHashes() const { return FDoHashes; }
  void SetDoHashes(bool Value);
  /// A format of numbers for the text, see FormatFloat; empty for none. Texts around the number, such as a unit, may
  /// stand in a typed text or be missing.
  const std::string& Format() const { return FFormat; }
  void SetFormat(const std::string& Value);
  /// Decimal places without a format, 0 to 18, into which others are brought. -1, as at first, is the general text.
  int DecimalPlaces() const { return FDigits; }
  void SetDigits(int Value);
  /// Shows numbers by the general text again.
  void ShowAllDigits();
  /// The text of a number by Format and DecimalPlaces. From 1e18 on a text with decimal places is the general one.
  std::string DoubleStr(double Value) const;

  double Check(double Value) const override;

 protected:
  std::string TextOf(double Value) const override;
  std::optional<double> Parse(const std::string& Text) const override;
  bool Accepts(char32_t Key) const override;
  bool IsSame(double Left, double Right) const override;
  std::string Fitted(int Width) override;
  void LimitsChanged() override { CheckDateTimeMinMax(); }

 private:
  void CheckDateTimeMinMax();
  void SetMode(bool& Mode, bool& Other, bool Value);

  int FDigits = -1;
  bool FAsDateTime = false;
  bool FAsTimeSpan = false;
  bool FDoHashes = true;
  std::string FFormat;
};

/// An edit of a real, with all its properties published.
class TZyDoubleEdit : public TZyCustomDoubleEdit {
  ZY_CLASS(TZyDoubleEdit, TZyCustomDoubleEdit)
  explicit TZyDoubleEdit(TComponent* Owner = nullptr);
  ~TZyDoubleEdit() override;
};

}  // namespace zy
