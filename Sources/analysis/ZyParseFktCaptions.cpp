#include "analysis/ZyParseFktCaptions.h"

#include <algorithm>

#include "analysis/ZyParseFkt.h"
#include "texts/FormatFloat.h"

namespace zy {
namespace {

constexpr int MaxDepth = 16;
/// Most that all replacements of one caption may insert, in bytes, with an allowance for each so that empty ones count.
constexpr std::size_t MaxInserted = 250'000;
constexpr std::size_t Allowance = 64;

/// How far the expansion of the outermost caption has come.
struct TExpansion {
  int Depth = 0;
  std::size_t Inserted = 0;
  /// An end was reached: the marks inside the present value stay.
  bool Stopped = false;
};

std::string Expand(std::string_view Text, TZyVariableDependent* Dependent, TExpansion& State);

std::string FormulaValue(std::string_view Name, TZyVariableDependent* Dependent) {
  const std::size_t Separator = Name.find(';');
  const std::string_view Formula = Name.substr(0, Separator);
  const std::string_view Shape = Separator == std::string_view::npos ? std::string_view() : Name.substr(Separator + 1);
  TZyFunctionParser Parser;
  Parser.SetOwner(Dependent);
  Parser.SetExpression(Formula);
  return FormatFloat(Shape, Parser.GetResult());
}

std::string Value(std::string_view Name, TZyVariableDependent* Dependent, TExpansion& State) {
  const std::string Upper = AsciiUpper(Name);
  const TZyStringGetterRec* const Row = FindByFullName(GlobalStringList(), Upper);
  if (State.Inserted > MaxInserted || (Row != nullptr && State.Depth >= MaxDepth)) State.Stopped = true;
  if (State.Inserted > MaxInserted || (Row != nullptr && State.Stopped)) return "<%" + std::string(Name) + "%>";
  if (Row == nullptr) return FormulaValue(Upper, Dependent);
  NoteDependency(Row->Container, Dependent);
  const auto Getter = Row->AGetter;  // the list may change while it runs
  ++State.Depth;
  std::string Result = Expand(Getter(), Dependent, State);
  --State.Depth;
  return Result;
}

constexpr auto None = std::string::npos;

/// The text while it is edited: what lies behind the search position is kept in reverse, so that taking from its front
/// and putting there cost no moving of all the rest.
class TEdited {
 public:
  explicit TEdited(std::string_view Text) : FRest(Text.rbegin(), Text.rend()) {}

  /// Distance from the search position to the next opening mark, None when there is none.
  std::size_t FindOpen() const { return Distance(FRest.rfind("%<")); }
  /// The same for the closing mark. The place found last is kept, as it is asked for again from in front of it.
  std::size_t FindClose() {
    const bool Passed = FClose != None && FClose + 2 > FRest.size();
    if (!FCloseKnown || Passed) FClose = FRest.rfind(">%");
    FCloseKnown = true;
    return Distance(FClose);
  }
  bool IsDoubledOpen(std::size_t At) const { return Has("%<%<", At); }
  bool IsDoubledClose(std::size_t At) const { return Has(">%>%", At); }

  /// Moves the search position on, at most to the end.
  void Skip(std::size_t Count) { FDone += Take(Count); }
  /// Cuts out what follows the search position.
  std::string Take(std::size_t Count) {
    Count = std::min(Count, FRest.size());
    std::string Result(FRest.rbegin(), FRest.rbegin() + static_cast<std::ptrdiff_t>(Count));
    FRest.resize(FRest.size() - Count);
    return Result;
  }
  void Put(std::string_view Text) {
    FRest.append(Text.rbegin(), Text.rend());
    FCloseKnown = false;
  }
  std::string Finish() {
    Skip(FRest.size());
    return std::move(FDone);
  }

 private:
  std::size_t Distance(std::size_t At) const { return At == None ? None : FRest.size() - At - 2; }
  bool Has(std::string_view Reversed, std::size_t At) const {
    return FRest.size() >= At + 4 && std::string_view(FRest).substr(FRest.size() - At - 4, 4) == Reversed;
  }

  std::string FDone;
  std::string FRest;
  std::size_t FClose = None;
  bool FCloseKnown = false;
};

/// Drops the first mark of a doubled one; the search goes on one character behind the start of the other.
void KeepOne(TEdited& Text, std::size_t At) {
  Text.Skip(At);
  Text.Take(2);
  Text.Skip(1);
}

std::string Expand(std::string_view Source, TZyVariableDependent* Dependent, TExpansion& State) {
  TEdited Text(Source);
  for (;;) {
    const std::size_t Open = Text.FindOpen();
    if (Open == None) return Text.Finish();
    const bool Opened = !Text.IsDoubledOpen(Open);
    if (!Opened) KeepOne(Text, Open);
    const std::size_t Close = Text.FindClose();
    const bool Doubled = Close != None && Text.IsDoubledClose(Close);
    if (!Opened || Close < Open) {
      // Nothing to close, or not yet: a single closing mark is text.
      if (Doubled) {
        KeepOne(Text, Close);
      } else if (Opened) {
        Text.Skip(Close + 2);
      }
      continue;
    }
    const bool Closed = Close != None && Close >= Open + 2;
    Text.Skip(Open);
    const std::string Mark = Text.Take(Closed ? Close - Open + (Doubled ? 4 : 2) : 2);
    const std::string Result =
        Value(Closed ? std::string_view(Mark).substr(2, Close - Open - 2) : std::string_view(), Dependent, State);
    State.Inserted += Result.size() + Allowance;
    Text.Put(Result);
    Text.Skip(State.Stopped ? Result.size() : 1);
    if (State.Depth == 0) State.Stopped = false;
  }
}

}  // namespace

std::string FindTheVar(std::string_view Name, TZyVariableDependent* Dependent) {
  TExpansion State;
  return Value(Name, Dependent, State);
}

std::string ParseVariables(std::string_view Text, TZyVariableDependent* Dependent) {
  TExpansion State;
  return Expand(Text, Dependent, State);
}

}  // namespace zy
