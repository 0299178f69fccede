#pragma once

#include <functional>
#include <string>

#include "platform/drawing/Font.h"
#include "platform/framework/Argb.h"
#include "platform/framework/TPersistent.h"

namespace zy {

/// Font of a control's texts: family, size, style and colour.
class TControlFont : public TPersistent {
  ZY_CLASS(TControlFont, TPersistent)
  /// OnChange runs after each change.
  explicit TControlFont(std::function<void()> OnChange = nullptr);
  ~TControlFont() override;

  const std::string& Name() const { return FName; }
  void SetName(const std::string& Value);
  /// Points. Throws ERangeError outside of what a font can have.
  float Size() const { return FSize; }
  void SetSize(float Value);
  TFontStyles Style() const { return FStyle; }
  void SetStyle(TFontStyles Value);
  ARGB Color() const { return FColor; }
  void SetColor(ARGB Value);

  void Assign(const TPersistent* Source) override;
  bool operator==(const TControlFont& Other) const;
  /// The font to draw with.
  Font ToFont() const { return Font(FName, FSize, FStyle); }

 private:
  template <class T>
  void Change(T& Field, const T& Value) {
    if (Field == Value) return;
    Field = Value;
    if (FOnChange) FOnChange();
  }

  std::function<void()> FOnChange;
  std::string FName = "Arial";
  float FSize = 9;
  TFontStyles FStyle;
  ARGB FColor = 0xFF000000;
};

}  // namespace zy
