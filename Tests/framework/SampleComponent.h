#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/framework/EnumInfo.h"
#include "platform/framework/TComponent.h"
#include "platform/framework/TRef.h"
#include "platform/framework/TStrings.h"
#include "platform/framework/TVariant.h"

namespace zy::testing {

enum class TShade { Light, Middle, Dark };
ZY_ENUM(TShade, "Light", "Middle", "Dark")

/// Hears of every change before it happens; the undo tests push from here.
using TBeforeChange = std::function<void(TPersistent* Instance, const char* PropName)>;

template <class TOwner, class TField, class TValue>
void SetNoticed(TOwner& Owner, TField& Field, const TValue& Value, const char* PropName) {
  if (Field == Value) return;
  if (Owner.BeforeChange) Owner.BeforeChange(&Owner, PropName);
  Field = Value;
}

/// A settings object that a component owns.
class TSampleStyle : public TPersistent {
  ZY_CLASS(TSampleStyle, TPersistent)
  float Width() const { return FWidth; }
  void SetWidth(float Value) { SetNoticed(*this, FWidth, Value, "Width"); }
  std::uint32_t Color() const { return FColor; }
  void SetColor(std::uint32_t Value) { SetNoticed(*this, FColor, Value, "Color"); }
  void Assign(const TPersistent* Source) override;
  TBeforeChange BeforeChange;

 private:
  float FWidth = 1;
  std::uint32_t FColor = 0xFF000000;
};

/// A component with a published property of every kind.
class TSample : public TComponent {
  ZY_CLASS(TSample, TComponent)
  explicit TSample(TComponent* Owner = nullptr);
  ~TSample() override;

  int Whole() const { return FWhole; }
  void SetWhole(int Value) { Set(FWhole, Value, "Whole"); }
  std::int8_t Small() const { return FSmall; }
  void SetSmall(std::int8_t Value) { Set(FSmall, Value, "Small"); }
  char Letter() const { return FLetter; }
  void SetLetter(char Value) { Set(FLetter, Value, "Letter"); }
  bool Switch() const { return FSwitch; }
  void SetSwitch(bool Value) { Set(FSwitch, Value, "Switch"); }
  TShade Shade() const { return FShade; }
  void SetShade(TShade Value) { Set(FShade, Value, "Shade"); }
  TSet<TShade> Shades() const { return FShades; }
  void SetShades(TSet<TShade> Value) { Set(FShades, Value, "Shades"); }
  float Single() const { return FSingle; }
  void SetSingle(float Value) { Set(FSingle, Value, "Single"); }
  double Real() const { return FReal; }
  void SetReal(double Value) { Set(FReal, Value, "Real"); }
  const std::string& Text() const { return FText; }
  void SetText(const std::string& Value) { Set(FText, Value, "Text"); }
  TStringList& Lines() { return FLines; }
  TSampleStyle& Style() { return FStyle; }
  TSample* Link() const { return FLink; }
  void SetLink(TSample* Value) { Set(FLink, Value, "Link"); }
  std::int64_t Big() const { return FBig; }
  void SetBig(std::int64_t Value) { Set(FBig, Value, "Big"); }
  const std::vector<double>& Numbers() const { return FNumbers; }
  void SetNumbers(const std::vector<double>& Value) { Set(FNumbers, Value, "Numbers"); }
  const TVariant& Any() const { return FAny; }
  void SetAny(const TVariant& Value) { Set(FAny, Value, "Any"); }
  const std::vector<std::vector<double>>& Table() const { return FTable; }
  void SetTable(const std::vector<std::vector<double>>& Value) { FTable = Value; }
  /// A component that is part of this one.
  TSample* Part() const { return FPart; }
  void MakePart();
  const std::function<void()>& OnEvent() const { return FOnEvent; }

  bool HasBig() const { return FBig != 0; }
  void DefineProperties(TFiler& Filer) override;
  void Loaded() override;
  int Extra = 0;  // streamed by DefineProperties
  int LoadedCount = 0;
  std::vector<TComponent*> Removed;  // what Notification told
  TBeforeChange BeforeChange;

 protected:
  void Notification(TComponent* AComponent, TOperation Operation) override;

 private:
  template <class TField, class TValue>
  void Set(TField& Field, const TValue& Value, const char* PropName) {
    SetNoticed(*this, Field, Value, PropName);
  }

  int FWhole = 0;
  std::int8_t FSmall = 0;
  char FLetter = ' ';
  bool FSwitch = false;
  TShade FShade = TShade::Light;
  TSet<TShade> FShades;
  float FSingle = 0.5f;
  double FReal = 0;
  std::string FText;
  TStringList FLines;
  TSampleStyle FStyle;
  TRef<TSample> FLink{this};
  std::int64_t FBig = 0;
  std::vector<double> FNumbers;
  TVariant FAny;
  std::vector<std::vector<double>> FTable;
  TSample* FPart = nullptr;
  std::function<void()> FOnEvent;
};

/// Bytes of a component as a root, written out.
std::string BytesOf(TComponent& Root);

}  // namespace zy::testing
