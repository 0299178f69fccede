#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "platform/controls/TApplicationEvents.h"
#include "platform/framework/PropValues.h"
#include "platform/framework/TPropInfo.h"
#include "platform/framework/TStrings.h"

namespace zy {

class TZyUndoGroup;

/// Ties one property of a control to properties of other components, without code of the application.
///
/// Items holds the paths: `Form.Component.Property`, with further components in between, each owned by the one before,
/// and published settings (`Form.Chart.Font.Size`). A path begins with a form, a data module, or what else the
/// application owns. The control follows the first path, at the next idle moment after a change; what the user does
/// goes to all of them. Paths to what is not there yet are tried again at idle, those to what has died wait for its
/// successor, and those to what was renamed are rewritten.
///
/// A member of the control, which publishes it as "PropertyLinks", calls Loaded from its own Loaded, and SetLink behind
/// its event when the user has changed the value. References clear themselves; nothing else is asked of the control.
///
/// Whole numbers, enumerations, reals and texts are followed; other kinds are only written. A target must be of the
/// managed property's sort, whole numbers and enumerations being one.
class TZyPropertyLinks : public TPersistent {
  ZY_CLASS(TZyPropertyLinks, TPersistent)
  /// ManagedInstance is the control that this is a member of. Throws EFilerError when it has no row of that name,
  /// published or hidden.
  TZyPropertyLinks(TComponent& ManagedInstance, std::string_view ManagedProperty);
  ~TZyPropertyLinks() override;

  TComponent& ManagedInstance() const { return FManagedInstance; }
  const std::string& ManagedProperty() const { return FManagedProperty; }
  /// Name and kind of the managed property's type; see LinkChoices.
  std::string_view TypeFilter() const { return FManagedInfo.TypeName(); }
  TPropKind TypeKind() const { return FManagedInfo.Kind; }

  /// The paths; a change of the list has them resolved anew.
  TStrings& Items() { return FItems; }
  const TStrings& Items() const { return FItems; }
  void SetItems(const TStrings& Value);
  bool HasItems() const { return FItems.Count() > 0; }

  /// Has the paths resolved anew at the next idle moment, or by the next CheckLink.
  void Modified() { FNeedCheck = true; }
  /// Resolves the paths when that is needed, and brings the value of the first to the control. What is brought is no
  /// change by the user: SetLink does nothing meanwhile, and the undo stacks of both sides are silent, so that an idle
  /// moment after an undo never cuts off the redo.
  ///
  /// A target whose getter throws is dropped until Modified, one that the control refuses is left; the error goes to
  /// the application once.
  void CheckLink();
  /// For the control's Loaded: Modified, and CheckLink unless it is a control that no parent shows.
  void Loaded();
  /// Rewrites each path to something that is there by the present names of its components.
  void UpdateLinkNames();
  /// Has every path to this component let go of it. References do so by themselves.
  void Notification(const TComponent* AComponent);
  /// Whether CheckLink or SetLink is at work.
  bool IsBusy() const { return FBusy; }

  /// Writes what the user has set to all targets, as one step where several log on one stack. Nothing while the control
  /// is designed, loaded or destroyed, and from inside SetLink and CheckLink, so that links may run in a circle. When
  /// a setter throws, the others are written all the same; then the first error goes to the caller.
  ///
  /// Where the property makes something else of a number or a text (it trims, clamps, rounds or refuses), the control
  /// shows that at idle, or, while it has the keyboard, as soon as that leaves it: what is being typed is not touched.
  ///
  /// This form is that of whole numbers, colours, booleans and all enumerations, among them TDashStyle, TZyAreaStyle
  /// and TZyPointSymbol.
  template <class T>
  requires(std::is_integral_v<T> || std::is_enum_v<T>) void SetLink(T Value) { SetLinkTo(detail::ToOrdinal(Value)); }
  void SetLink(double Value) { SetLinkTo(Value); }
  void SetLink(std::string_view Value) { SetLinkTo(std::string(Value)); }

  void Assign(const TPersistent* Source) override;
  void DefineProperties(TFiler& Filer) override;

 private:
  using TValue = std::variant<std::monostate, std::int64_t, double, std::string>;
  struct TLinkRecord;
  class TWork;

  static TValue ValueOf(const TPersistent& Instance, const TPropInfo& Info);
  static bool SameBits(const TValue& Left, const TValue& Right);
  bool IsFollowed() const;
  bool Fits(const TPropInfo& Info) const;
  TPersistent* TargetOf(TLinkRecord& Record) const;
  TLinkRecord* RecordAt(int Index);
  TValue FirstValue();
  bool ShowsSame(const TValue& Source) const;
  void ItemsChanged();
  void Resolve(int Index);
  void ResolveMissing();
  bool Walk(TLinkRecord& Record, std::string_view Path) const;
  void KeepNames();
  void Copy();
  void Show(const TValue& Source);
  void NoteValues();
  bool IsOutOfDate();
  bool IsTypedIn() const;
  void SetLinkTo(const TValue& Value);
  void OpenGroups(const TValue& Value, std::list<TZyUndoGroup>& Groups);
  void WriteTo(int Index, const TValue& Value);
  void DoIdle();

  TComponent& FManagedInstance;
  std::string FManagedProperty;
  const TPropInfo& FManagedInfo;
  bool FNeedCheck = true;
  bool FBusy = false;
  bool FRenaming = false;  // the items change by ourselves
  bool FAnswered = false;  // the values noted are what the property made of the user's
  TValue FSource, FShown;  // value of the first target and of the control when both were last seen
  TStringList FItems;
  std::vector<std::unique_ptr<TLinkRecord>> FPropRecs;  // one for each item
  TApplicationEvents FIdle;
};

}  // namespace zy
