#include "platform/framework/Application.h"

#include <cstdlib>

#include "platform/framework/TPropInfo.h"

namespace zy {
namespace {

TCustomApplication* Present = nullptr;

/// Folder of user settings by the desktop's conventions: XDG on Unix, roaming profile on Windows.
std::filesystem::path DefaultConfigFolder() {
  const auto Variable = [](const char* Name) -> std::filesystem::path {
    const char* const Value = std::getenv(Name);
    return Value == nullptr ? "" : Value;
  };
  if (auto Folder = Variable("XDG_CONFIG_HOME"); Folder.is_absolute()) return Folder;
  if (auto Folder = Variable("APPDATA"); !Folder.empty()) return Folder;
  if (const auto Home = Variable("HOME"); !Home.empty()) return Home / ".config";
  return std::filesystem::current_path();
}

}  // namespace

ZY_PUBLISHED(TCustomApplication, TComponent)
ZY_PUBLISHED(TDataModule, TComponent)

TCustomApplication::TCustomApplication() : TComponent(nullptr), FConfigFolder(DefaultConfigFolder()) { Present = this; }

TCustomApplication::~TCustomApplication() {
  Destroying();
  DestroyComponents();
  if (Present == this) Present = nullptr;
}

void TCustomApplication::ShowMessage(std::string_view Text) {
  if (OnShowMessage) return OnShowMessage(Text);
  DoShowMessage(Text);
}

bool TCustomApplication::Confirm(std::string_view Question) {
  return OnConfirm ? OnConfirm(Question) : DoConfirm(Question);
}

TCustomApplication& Application() {
  if (Present == nullptr) {
    static TCustomApplication* const StandIn = new TCustomApplication;  // lives to the end: others may be owned by it
    Present = StandIn;
  }
  return *Present;
}

TDataModule::TDataModule(TComponent* Owner) : TComponent(Owner) { Screen().AddDataModule(this); }

TDataModule::~TDataModule() {
  Destroying();
  Screen().RemoveDataModule(this);
}

void TScreen::AddForm(TComponent* Form) { FForms.push_back(Form); }

void TScreen::RemoveForm(TComponent* Form) { std::erase(FForms, Form); }

void TScreen::AddDataModule(TComponent* Module) { FDataModules.push_back(Module); }

void TScreen::RemoveDataModule(TComponent* Module) { std::erase(FDataModules, Module); }

TComponent* TScreen::FindByName(std::string_view Name) const {
  if (Name.empty()) return nullptr;
  for (const auto* List : {&FDataModules, &FForms})
    for (TComponent* Root : *List)
      if (Root->Name() == Name) return Root;
  return nullptr;
}

TScreen& Screen() {
  static TScreen* const Instance = new TScreen;
  return *Instance;
}

}  // namespace zy
