// What captions keep: layouts by text and look, and faces by family, size and style.

#include <bit>
#include <functional>
#include <unordered_set>

#include "annotations/captions/ZyCaptionLayout.h"
#include "platform/drawing/FontFamily.h"

namespace zy {
namespace {

std::size_t Mix(std::size_t Hash, std::size_t Value) {
  return Hash ^ (Value + 0x9E3779B97F4A7C15u + (Hash << 6) + (Hash >> 2));
}

std::size_t HashOf(std::string_view Text) { return std::hash<std::string_view>()(Text); }

/// Keeps at least the last Limit items used and at most twice as many, until families come or go: those used since the
/// last change of generation, and those of the generation before. Hash and Equal take items and keys alike.
template <class TItem, class THash, class TEqual>
class TRecentSet {
 public:
  explicit TRecentSet(std::size_t Limit) : FLimit(Limit) {}

  /// The item of a key, null when there is none.
  template <class TKey>
  const TItem* Find(const TKey& Key) {
    if (const unsigned Version = InstalledFontCollection::Version(); Version != FVersion) {
      FYoung.clear();
      FOld.clear();
      FVersion = Version;
    }
    if (const auto Found = FYoung.find(Key); Found != FYoung.end()) return &*Found;
    const auto Found = FOld.find(Key);
    if (Found == FOld.end()) return nullptr;
    auto Node = FOld.extract(Found);
    MakeRoom();
    return &*FYoung.insert(std::move(Node)).position;
  }
  const TItem& Add(TItem Item) {
    MakeRoom();
    return *FYoung.insert(std::move(Item)).first;
  }

 private:
  void MakeRoom() {
    if (FYoung.size() < FLimit) return;
    FOld.swap(FYoung);
    FYoung.clear();
  }

  std::size_t FLimit;
  unsigned FVersion = 0;
  std::unordered_set<TItem, THash, TEqual> FYoung, FOld;
};

// --- Layouts --------------------------------------------------------------------------------------------------------

struct TLayoutKey {
  std::string_view Text;
  TZyCaptionLook Look;
};

using TLayout = std::shared_ptr<const TZyCaptionLayout>;

TLayoutKey KeyOf(const TLayoutKey& Key) { return Key; }
TLayoutKey KeyOf(const TLayout& Layout) { return {Layout->Text, Layout->Look()}; }

struct TLayoutHash {
  using is_transparent = void;
  template <class T>
  std::size_t operator()(const T& Item) const {
    const auto& [Text, Look] = KeyOf(Item);
    const auto Column = static_cast<std::size_t>(Look.Column);
    std::size_t Hash = Mix(HashOf(Text), HashOf(Look.FontName));
    Hash = Mix(Hash, std::bit_cast<std::uint32_t>(Look.FontSize) ^ Look.FontStyle.Bits());
    return Mix(Hash, Look.Color ^ Look.DrawEffects.Bits() << 8 ^ Column << 16);
  }
};

struct TLayoutEqual {
  using is_transparent = void;
  template <class TOne, class TTwo>
  bool operator()(const TOne& One, const TTwo& Two) const {
    const TLayoutKey A = KeyOf(One), B = KeyOf(Two);
    return A.Text == B.Text && A.Look == B.Look;
  }
};

// --- Faces ----------------------------------------------------------------------------------------------------------

struct TFaceKey {
  std::string_view FamilyName;
  float Size;
  TFontStyles Style;
  bool operator==(const TFaceKey&) const = default;
};

TFaceKey KeyOf(const TFaceKey& Key) { return Key; }
TFaceKey KeyOf(const TZyCaptionFace& Item) {
  return {Item.Face.GetFamilyName(), Item.Face.GetSize(), Item.Face.GetStyle()};
}

struct TFaceHash {
  using is_transparent = void;
  template <class T>
  std::size_t operator()(const T& Item) const {
    const TFaceKey Key = KeyOf(Item);
    return Mix(HashOf(Key.FamilyName), std::bit_cast<std::uint32_t>(Key.Size) ^ Key.Style.Bits());
  }
};

struct TFaceEqual {
  using is_transparent = void;
  template <class TOne, class TTwo>
  bool operator()(const TOne& One, const TTwo& Two) const {
    return KeyOf(One) == KeyOf(Two);
  }
};

constexpr std::size_t MostLayouts = 2000;
constexpr std::size_t MostFaces = 200;
constexpr std::size_t LongestKept = 1000;  // bytes of a text

}  // namespace

std::shared_ptr<const TZyCaptionLayout> CaptionLayoutOf(std::string_view Text, const TZyCaptionLook& Look) {
  static TRecentSet<TLayout, TLayoutHash, TLayoutEqual> Layouts(MostLayouts);
  if (const TLayout* const Known = Layouts.Find(TLayoutKey{Text, Look})) return *Known;
  auto Layout = std::make_shared<const TZyCaptionLayout>(Text, Look);
  return Text.size() > LongestKept ? Layout : Layouts.Add(std::move(Layout));
}

TZyCaptionFace CaptionFaceOf(std::string_view FamilyName, float Size, TFontStyles Style) {
  static TRecentSet<TZyCaptionFace, TFaceHash, TFaceEqual> Faces(MostFaces);
  if (const TZyCaptionFace* const Known = Faces.Find(TFaceKey{FamilyName, Size, Style})) return *Known;
  Font Face(FamilyName, Size, Style);
  const bool IsAvailable = Face.IsAvailable();
  const float LineHeight = Face.GetHeight();
  return Faces.Add({std::move(Face), IsAvailable, LineHeight});
}

}  // namespace zy
