#include "platform/framework/TStrings.h"

#include <utility>

#include "platform/framework/TFiler.h"
#include "platform/framework/TPropInfo.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TWriter.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

ZY_PUBLISHED(TStrings, TPersistent)
ZY_PUBLISHED(TStringList, TStrings)

namespace {

/// Runs Action as one update of List, which ends even when Action fails.
template <class TAction>
void Update(TStrings& List, TAction Action) {
  List.BeginUpdate();
  try {
    Action();
  } catch (...) {
    List.EndUpdate();
    throw;
  }
  List.EndUpdate();
}

}  // namespace

int TStrings::Add(const std::string& Value) {
  const int Index = Count();
  Insert(Index, Value);
  return Index;
}

void TStrings::AddStrings(const TStrings& Source) {
  Update(*this, [&] {
    const int Total = Source.Count();  // taken once: Source may be this list
    for (int Index = 0; Index < Total; ++Index) Add(Source.Get(Index));
  });
}

int TStrings::IndexOf(std::string_view Value) const {
  for (int Index = 0; Index < Count(); ++Index)
    if (Get(Index) == Value) return Index;
  return -1;
}

bool TStrings::HasTextsOf(const TStrings& Other) const {
  if (Count() != Other.Count()) return false;
  for (int Index = 0; Index < Count(); ++Index)
    if (Get(Index) != Other.Get(Index)) return false;
  return true;
}

std::string TStrings::Text() const {
  std::string Result;
  for (int Index = 0; Index < Count(); ++Index) {
    Result += Get(Index);
    Result += '\n';
  }
  return Result;
}

void TStrings::SetText(std::string_view Value) {
  TStringList Lines;
  while (!Value.empty()) {
    const std::size_t End = Value.find_first_of("\r\n");
    Lines.Add(std::string(Value.substr(0, End)));
    if (End == std::string_view::npos) break;
    Value.remove_prefix(End + (Value.substr(End, 2) == "\r\n" ? 2 : 1));
  }
  Assign(&Lines);
}

void TStrings::Assign(const TPersistent* Source) {
  const auto* const Strings = dynamic_cast<const TStrings*>(Source);
  if (Strings == nullptr) return TPersistent::Assign(Source);
  if (Strings == this || Strings->HasTextsOf(*this)) return;
  Update(*this, [&] {
    Clear();
    AddStrings(*Strings);
  });
}

void TStrings::DefineProperties(TFiler& Filer) {
  Filer.DefineProperty(
      "Strings",
      [this](TReader& Reader) {
        TStringList Read;
        Reader.ReadListBegin();
        while (!Reader.EndOfList()) Read.Add(Reader.ReadString());
        Reader.ReadListEnd();
        Assign(&Read);
      },
      [this](TWriter& Writer) {
        Writer.WriteListBegin();
        for (int Index = 0; Index < Count(); ++Index) Writer.WriteString(Get(Index));
        Writer.WriteListEnd();
      },
      Count() > 0);
}

std::size_t TStringList::Checked(int Index, int Limit) const {
  if (Index < 0 || Index >= Limit) throw ERangeError(Format(LoadResString(_sVectorIdxOutOfRange), {Index}));
  return static_cast<std::size_t>(Index);
}

void TStringList::Changing() {
  if (FHasChanged) return;
  if (OnChanging) OnChanging(this);
  FHasChanged = FUpdateCount > 0;
}

void TStringList::Changed() {
  if (FUpdateCount == 0 && OnChange) OnChange(this);
}

std::string TStringList::Get(int Index) const { return FItems[Checked(Index, Count())]; }

void TStringList::Put(int Index, const std::string& Value) {
  const std::size_t Place = Checked(Index, Count());
  if (FItems[Place] == Value) return;
  Changing();
  FItems[Place] = Value;
  Changed();
}

void TStringList::Clear() {
  if (FItems.empty()) return;
  Changing();
  FItems.clear();
  Changed();
}

void TStringList::Delete(int Index) {
  const std::size_t Place = Checked(Index, Count());
  Changing();
  FItems.erase(FItems.begin() + static_cast<std::ptrdiff_t>(Place));
  Changed();
}

void TStringList::Insert(int Index, const std::string& Value) {
  const std::size_t Place = Checked(Index, Count() + 1);
  Changing();
  FItems.insert(FItems.begin() + static_cast<std::ptrdiff_t>(Place), Value);
  Changed();
}

void TStringList::EndUpdate() {
  if (FUpdateCount > 0 && --FUpdateCount == 0 && std::exchange(FHasChanged, false)) Changed();
}

}  // namespace zy
