#include "annotations/captions/ZyCaptionRuns.h"

#include <algorithm>
#include <utility>

#include "analysis/ZyParseFktCaptions.h"
#include "annotations/captions/ZyCaptionLayout.h"
#include "annotations/captions/ZyCaptionMarkup.h"
#include "annotations/captions/ZyCaptionPieces.h"
#include "texts/Exceptions.h"
#include "texts/Utf8.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr std::string_view Opening = "<%", Closing = "%>";
constexpr const char* NotEvaluated = "...";

bool HasMark(std::string_view Text) {
  return Text.find(Opening) != std::string_view::npos || Text.find(Closing) != std::string_view::npos;
}

/// Collects the runs of a text; text that follows in the same style joins the last one.
class TRunCollector {
 public:
  void Append(std::string_view Text) {
    if (Text.empty()) return;
    const bool Joins = !Runs.empty() && Runs.back().Atom == nullptr && Runs.back().Style == Style;
    if (!Joins) Runs.push_back({Style, {}, nullptr});
    Runs.back().Text.append(Text);
  }
  void BeginRun() {}
  void BreakLine() { Append("\n"); }
  void Toggle(TFontStyle Value) {
    Style.Toggled = TFontStyles::FromBits(Style.Toggled.Bits() ^ TFontStyles{Value}.Bits());
  }
  void ToggleSuperscript() { Style.Superscript = !Style.Superscript; }
  void ToggleSubscript() { Style.Subscript = !Style.Subscript; }
  void SetColor(std::string_view Argument) {
    Style.Color = Argument.empty() ? std::nullopt : std::optional(RichIDToTZyColor(Argument));
  }
  void SetFamily(std::string_view Argument) { Style.Family = Argument; }

  void Read(std::string_view Text) { ReadCaptionMarkup(CaptionWithReturns(Text), *this); }

  TZyCaptionStyle Style;
  TZyCaptionRuns Runs;
};

std::string ShownTextOf(std::string_view Value) {
  TRunCollector Collector;
  Collector.Read(Value);
  std::string Result;
  for (const TZyCaptionRun& Run : Collector.Runs) Result += Run.Text;
  return Result;
}

std::shared_ptr<const TZyCaptionAtom> MakeAtom(std::string Source, std::string Value) {
  std::string Shown = ShownTextOf(Value);
  return std::make_shared<const TZyCaptionAtom>(TZyCaptionAtom{std::move(Source), std::move(Value), std::move(Shown)});
}

/// Characters by which the toolkit's documents part lines, frames and objects, and bytes that are none.
std::size_t UneditableLength(std::string_view Text) {
  const TUtf8Char First = FirstUtf8Char(Text);
  if (First.Length == 0) return 1;
  const char32_t Code = First.Code;
  const bool Is = Code == 0x2028 || Code == 0x2029 || Code == 0xFDD0 || Code == 0xFDD1 || Code == 0xFFFC;
  return Is ? First.Length : 0;
}

/// Sets characters apart that no editor takes.
TZyCaptionRuns WithEditableTexts(const TZyCaptionRuns& Runs) {
  TZyCaptionRuns Result;
  for (const TZyCaptionRun& Run : Runs) {
    std::string_view Rest = Run.Text;
    if (Run.Atom != nullptr) Result.push_back(Run);
    for (std::size_t At = 0; !Rest.empty();) {
      const std::size_t Length = At < Rest.size() ? UneditableLength(Rest.substr(At)) : 0;
      if (At < Rest.size() && Length == 0) {
        At += FirstUtf8Char(Rest.substr(At)).Length;
        continue;
      }
      if (At > 0) Result.push_back({Run.Style, std::string(Rest.substr(0, At)), nullptr});
      if (Length > 0) {
        const std::string Source(Rest.substr(At, Length));
        Result.push_back(
            {Run.Style, {}, std::make_shared<const TZyCaptionAtom>(TZyCaptionAtom{Source, Source, Source})});
      }
      Rest.remove_prefix(At + Length);
      At = 0;
    }
  }
  return Result;
}

bool SameRuns(const TZyCaptionRuns& One, const TZyCaptionRuns& Two) {
  return std::ranges::equal(One, Two, [](const TZyCaptionRun& Left, const TZyCaptionRun& Right) {
    return Left.Style == Right.Style && Left.Text == Right.Text;
  });
}

/// Takes a caption apart into texts and variables. What is read is compared with what is drawn: where a value and what
/// stands beside it make marks or markup together, the whole stays one atom.
class TCaptionReader {
 public:
  TCaptionReader(std::string_view Caption, TZyVariableDependent* Dependent, TZyCaptionReading Reading)
      : FCaption(Caption), FDependent(Dependent), FReading(Reading) {}

  TZyCaptionRuns Read() {
    ReadPieces();
    TRunCollector Whole;
    if (!FHasCrossing) Whole.Read(FExpanded);
    if (!FHasCrossing && SameRuns(Whole.Runs, WithoutAtoms(FParts.Runs)) && IsKeptByWriting(Whole.Runs))
      return WithEditableTexts(FParts.Runs);
    std::string Value = FHasFailed ? CaptionVerbatim(FCaption) : ParseVariables(FCaption, FDependent);
    return {{{}, {}, MakeAtom(std::string(FCaption), std::move(Value))}};
  }

 private:
  /// Values that are nothing, or hold markup, may not stand beside what is written at their sides.
  bool IsKeptByWriting(const TZyCaptionRuns& Wanted) const try {
    if (!FHasOddValue) return true;
    const std::string Written = WriteCaption(WithEditableTexts(FParts.Runs));
    TCaptionReader Again(Written, FDependent, TZyCaptionReading::Lenient);
    Again.ReadPieces();
    TRunCollector Whole;
    if (!Again.FHasCrossing) Whole.Read(Again.FExpanded);
    return !Again.FHasCrossing && SameRuns(Whole.Runs, Wanted);
  } catch (const EConvertError&) {
    return false;
  }

  void ReadPieces() try {
    for (const TZyCaptionPiece& Piece : CaptionPiecesOf(FCaption)) {
      if (FHasCrossing) return;  // from here on the pieces may be other ones
      if (Piece.IsVariable) {
        AddVariable(Piece.Text);
      } else {
        AddText(Piece.Text);
      }
    }
  } catch (const EConvertError&) {
    FHasCrossing = true;  // a colour that is malformed in a piece may be none in the whole
  }

  std::string ValueOf(const std::string& Name) {
    if (FReading == TZyCaptionReading::Strict) return FindTheVar(Name, FDependent);
    try {
      return FindTheVar(Name, FDependent);
    } catch (const Exception&) {
      FHasFailed = true;
      return NotEvaluated;
    }
  }

  void AddVariable(const std::string& Name) {
    // The search for marks goes on one character behind the start of a value.
    FHasCrossing = FIsBehindValue && FBehindEmpty;
    if (FHasCrossing) return;
    const std::string Value = ValueOf(Name);
    FHasCrossing = HasMark(Value);
    FHasOddValue = FHasOddValue || Value.empty() || Value.find('\\') != std::string::npos;
    FBehindEmpty = Value.empty();
    FLastOfValue = Value.empty() ? '\0' : Value.back();
    FExpanded += Value;
    std::string Source = std::string(Opening) + Name;
    if (!Name.empty()) Source += Closing;
    const TZyCaptionStyle Style = FParts.Style;
    FParts.Style = StyleBehind(Value, Style);
    FParts.Runs.push_back({Style, {}, MakeAtom(std::move(Source), Value)});
    FIsBehindValue = true;
  }

  void AddText(const std::string& Text) {
    const char First = Text.front();
    if (FIsBehindValue && FBehindEmpty && (First == '<' || First == '%')) FHasCrossing = true;
    if (FIsBehindValue && ((FLastOfValue == '<' && First == '%') || (FLastOfValue == '%' && First == '>')))
      FHasCrossing = true;
    FIsBehindValue = false;
    FExpanded += Text;
    FParts.Read(Text);
  }

  std::string_view FCaption;
  TZyVariableDependent* FDependent;
  TZyCaptionReading FReading;
  TRunCollector FParts;
  std::string FExpanded;
  bool FHasCrossing = false;  // marks come about that stand in no piece
  bool FHasFailed = false;
  bool FHasOddValue = false;
  bool FIsBehindValue = false, FBehindEmpty = false;
  char FLastOfValue = '\0';
};

// --- Writing --------------------------------------------------------------------------------------------------------

bool EndsInBackslash(const TZyCaptionRun& Run) {
  if (Run.Atom != nullptr) return Run.Atom->Value.ends_with('\\');
  return Run.Text.ends_with('\\');
}

bool IsOpaque(const TZyCaptionRun& Run) { return Run.Atom != nullptr && Run.Atom->Variable() == Run.Atom->Source; }

/// Joins texts of one style, and gives backslashes in front of a change the style of what follows.
TZyCaptionRuns Writable(TZyCaptionRuns Runs) {
  TZyCaptionRuns Result;  // in reverse
  for (auto Run = Runs.rbegin(); Run != Runs.rend(); ++Run) {
    if (Run->Atom == nullptr && Run->Text.empty()) continue;
    if (Run->Atom == nullptr && EndsInBackslash(*Run) && !Result.empty() && !(Result.back().Style == Run->Style)) {
      const std::size_t Kept = Run->Text.find_last_not_of('\\') + 1;
      TZyCaptionRun Moved{Result.back().Style, Run->Text.substr(Kept), nullptr};
      Run->Text.resize(Kept);
      if (Result.back().Atom == nullptr) {
        Result.back().Text.insert(0, Moved.Text);
      } else {
        Result.push_back(std::move(Moved));
      }
      if (Run->Text.empty()) continue;
    }
    const bool Joins =
        !Result.empty() && Run->Atom == nullptr && Result.back().Atom == nullptr && Result.back().Style == Run->Style;
    if (Joins) {
      Result.back().Text.insert(0, Run->Text);
    } else {
      Result.push_back(std::move(*Run));
    }
  }
  std::ranges::reverse(Result);
  return Result;
}

/// A part of a caption that is being written: text with markup, or what an atom stands for.
struct TWrittenPart {
  std::string Text;
  bool IsSource = false;
};

/// How marks are written that are text: doubled; the closing ones as they are, since readers take them for text where
/// no opening mark is near; parted by an idle backslash.
enum class TMarkWriting { Doubled, OpeningDoubled, Parted };

class TCaptionWriter {
 public:
  explicit TCaptionWriter(TMarkWriting Marks) : FMarks(Marks) {}

  void Write(const TZyCaptionRuns& Runs) {
    for (const TZyCaptionRun& Run : Runs) {
      ChangeTo(Run.Style);
      if (Run.Atom != nullptr) {
        WriteAtom(*Run.Atom);
      } else {
        WriteText(Run.Text);
      }
    }
    // Behind a backslash nothing can change, nor behind what was not taken apart; and nothing needs to.
    if (!Runs.empty() && (EndsInBackslash(Runs.back()) || IsOpaque(Runs.back()))) return;
    ChangeTo({});
  }

  std::string Result() const {
    std::string Written;
    for (const TWrittenPart& Part : FParts) Written += Part.IsSource ? Part.Text : WithDoubledMarks(Part.Text);
    return Written;
  }

  /// Whether a reader finds in the result what it was written of.
  bool HoldsIn(const std::string& Written) const {
    std::vector<TZyCaptionPiece> Wanted;
    const auto Add = [&](const TZyCaptionPiece& Piece) {
      if (!Piece.IsVariable && !Wanted.empty() && !Wanted.back().IsVariable) {
        Wanted.back().Text += Piece.Text;
      } else {
        Wanted.push_back(Piece);
      }
    };
    for (const TWrittenPart& Part : FParts) {
      if (!Part.IsSource) Add({false, Part.Text});
      if (Part.IsSource)
        for (const TZyCaptionPiece& Piece : CaptionPiecesOf(Part.Text)) Add(Piece);
    }
    return CaptionPiecesOf(Written) == Wanted;
  }

 private:
  std::string WithDoubledMarks(const std::string& Text) const {
    std::string Result;
    for (std::size_t i = 0; i < Text.size(); ++i) {
      const std::string_view Mark = std::string_view(Text).substr(i, 2);
      const bool Doubles = Mark == Opening || (Mark == Closing && FMarks == TMarkWriting::Doubled);
      Result.append(Doubles ? Mark : std::string_view(Text).substr(i, 1));
      if (Doubles) Result.append(Mark), ++i;
    }
    return Result;
  }

  void Put(std::string_view Text) {
    if (Text.empty()) return;
    if (FParts.empty() || FParts.back().IsSource) FParts.emplace_back();
    FParts.back().Text.append(Text);
  }

  void ChangeTo(const TZyCaptionStyle& Style) {
    using enum TFontStyle;
    for (const auto& [Each, Sequence] :
         {std::pair(Bold, "\\b"), std::pair(Italic, "\\i"), std::pair(Underline, "\\u"), std::pair(Strikeout, "\\o")})
      if (Style.Toggled.Contains(Each) != FStyle.Toggled.Contains(Each)) Put(Sequence);
    if (FStyle.Subscript && !Style.Subscript) Put("\\-");
    if (FStyle.Superscript != Style.Superscript) Put("\\+");
    if (!FStyle.Subscript && Style.Subscript) Put("\\-");
    if (Style.Color != FStyle.Color) Put("\\c" + (Style.Color ? ARGBToRichID(*Style.Color) : std::string("[]")));
    if (Style.Family != FStyle.Family) Put("\\f[" + Style.Family + "]");
    FStyle = Style;
  }

  void WriteAtom(const TZyCaptionAtom& Atom) {
    // The search for marks skips a character behind an empty value.
    if (FIsBehindEmpty && (FParts.empty() || FParts.back().IsSource)) Put("\\b\\b");
    FParts.push_back({Atom.Source, true});
    FStyle = StyleBehind(Atom.Value, FStyle);
    FIsBehindEmpty = Atom.Value.empty();
    FLastOfValue = Atom.Value.empty() ? '\0' : Atom.Value.back();
  }

  void WriteText(const std::string& Text) {
    const bool Follows = !FParts.empty() && FParts.back().IsSource;
    if (FIsBehindEmpty && Follows && (Text.front() == '<' || Text.front() == '%')) Put("\\b\\b");
    FIsBehindEmpty = false;
    const bool MakesMark = (FLastOfValue == '<' && Text.front() == '%') || (FLastOfValue == '%' && Text.front() == '>');
    std::string Written = Follows && MakesMark ? "\\" : "";
    for (std::size_t i = 0; i < Text.size(); ++i) {
      const char C = Text[i];
      Written += C == '\n' ? "\r\n" : std::string(1, C);
      if (C == '\\' && (i == 0 || Text[i - 1] != '\\')) Written += '\\';
      const std::string_view Mark = std::string_view(Text).substr(i, 2);
      if (FMarks == TMarkWriting::Parted && (Mark == Opening || Mark == Closing)) Written += '\\';
    }
    Put(Written);
  }

  TMarkWriting FMarks;
  bool FIsBehindEmpty = false;
  char FLastOfValue = '\0';
  TZyCaptionStyle FStyle;
  std::vector<TWrittenPart> FParts;
};

}  // namespace

std::string TZyCaptionAtom::Variable() const {
  const std::vector<TZyCaptionPiece> Pieces = CaptionPiecesOf(Source);
  return Pieces.size() == 1 && Pieces.front().IsVariable ? Pieces.front().Text : Source;
}

TZyCaptionStyle StyleBehind(std::string_view Value, TZyCaptionStyle Style) {
  if (Value.find('\\') == std::string_view::npos) return Style;
  TRunCollector Collector;
  Collector.Style = std::move(Style);
  Collector.Read(Value);
  return std::move(Collector.Style);
}

TZyCaptionRuns WithoutAtoms(const TZyCaptionRuns& Runs) {
  TRunCollector Collector;
  for (const TZyCaptionRun& Run : Runs) {
    Collector.Style = Run.Style;
    if (Run.Atom != nullptr) {
      Collector.Read(Run.Atom->Value);
    } else {
      Collector.Append(Run.Text);
    }
  }
  return std::move(Collector.Runs);
}

std::shared_ptr<const TZyCaptionAtom> CaptionAtomOf(const std::string& Variable, TZyVariableDependent* Dependent) {
  std::string Source = std::string(Opening) + Variable + std::string(Closing);
  if (CaptionPiecesOf(Source) != std::vector<TZyCaptionPiece>{{true, Variable}})
    throw EConvertError(Format(LoadResString(_sCaptionNoVariable), {Variable}));
  return MakeAtom(std::move(Source), FindTheVar(Variable, Dependent));
}

TZyCaptionRuns ReadCaption(std::string_view Caption, TZyVariableDependent* Dependent, TZyCaptionReading Reading) {
  TCaptionReader Reader(Caption, Dependent, Reading);
  if (Reading == TZyCaptionReading::Strict) return Reader.Read();
  try {
    return Reader.Read();
  } catch (const Exception&) {
    return {{{}, {}, MakeAtom(std::string(Caption), CaptionVerbatim(Caption))}};
  }
}

std::string WriteCaption(TZyCaptionRuns Runs) {
  Runs = Writable(std::move(Runs));
  std::string Result;
  for (const TMarkWriting Marks : {TMarkWriting::Doubled, TMarkWriting::OpeningDoubled, TMarkWriting::Parted}) {
    TCaptionWriter Writer(Marks);
    Writer.Write(Runs);
    Result = Writer.Result();
    if (Writer.HoldsIn(Result)) break;
  }
  return Result;
}

}  // namespace zy
