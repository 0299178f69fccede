#include "annotations/captions/ZyCaptionPieces.h"

#include <utility>

namespace zy {
namespace {

constexpr auto None = std::string_view::npos;

class TPieceReader {
 public:
  explicit TPieceReader(std::string_view Caption) : FCaption(Caption) {}

  std::vector<TZyCaptionPiece> Read() {
    while (Step()) {
    }
    TakeTo(FCaption.size());
    EndText();
    return std::move(FPieces);
  }

 private:
  bool Is(std::string_view Mark, std::size_t At) const { return FCaption.substr(At, Mark.size()) == Mark; }

  void TakeTo(std::size_t End) {
    FText.append(FCaption, FAt, End - FAt);
    FAt = End;
  }

  /// Of a doubled mark the second one stays; the search goes on within it.
  void KeepOne(std::size_t At) {
    TakeTo(At);
    FAt += 2;
    TakeTo(FAt + 1);
  }

  void EndText() {
    if (!FText.empty()) FPieces.push_back({false, std::exchange(FText, {})});
  }

  bool Step() {
    const std::size_t Open = FCaption.find("<%", FAt);
    if (Open == None) return false;
    const bool Opens = !Is("<%<%", Open);
    if (!Opens) KeepOne(Open);
    // Found again only when it was passed: a caption with many opening marks and no closing one is searched once.
    if (!FCloseKnown || (FClose != None && FClose < FAt)) FClose = FCaption.find("%>", FAt);
    FCloseKnown = true;
    const bool Doubled = FClose != None && Is("%>%>", FClose);
    if (!Opens || FClose < Open) {
      if (Doubled) {
        KeepOne(FClose);
      } else if (Opens) {
        TakeTo(FClose + 2);
      }
      return true;
    }
    TakeTo(Open);
    EndText();
    const bool Closed = FClose != None && FClose >= Open + 2;
    FPieces.push_back({true, Closed ? std::string(FCaption.substr(Open + 2, FClose - Open - 2)) : std::string()});
    FAt = Closed ? FClose + (Doubled ? 4 : 2) : Open + 2;
    return true;
  }

  std::string_view FCaption;
  std::size_t FAt = 0;
  std::size_t FClose = None;
  bool FCloseKnown = false;
  std::string FText;
  std::vector<TZyCaptionPiece> FPieces;
};

}  // namespace

std::vector<TZyCaptionPiece> CaptionPiecesOf(std::string_view Caption) { return TPieceReader(Caption).Read(); }

}  // namespace zy
