#include "framework/SampleComponent.h"

#include "framework/Bytes.h"
#include "platform/framework/Reflection.h"
#include "platform/framework/TPropInfo.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TWriter.h"

namespace zy::testing {

ZY_PUBLISHED(TSampleStyle, TPersistent, Published<&TSampleStyle::Width, &TSampleStyle::SetWidth>("Width", 1.0f),
             Published<&TSampleStyle::Color, &TSampleStyle::SetColor>("Color"))

ZY_PUBLISHED(TSample, TComponent, Published<&TSample::Whole, &TSample::SetWhole>("Whole", 0),
             Published<&TSample::Small, &TSample::SetSmall>("Small", std::int8_t{0}),
             Published<&TSample::Letter, &TSample::SetLetter>("Letter", ' '),
             Published<&TSample::Switch, &TSample::SetSwitch>("Switch", false),
             Published<&TSample::Shade, &TSample::SetShade>("Shade", TShade::Light),
             Published<&TSample::Shades, &TSample::SetShades>("Shades", TSet<TShade>{}),
             Published<&TSample::Single, &TSample::SetSingle>("Single", 0.5f),
             Published<&TSample::Real, &TSample::SetReal>("Real"),
             Published<&TSample::Text, &TSample::SetText>("Text", ""), Published<&TSample::Lines>("Lines"),
             Published<&TSample::Style>("Style"), Published<&TSample::Link, &TSample::SetLink>("Link"),
             Published<&TSample::Big, &TSample::SetBig>("Big").StoredIf<&TSample::HasBig>(),
             Published<&TSample::Numbers, &TSample::SetNumbers>("Numbers"),
             Published<&TSample::Any, &TSample::SetAny>("Any"),
             Published<&TSample::Table, &TSample::SetTable>("Table").NotStored(), Published<&TSample::Part>("Part"),
             Published<&TSample::OnEvent>("OnEvent"))

void TSampleStyle::Assign(const TPersistent* Source) {
  if (Source == nullptr || !CopyProperties(*Source, *this)) TPersistent::Assign(Source);
}

TSample::TSample(TComponent* Owner) : TComponent(Owner) {
  FLines.OnChanging = [this](TObject*) {
    if (BeforeChange) BeforeChange(this, "Lines");
  };
  FStyle.BeforeChange = [this](TPersistent* Instance, const char* PropName) {
    if (BeforeChange) BeforeChange(Instance, PropName);
  };
}

TSample::~TSample() { Destroying(); }

void TSample::MakePart() {
  FPart = new TSample(this);
  FPart->SetName("Inner");
  FPart->SetSubComponent(true);
}

void TSample::DefineProperties(TFiler& Filer) {
  TComponent::DefineProperties(Filer);
  Filer.DefineProperty(
      "Extra", [this](TReader& Reader) { Extra = static_cast<int>(Reader.ReadInteger()); },
      [this](TWriter& Writer) { Writer.WriteInteger(Extra); }, Extra != 0);
}

void TSample::Loaded() {
  TComponent::Loaded();
  ++LoadedCount;
}

void TSample::Notification(TComponent* AComponent, TOperation Operation) {
  TComponent::Notification(AComponent, Operation);
  if (Operation != TOperation::Remove) return;
  Removed.push_back(AComponent);
  if (AComponent == FLink) SetLink(nullptr);
}

std::string BytesOf(TComponent& Root) {
  TMemoryStream Stream;
  TWriter Writer(Stream);
  Writer.WriteRootComponent(Root);
  Writer.FlushBuffer();
  return AsText(Stream);
}

}  // namespace zy::testing
