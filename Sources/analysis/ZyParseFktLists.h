#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zy {

// The lists of what formulas and captions can name. They are for the control thread only.

class TZyDependentList;

/// An object that shows values of a formula or caption, told when one of them may have changed.
class TZyVariableDependent {
 public:
  TZyVariableDependent() = default;
  TZyVariableDependent(const TZyVariableDependent&) = delete;
  TZyVariableDependent& operator=(const TZyVariableDependent&) = delete;
  /// Leaves every list that it stands in.
  virtual ~TZyVariableDependent();

  /// Evaluate the captions again and repaint.
  virtual void VariablesChanged() = 0;

 private:
  friend class TZyDependentList;
  std::vector<TZyDependentList*> FLists;
};

/// The dependents of one container, each once, in the order in which they came. A dependent that dies leaves it.
class TZyDependentList {
 public:
  TZyDependentList() = default;
  TZyDependentList(const TZyDependentList&) = delete;
  TZyDependentList& operator=(const TZyDependentList&) = delete;
  ~TZyDependentList();

  /// Nothing happens when it is there already.
  void Add(TZyVariableDependent& Dependent);
  void Remove(TZyVariableDependent& Dependent);
  bool Contains(const TZyVariableDependent& Dependent) const;
  bool empty() const { return FItems.empty(); }
  std::size_t size() const { return FItems.size(); }

 private:
  friend void UpdateVariablesObjects(const TZyDependentList& List);
  std::vector<TZyVariableDependent*> FItems;
};

/// Calls VariablesChanged of every dependent. Dependents may come and go meanwhile: one that came is not called, nor is
/// one that went.
void UpdateVariablesObjects(const TZyDependentList& List);

/// An object that owns entries of the lists, such as a series or a graph.
class TZyVariableContainer {
 public:
  TZyVariableContainer();
  TZyVariableContainer(const TZyVariableContainer&) = delete;
  TZyVariableContainer& operator=(const TZyVariableContainer&) = delete;
  /// Takes all its entries out of the global lists. A container whose getters use parts that die before does so earlier
  /// by DeRegisterVariables.
  virtual ~TZyVariableContainer();

  /// The names from the form down to this object, joined by ".": what stands in front of the names of its entries.
  virtual std::string VariablesRef() const = 0;
  /// Where to note who uses the entries; null when that is of no interest.
  virtual TZyDependentList* ObjectsToUpdate() { return nullptr; }

  /// Enters what it has into the global lists.
  virtual void RegisterVariables() {}
  /// Has RegisterVariables called before anybody looks at a global list the next time: for constructors, so that
  /// objects whose entries nobody asks for cost nothing. The entries stand where they would have been put at once.
  void RegisterWhenAsked();
  /// Takes all its entries out of the global lists.
  void DeRegisterVariables();

 private:
  friend void RegisterAsked();

  void LeaveWaiting();

  TZyVariableContainer* FNext = nullptr;  // among those that wait to be asked
  TZyVariableContainer* FPrevious = nullptr;
};

/// Throws EMathError: the variable of that name does not exist any more.
[[noreturn]] void ThrowVariableGone(const std::string& Name);
/// Throws EInvalidOperation: there is no function behind that name.
[[noreturn]] void ThrowNothingToCall(std::string_view Name);

template <typename TSignature>
class TZyBoundGetter;

/// A getter shared by the entry of a list and by the formulas that use it. When the entry goes, the getter is dead for
/// all of them, so that no formula calls into an object that is gone.
template <typename TResult, typename... TArgs>
class TZyBoundGetter<TResult(TArgs...)> {
 public:
  using TFunction = std::function<TResult(TArgs...)>;

  TZyBoundGetter() = default;
  /// Throws EInvalidOperation for an empty function.
  TZyBoundGetter(std::string Name, TFunction Function)
      : FState(std::make_shared<TState>(TState{std::move(Name), std::move(Function), true})) {
    if (!FState->Function) ThrowNothingToCall(FState->Name);
  }

  /// Throws EMathError when the entry has gone.
  TResult operator()(TArgs... Args) const {
    if (!FState->Alive) ThrowVariableGone(FState->Name);
    return FState->Function(Args...);
  }

  /// Hands the function of another over to all who share this one.
  void Replace(TZyBoundGetter&& By) { *FState = std::move(*By.FState); }
  /// Dead from now on. The function itself stays until nobody shares it, since it may be running.
  void Release() { FState->Alive = false; }
  bool IsSame(const TZyBoundGetter& Other) const { return FState == Other.FState; }

 private:
  struct TState {
    std::string Name;
    TFunction Function;
    bool Alive = true;
  };
  std::shared_ptr<TState> FState;
};

/// Functions of formulas.
using TZyOnePrmFunction = double (*)(double One);
using TZyTwoPrmFunction = double (*)(double One, double Two);
using TZyDoubleGetter = std::function<double()>;
using TZyArrayValGetter = std::function<double(std::int32_t Idx)>;
using TZyStringGetter = std::function<std::string()>;

/// Entry of a list of functions. Id is the name in the writing of whoever added it, Comment tells the user what it is.
struct TZyFunctionRec {
  std::string Id;
  std::string Comment;
  TZyOnePrmFunction AFunction;
};

/// Entry of a list of numeric variables; Container is null or the object that owns it, and outlives it.
struct TZyDoubleGetterRec {
  std::string Id;
  std::string Comment;
  TZyVariableContainer* Container;
  TZyBoundGetter<double()> AGetter;
};

/// Entry of a list of text variables. The text may be written in the caption language.
struct TZyStringGetterRec {
  std::string Id;
  std::string Comment;
  TZyVariableContainer* Container;
  TZyBoundGetter<std::string()> AGetter;
};

/// Entry of a list of numeric arrays.
struct TZyDoubleArrayRec {
  std::string Id;
  std::string Comment;
  TZyVariableContainer* Container;
  TZyBoundGetter<double(std::int32_t)> AArray;
};

/// Entries in the order in which they were added. An entry is put, and the entries of a container are removed, at a
/// cost that does not grow with the list.
template <typename TRec>
class TZyRecList {
 public:
  TZyRecList() = default;
  TZyRecList(const TZyRecList&) = delete;
  TZyRecList& operator=(const TZyRecList&) = delete;
  ~TZyRecList() {
    FBeforeLook = nullptr;
    Clear();
  }

  auto begin() const { return Rows().begin(); }
  auto end() const { return Rows().end(); }
  bool empty() const { return size() == 0; }
  std::size_t size() const { return Rows().size(); }
  const TRec& operator[](std::size_t Index) const { return Rows()[Index]; }
  /// The first entry of that full name, ignoring case; null when there is none. The names of a long list are noted, so
  /// that most look-ups do not grow with it; of entries that took the same name later, either may be found.
  const TRec* Find(std::string_view FullName) const;

  /// Overwrites the entry of the same name (ignoring case) and container, formulas that use it included, or appends.
  void Put(TRec Row);
  /// Removes the entries that a predicate names; the others keep their order.
  void RemoveIf(const std::function<bool(const TRec&)>& Gone);
  /// Removes all entries of one container.
  void RemoveContainer(const TZyVariableContainer* Container);
  void Clear();
  /// For the lists of the process: has containers that wait enter their rows before anybody looks, or puts another one.
  void SetBeforeLook(void (*Value)()) { FBeforeLook = Value; }

 private:
  const std::vector<TRec>& Rows() const;
  void Compact() const;

  // What a container takes out only loses its mark, until somebody looks at the list.
  mutable std::vector<TRec> FRows;
  mutable std::vector<bool> FIsThere;
  mutable std::size_t FGone = 0;
  mutable std::unordered_map<const TZyVariableContainer*, std::vector<std::size_t>> FPlaces;  // of a container's rows
  mutable std::unordered_map<std::string, std::size_t> FNoted;  // rows by the full names that they had, in upper case
  mutable std::size_t FNotedRows = 0;
  void (*FBeforeLook)() = nullptr;
};

using TZyFunctionsList = TZyRecList<TZyFunctionRec>;
using TZyDoubleGetterList = TZyRecList<TZyDoubleGetterRec>;
using TZyStringGetterList = TZyRecList<TZyStringGetterRec>;
using TZyDoubleArraysList = TZyRecList<TZyDoubleArrayRec>;

/// The lists of the process. The functions are the library's own, to which an application may add.
TZyFunctionsList& GlobalFunctionList();
TZyDoubleGetterList& GlobalVariableList();
TZyStringGetterList& GlobalStringList();
TZyDoubleArraysList& GlobalArrayList();

/// Each overwrites the entry with the same name (ignoring case) and the same container, or appends one. They throw
/// EInvalidOperation when there is nothing to call.
void AddFunctionToList(std::string_view Id, std::string_view Comment, TZyOnePrmFunction Function,
                       TZyFunctionsList& List);
void AddVariableToList(std::string_view Id, std::string_view Comment, TZyVariableContainer* Container,
                       TZyDoubleGetterList& List, TZyDoubleGetter Getter);
void AddStringToList(std::string_view Id, std::string_view Comment, TZyVariableContainer* Container,
                     TZyStringGetterList& List, TZyStringGetter Getter);
void AddArrayToList(std::string_view Id, std::string_view Comment, TZyVariableContainer* Container,
                    TZyDoubleArraysList& List, TZyArrayValGetter Getter);

/// Removes every function whose name begins with Text; case counts.
void RemoveFromFunctionsList(std::string_view Text, TZyFunctionsList& List);
/// Each removes all entries of one container. Formulas that use one fail with EMathError from then on.
void RemoveFromVariablesList(const TZyVariableContainer* Container, TZyDoubleGetterList& List);
void RemoveFromStringList(const TZyVariableContainer* Container, TZyStringGetterList& List);
void RemoveFromArrayList(const TZyVariableContainer* Container, TZyDoubleArraysList& List);

/// Text with its ASCII letters in upper case.
std::string AsciiUpper(std::string_view Text);
/// Whether two texts are equal when case is ignored for ASCII letters.
bool SameName(std::string_view One, std::string_view Two);

/// Name of an entry as formulas write it: the container's names, ".", and the entry's own.
template <typename TRec>
std::string FullName(const TRec& Row) {
  return Row.Container == nullptr ? Row.Id : Row.Container->VariablesRef() + '.' + Row.Id;
}

/// The first entry of that full name, ignoring case; null when there is none.
template <typename TRec>
const TRec* FindByFullName(const TZyRecList<TRec>& List, std::string_view Name) {
  return List.Find(Name);
}
/// The first function of that name, ignoring case; null when there is none.
const TZyFunctionRec* FindFunction(const TZyFunctionsList& List, std::string_view Name);

/// Notes with the container that a dependent uses one of its entries. Either may be null.
void NoteDependency(TZyVariableContainer* Container, TZyVariableDependent* Dependent);

extern template class TZyRecList<TZyFunctionRec>;
extern template class TZyRecList<TZyDoubleGetterRec>;
extern template class TZyRecList<TZyStringGetterRec>;
extern template class TZyRecList<TZyDoubleArrayRec>;

}  // namespace zy
