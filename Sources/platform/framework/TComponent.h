#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/framework/TPersistent.h"

namespace zy {

class TReader;
class TRefBase;

/// What a notification tells of a component.
enum class TOperation { Insert, Remove };

/// An object with a name and an owner. The owner deletes what it owns, in reverse order of creation; everything else
/// that points at a component does so through a TRef or after a FreeNotification, and so never dangles.
///
/// House rule: the destructor of every class that others can refer to calls Destroying() first, while the object is
/// still whole.
class TComponent : public TPersistent {
  ZY_CLASS(TComponent, TPersistent)
  /// Owner may be null; then whoever creates the component also deletes it.
  explicit TComponent(TComponent* Owner = nullptr);
  ~TComponent() override;

  TComponent* Owner() const { return FOwner; }
  /// What this component owns, in order of creation.
  const std::vector<TComponent*>& Components() const {
    if (FGaps > 0) CloseGaps();
    return FComponents;
  }
  /// The owned component of exactly this name, null when there is none or Name is empty.
  TComponent* FindComponent(std::string_view ComponentName) const;
  /// Base followed by the first number from 1 on for which nothing owned here has that name. Asked again and again
  /// while names come, it goes on where it stopped.
  std::string FirstFreeName(std::string_view Base) const;
  /// Takes over Component from its present owner. Throws EComponentError when its name is taken here.
  void InsertComponent(TComponent* Component);
  /// Gives up Component, which then has no owner. Nothing when it is not owned here.
  void RemoveComponent(TComponent* Component);
  /// Deletes all owned components, the youngest first.
  void DestroyComponents();

  /// An identifier (letters, digits, underscore; no digit first), unique among what the owner owns, or empty.
  const std::string& Name() const { return FName; }
  /// Throws EComponentError for a text that is no identifier or that is taken.
  virtual void SetName(const std::string& Value);

  bool IsDesigning() const { return FDesigning; }
  /// From the start of reading until Loaded.
  bool IsLoading() const { return FLoading; }
  /// While the component's own values are being read.
  bool IsReading() const { return FReading; }
  /// From Destroying on.
  bool IsDestroying() const { return FDestroying; }
  /// Marks this component and all that it owns as being designed, or not.
  void SetDesigning(bool Value);

  /// Marks a component that its owner creates and publishes as one of its properties. It is streamed inside its owner.
  void SetSubComponent(bool Value) { FSubComponent = Value; }
  bool IsSubComponent() const { return FSubComponent; }

  /// Asks that AComponent hears of this component's death, and this one of AComponent's. Each call is undone by one
  /// RemoveFreeNotification.
  void FreeNotification(TComponent* AComponent);
  void RemoveFreeNotification(TComponent* AComponent);

  /// Runs once after the component and all references in it have been read.
  virtual void Loaded();

  /// Marks this component and all that it owns as dying, and tells everyone who asked for it. May be called again.
  void Destroying();

  /// Calls Proc for each component that is streamed inside this one. By default a root streams what it owns and what
  /// has no parent of its own.
  virtual void GetChildren(const std::function<void(TComponent*)>& Proc, TComponent* Root);
  /// What the component lies in (a control in its parent) and is streamed in; null for none.
  virtual TComponent* ParentComponent() const { return nullptr; }
  bool HasParent() const { return ParentComponent() != nullptr; }
  /// Puts the component into a parent while a form is read. Nothing for a component without parents.
  virtual void SetParentComponent(TComponent* Parent);
  /// Place of a component among those that lie in this one, or, when it lies in none, that this one owns; from 0. -1
  /// for a stranger, which SetChildIndex leaves alone. An index beyond the last place means that one.
  virtual int ChildIndex(const TComponent& Child) const;
  virtual void SetChildIndex(TComponent& Child, int Index);

 protected:
  /// Hears of components that enter or leave the owned ones, and of the death of components that were asked for.
  /// An override calls the inherited operation. A TRef with a setter clears itself, see there.
  virtual void Notification(TComponent* AComponent, TOperation Operation);
  /// For SetName: stores a checked name.
  void ChangeName(const std::string& Value);
  /// For ChildIndex and SetChildIndex of classes with children: the same in a list.
  template <class T>
  static int IndexIn(const std::vector<T*>& List, const TComponent& Child) {
    const auto Place = std::ranges::find(List, &Child);
    return Place == List.end() ? -1 : static_cast<int>(Place - List.begin());
  }
  template <class T>
  static void MoveIn(std::vector<T*>& List, const TComponent& Child, int Index) {
    const auto From = std::ranges::find(List, &Child);
    if (From == List.end() || Index < 0) return;
    const auto To = List.begin() + std::min<std::ptrdiff_t>(Index, std::ssize(List) - 1);
    From < To ? std::rotate(From, From + 1, To + 1) : std::rotate(To, From, From + 1);
  }

 private:
  friend class TReader;
  friend class TRefBase;
  struct TNotice {
    TComponent* Component;
    int Count;
  };

  void MarkDestroying();
  void AnnounceRemoval();
  void ReleaseNotice(TComponent* AComponent, bool Entirely);
  void TestName(TComponent* Component, const std::string& NewName) const;
  void ForgetName(const std::string& Gone);
  void CloseGaps() const;

  TComponent* FOwner = nullptr;
  std::string FName;
  // Null where one left, never at the end; whoever reads the list closes the gaps first, so that many that leave one by
  // one do not move the others each time.
  mutable std::vector<TComponent*> FComponents;
  mutable std::size_t FGaps = 0;
  std::size_t FPlace = 0;                                    // in the owner's list
  std::unordered_map<std::string_view, TComponent*> FNames;  // keys are views of the components' own FName
  // For each base that was asked for, a number below which none is free.
  mutable std::unique_ptr<std::unordered_map<std::string, std::int64_t>> FTakenBelow;
  std::vector<TNotice> FNotices;
  TRefBase* FRefs = nullptr;  // the references to this component, the latest first
  bool FDesigning = false;
  bool FLoading = false;
  bool FReading = false;
  bool FDestroying = false;
  bool FRemovalAnnounced = false;
  bool FSubComponent = false;
};

}  // namespace zy
