#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/framework/TRef.h"

namespace zy {

/// Untyped part of TRefList.
class TRefListBase {
 public:
  TRefListBase(const TRefListBase&) = delete;
  TRefListBase& operator=(const TRefListBase&) = delete;

  /// How many objects stand in the list.
  std::size_t size() const { return FByObject.size(); }
  bool empty() const { return FByObject.empty(); }
  void Clear();
  /// Exchanges the objects at two indices. Not while the list is iterated.
  void Swap(std::size_t Left, std::size_t Right);

 protected:
  explicit TRefListBase(TComponent& Holder);
  virtual ~TRefListBase();

  bool Enter(void* Object, TComponent* Component);
  bool Leave(void* Object);
  bool Has(void* Object) const;
  void* At(std::size_t Index) const;
  TComponent& Holder() const { return FHolder; }
  /// Runs the holder's operation that takes a dying object out.
  virtual void LeaveBySetter(void* Object) = 0;

  /// The object at a place of the list, null when it left. Places keep their numbers between Lock and Unlock.
  void* AtPlace(std::size_t Place) const;
  std::size_t PastPlaces() const { return FPlaces.size(); }
  void Lock() const { ++FLocks; }
  void Unlock() const { --FLocks; }

 private:
  struct TEntry;
  std::size_t PlaceOf(std::size_t Index) const;
  void AppendPlace(TEntry* Entry);
  void CloseGaps();

  TComponent& FHolder;
  std::unordered_map<void*, std::unique_ptr<TEntry>> FByObject;
  std::vector<TEntry*> FPlaces;     // in order, null where one left; gaps are closed when they are the greater part
  std::vector<std::size_t> FTaken;  // taken places below each place, summed as a binary indexed tree
  mutable int FLocks = 0;           // iterators alive
};

/// A member of a component that lists other components without owning them, or objects of any type that are or belong
/// to a component (`Add(Legend, Control)`). Each object stands once, in the order of Add.
///
/// An object whose component dies leaves by itself: the holder's Notification hears of it while the entry still
/// stands, then the operation that the list was given runs with the object, unless the holder is being destroyed;
/// whatever they do, the entry is gone afterwards. Adding, asking for and removing an object, and finding one by its
/// index, cost next to the same however many there are.
///
/// Objects may leave and be added while the list is iterated: those that left are not visited any more, those that came
/// stand at the end. Iterating allocates nothing. An iterator must not outlive the list.
template <class T>
class TRefList : private TRefListBase {
 public:
  /// Walks the list from either end over what is still in it.
  template <bool Backwards>
  class TIterator {
   public:
    using iterator_concept = std::input_iterator_tag;
    using value_type = T*;
    using difference_type = std::ptrdiff_t;

    TIterator(const TRefList& List, std::size_t Place) : FList(&List), FPlace(Place) {
      FList->Lock();
      SkipGaps();
    }
    TIterator(const TIterator& Other) : FList(Other.FList), FPlace(Other.FPlace) { FList->Lock(); }
    TIterator& operator=(const TIterator& Other) {
      if (this == &Other) return *this;
      Other.FList->Lock();
      FList->Unlock();
      FList = Other.FList;
      FPlace = Other.FPlace;
      return *this;
    }
    ~TIterator() { FList->Unlock(); }

    /// Null when the object left since the iterator came here.
    T* operator*() const { return static_cast<T*>(FList->AtPlace(FPlace)); }
    TIterator& operator++() {
      Step();
      SkipGaps();
      return *this;
    }
    void operator++(int) { ++*this; }
    friend bool operator==(const TIterator& Left, std::default_sentinel_t) { return Left.IsPast(); }

   private:
    // Backwards, FPlace wraps around below the first place.
    bool IsPast() const { return FPlace >= FList->PastPlaces(); }
    void Step() { Backwards ? --FPlace : ++FPlace; }
    void SkipGaps() {
      while (!IsPast() && **this == nullptr) Step();
    }

    const TRefList* FList;
    std::size_t FPlace;
  };

  explicit TRefList(TComponent* Holder) : TRefListBase(*Holder) {}
  /// Removal is the holder's operation that takes an object out: `{this, &TZyGraph2D::RemoveRelatedSeries}`.
  template <class THolder>
  TRefList(TComponent* Holder, void (THolder::*Removal)(T*))
      : TRefListBase(*Holder), FRemoval(static_cast<void (TComponent::*)(T*)>(Removal)) {}

  /// Adds Object at the end; false when it is there already. Component is what the object is or belongs to.
  bool Add(T* Object, TComponent* Component) { return Enter(Object, Component); }
  bool Add(T* Object) { return Enter(Object, Object); }
  /// Takes Object out; false when it is not there.
  bool Remove(T* Object) { return Leave(Object); }
  bool Contains(const T* Object) const { return Has(const_cast<T*>(Object)); }
  /// The object at Index, 0 to size() - 1, of those that stand in the list.
  T* operator[](std::size_t Index) const { return static_cast<T*>(At(Index)); }
  using TRefListBase::Clear;
  using TRefListBase::empty;
  using TRefListBase::size;
  using TRefListBase::Swap;

  TIterator<false> begin() const { return {*this, 0}; }
  std::default_sentinel_t end() const { return {}; }
  /// The list as a range from its last object to its first.
  auto Reversed() const {
    struct TRange {
      const TRefList& List;
      TIterator<true> begin() const { return {List, List.PastPlaces() - 1}; }
      std::default_sentinel_t end() const { return {}; }
    };
    return TRange{*this};
  }

 private:
  void LeaveBySetter(void* Object) override {
    if (FRemoval != nullptr) (Holder().*FRemoval)(static_cast<T*>(Object));
  }

  void (TComponent::*FRemoval)(T*) = nullptr;
};

}  // namespace zy
