#pragma once

#include <string>
#include <utility>

#include "annotations/captions/ZyFont.h"
#include "dialogs/controls/ZyFontDialogForm.h"

namespace zy {

/// How the help button finds its page: by a number or by a word.
enum class TZyHelpType { Context, Keyword };
ZY_ENUM(TZyHelpType, "Context", "Keyword")

/// Asks the user for a font of captions. The window is made when it is first shown.
class TZyFontDialog : public TComponent {
  ZY_CLASS(TZyFontDialog, TComponent)
  explicit TZyFontDialog(TComponent* Owner = nullptr);
  ~TZyFontDialog() override;

  /// Shows the dialog with Font and waits; whether the user pressed OK, and Font is what was made of it.
  bool Execute();

  TZyFont& Font() { return FFont; }
  const TZyFont& Font() const { return FFont; }
  void SetFont(const TZyFont& Value) { FFont.Assign(&Value); }
  /// Limits of the size in points; none with both at 0.
  int MinFontSize() const { return FMinSize; }
  void SetMinFontSize(int Value) { FMinSize = Value; }
  int MaxFontSize() const { return FMaxSize; }
  void SetMaxFontSize(int Value) { FMaxSize = Value; }
  bool ShowGradientSettings() const { return FShowGradient; }
  void SetShowGradientSettings(bool Value) { FShowGradient = Value; }
  /// Whether there is a button that runs OnApply while the dialog stays; EditedFont is the font of that moment.
  bool ShowApply() const { return FShowApply; }
  void SetShowApply(bool Value) { FShowApply = Value; }
  /// The font in the open dialog; Font while none is open.
  const TZyFont& EditedFont() const;
  /// Whether there is a button that opens HelpFile with the program that the desktop has for it, at HelpContext or
  /// HelpKeyword.
  bool ShowHelp() const { return FShowHelp; }
  void SetShowHelp(bool Value) { FShowHelp = Value; }
  TZyHelpType HelpType() const { return FHelpType; }
  void SetHelpType(TZyHelpType Value) { FHelpType = Value; }
  int HelpContext() const { return FHelpContext; }
  void SetHelpContext(int Value) { FHelpContext = Value; }
  const std::string& HelpKeyword() const { return FHelpKeyword; }
  void SetHelpKeyword(const std::string& Value) { FHelpKeyword = Value; }
  const std::string& HelpFile() const { return FHelpFile; }
  void SetHelpFile(const std::string& Value) { FHelpFile = Value; }

  const std::function<void(TObject*)>& OnApply() const { return mApply; }
  void SetOnApply(std::function<void(TObject*)> Value) { mApply = std::move(Value); }

 protected:
  virtual void DoHelp();

 private:
  TZyFontDialogForm* FForm = nullptr;  // owned
  TZyFont FFont;
  int FMinSize = 0, FMaxSize = 0;
  bool FShowGradient = true;
  bool FShowApply = false;
  bool FShowHelp = false;
  TZyHelpType FHelpType = TZyHelpType::Context;
  int FHelpContext = 0;
  std::string FHelpKeyword, FHelpFile;
  std::function<void(TObject*)> mApply;
};

}  // namespace zy
