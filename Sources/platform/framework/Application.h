#pragma once

#include <filesystem>
#include <functional>
#include <string_view>
#include <vector>

#include "platform/framework/TComponent.h"

namespace zy {

/// The application object: owner of forms and data modules, and root of everything that is found by name.
///
/// One exists at a time. A program with windows makes the derived TApplication of the controls; without one, a plain
/// object stands in.
class TCustomApplication : public TComponent {
  ZY_CLASS(TCustomApplication, TComponent)
  TCustomApplication();
  ~TCustomApplication() override;

  /// File name of the program; base of the names of temporary files. "zyphos.exe" until the program sets it.
  const std::filesystem::path& ExeName() const { return FExeName; }
  void SetExeName(const std::filesystem::path& Value) { FExeName = Value; }

  /// Folder of the user's own settings. By default the one that the desktop's conventions give for all programs.
  const std::filesystem::path& ConfigFolder() const { return FConfigFolder; }
  void SetConfigFolder(const std::filesystem::path& Value) { FConfigFolder = Value; }

  /// Tells the user something that needs no answer. May be called in the middle of a paint: what is shown comes after
  /// the present event, and nothing waits for it. A program without windows says nothing.
  void ShowMessage(std::string_view Text);
  /// Asks the user, waits, and returns whether the answer was yes. A program without windows answers no.
  bool Confirm(std::string_view Question);
  /// The host's own ways to do the two, in place of the toolkit's boxes. Lines are divided by CR.
  std::function<void(std::string_view Text)> OnShowMessage;
  std::function<bool(std::string_view Question)> OnConfirm;

 protected:
  virtual void DoShowMessage(std::string_view) {}
  virtual bool DoConfirm(std::string_view) { return false; }

 private:
  std::filesystem::path FExeName = "zyphos.exe";
  std::filesystem::path FConfigFolder;
};

/// The present application object.
TCustomApplication& Application();

/// A component without a window that holds others, such as data sets. It is found by name through the screen.
class TDataModule : public TComponent {
  ZY_CLASS(TDataModule, TComponent)
  explicit TDataModule(TComponent* Owner = nullptr);
  ~TDataModule() override;
};

/// The forms and data modules of the program, in order of creation.
class TScreen {
 public:
  const std::vector<TComponent*>& Forms() const { return FForms; }
  const std::vector<TComponent*>& DataModules() const { return FDataModules; }
  /// The data module of that name, else the form of that name, else null. Names compare exactly.
  TComponent* FindByName(std::string_view Name) const;

  /// For the constructors and destructors of forms and data modules.
  void AddForm(TComponent* Form);
  void RemoveForm(TComponent* Form);
  void AddDataModule(TComponent* Module);
  void RemoveDataModule(TComponent* Module);

 private:
  std::vector<TComponent*> FForms;
  std::vector<TComponent*> FDataModules;
};

/// The one screen object of the process.
TScreen& Screen();

}  // namespace zy
