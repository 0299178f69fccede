#include "series/vectors/ZyBoundTexts.h"

#include "persistence/ZyArchive.h"
#include "platform/data/TDataSet.h"
#include "platform/framework/ScopedFlag.h"
#include "texts/Exceptions.h"

namespace zy {

TStringList& TZyBoundTexts::List() const {
  auto* const Shared = static_cast<TStringList*>(FShared == 0 ? nullptr : TPersistent::FromLiveHandle(FShared));
  return Shared == nullptr ? FOwn : *Shared;
}

/// A list that is given up may go on to run these handlers: they then do nothing but what was there before.
TZyBoundTexts::TToken TZyBoundTexts::Listen(TStringList& To) {
  TToken Token = std::make_shared<const bool>(true);
  const auto Handler = [this, Alive = std::weak_ptr(Token)](const std::function<void()>& Tell,
                                                            TStringList::TNotifyEvent Before) {
    return [this, Alive, &Tell, Before = std::move(Before)](TObject* Sender) {
      if (!Alive.expired() && !FIsReading) Tell();
      if (Before) Before(Sender);
    };
  };
  To.OnChanging = Handler(FOnChanging, std::move(To.OnChanging));
  To.OnChange = Handler(FOnChange, std::move(To.OnChange));
  return Token;
}

void TZyBoundTexts::ListenToData() {
  FLink.SetOnDataChange([this] {
    if (!FIsReading) NewData();
  });
}

void TZyBoundTexts::Fields(TZyArchive& Archive, const TZyFieldName& Name) {
  Archive.List(
      Name,
      [this] {
        std::vector<std::string> Result;
        Result.reserve(static_cast<std::size_t>(Texts().Count()));
        for (int Index = 0; Index < Texts().Count(); ++Index) Result.push_back(Texts().Get(Index));
        return Result;
      },
      [this](const std::vector<std::string>& Value) {
        TStringList Read;
        for (const std::string& Text : Value) Read.Add(Text);
        SetBound(false);
        Set(&Read);
      });
}

std::string TZyBoundTexts::At(int Index) const {
  return Index >= 0 && Index < Texts().Count() ? Texts().Get(Index) : std::string();
}

void TZyBoundTexts::Set(const TStringList* Value) {
  if (Value == nullptr)
    List().Clear();
  else
    List().Assign(Value);
}

void TZyBoundTexts::Share(TStringList& Value) {
  if (&Value == &List()) return;
  FShared = 0;
  {
    const TScopedValue Reading(FIsReading, true);  // nobody sees the old texts any more
    FOwn.Clear();
  }
  FShared = Value.LiveHandle();
  FListens = Listen(Value);
  FOnChange();
}

void TZyBoundTexts::SetBound(bool Value) {
  FIsBound = Value;
  if (Value) NewData();
}

void TZyBoundTexts::SetField(const std::string& Value) {
  if (Value == FLink.FieldName()) return;
  FLink.SetFieldName(Value);
  FIsBound = true;
  NewData();
}

void TZyBoundTexts::SetDataSource(TDataSource* Value, bool IsLoading) {
  if (Value == FLink.DataSource()) return;
  if (!FLink.DataSourceFixed() || !IsLoading) FLink.SetDataSource(Value);
  FDataSource = Value;
  FIsBound = Value != nullptr;
  if (FIsBound) NewData();
}

void TZyBoundTexts::NewData() {
  FIsStale = true;
  FOnNewData();
}

void TZyBoundTexts::Update() {
  if (!FIsBound || !FIsStale || FIsReading) return;
  TDataSet* const DataSet = FLink.DataSet();
  if (DataSet != nullptr && !DataSet->CanWalk()) return;
  if (DataSet == nullptr || FLink.Field() == nullptr) {
    FIsBound = false;
    return;
  }
  const TScopedValue Reading(FIsReading, true);
  FIsStale = false;
  try {
    TStringList Texts;
    const TField& Field = *FLink.Field();
    DataSet->Walk([&] { Texts.Add(Field.IsNull() ? std::string() : Field.AsString()); });
    List().Assign(&Texts);
  } catch (const EDatabaseError& Error) {
    FLink.SetError(Error.what());
  }
}

}  // namespace zy
