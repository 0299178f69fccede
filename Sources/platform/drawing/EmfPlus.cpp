#include "platform/drawing/EmfPlus.h"

#include <QBuffer>
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

#include "platform/drawing/EmfGeometry.h"

namespace zy {
namespace {

// [MS-EMFPLUS], section 2.1.1.1.
enum TPlusType : std::uint16_t {
  PlusHeader = 0x4001,
  PlusEndOfFile = 0x4002,
  PlusGetDc = 0x4004,
  PlusObject = 0x4008,
  PlusFillPath = 0x4014,
  PlusDrawImage = 0x401A,
  PlusResetClip = 0x4031,
  PlusSetClipRect = 0x4032,
  PlusSetClipPath = 0x4033,
};

constexpr std::uint32_t Version = 0xDBC01002;
// Objects have a slot in the lower byte of the flags, and their kind in the upper one.
constexpr std::uint16_t PathSlot = 0;
constexpr std::uint16_t ImageSlot = 1;
constexpr std::uint16_t KindPath = 0x0300;
constexpr std::uint16_t KindImage = 0x0500;
constexpr std::uint16_t BrushIsColor = 0x8000;
constexpr std::uint16_t Intersect = 0x0100;
constexpr std::uint16_t IsDual = 1;  // the records alone are the whole picture too

// Numbers of single precision; what is farther off is far enough.
float Single(double Value) { return std::isnan(Value) ? 0 : static_cast<float>(std::clamp(Value, -1e7, 1e7)); }

}  // namespace

template <typename T>
void TEmfPlus::Put(T Value) {
  static_assert(std::endian::native == std::endian::little, "Records are little-endian");
  const std::size_t Place = FBytes.size();
  FBytes.resize(Place + sizeof(T));
  std::memcpy(FBytes.data() + Place, &Value, sizeof(T));
}

void TEmfPlus::Put(const QRectF& Rect) {
  for (const double Part : {Rect.x(), Rect.y(), Rect.width(), Rect.height()}) Put(Single(Part));
}

void TEmfPlus::Begin(std::uint16_t Type, std::uint16_t Flags) {
  FRecordStart = FBytes.size();
  Put(Type);
  Put(Flags);
  Put(std::uint32_t{0});
  Put(std::uint32_t{0});
}

void TEmfPlus::End() {
  constexpr std::size_t Head = 12;
  FBytes.resize((FBytes.size() + 3) / 4 * 4);
  const auto Size = static_cast<std::uint32_t>(FBytes.size() - FRecordStart);
  const auto DataSize = static_cast<std::uint32_t>(Size - Head);
  std::memcpy(FBytes.data() + FRecordStart + 4, &Size, sizeof Size);
  std::memcpy(FBytes.data() + FRecordStart + 8, &DataSize, sizeof DataSize);
}

TEmfPlus TEmfPlus::Opening(double DotsPerInch) {
  constexpr std::uint32_t ForDisplay = 1;
  const auto Dots = static_cast<std::uint32_t>(std::lround(DotsPerInch));
  TEmfPlus Result;
  Result.Begin(PlusHeader, IsDual);
  for (const std::uint32_t Part : {Version, ForDisplay, Dots, Dots}) Result.Put(Part);
  Result.End();
  Result.Begin(PlusGetDc, 0);
  Result.End();
  return Result;
}

TEmfPlus TEmfPlus::Closing() {
  TEmfPlus Result;
  Result.Begin(PlusEndOfFile, 0);
  Result.End();
  return Result;
}

TEmfPlus TEmfPlus::ThenRecords() {
  TEmfPlus Result;
  Result.Begin(PlusGetDc, 0);
  Result.End();
  return Result;
}

void TEmfPlus::ClipTo(const QRectF& Rect) {
  FIsClipped = true;
  Begin(PlusSetClipRect, Intersect);
  Put(Rect);
  End();
}

void TEmfPlus::ClipTo(const QPainterPath& Path) {
  if (const std::optional<QRectF> Rect = AsRectangle(Path)) return ClipTo(*Rect);
  FIsClipped = true;
  PutPath(Path);
  Begin(PlusSetClipPath, Intersect | PathSlot);
  End();
}

void TEmfPlus::Fill(const QPainterPath& Area, const QColor& Color) {
  PutPath(Area);
  Begin(PlusFillPath, BrushIsColor | PathSlot);
  Put(std::uint32_t{Color.rgba()});
  End();
}

void TEmfPlus::Draw(const QRectF& Place, const QImage& Picture) {
  constexpr std::uint32_t IsBitmap = 1;
  constexpr std::uint32_t IsCompressed = 1;
  constexpr std::uint32_t NoAttributes = 0xFFFFFFFF;
  constexpr std::uint32_t UnitPixel = 2;
  QByteArray Png;
  QBuffer Buffer(&Png);
  Buffer.open(QIODevice::WriteOnly);
  Picture.save(&Buffer, "PNG");
  Begin(PlusObject, KindImage | ImageSlot);
  // A compressed picture tells width, height, stride and pixel format itself.
  for (const std::uint32_t Part : {Version, IsBitmap, 0u, 0u, 0u, 0u, IsCompressed}) Put(Part);
  const auto* First = reinterpret_cast<const std::byte*>(Png.constData());
  FBytes.insert(FBytes.end(), First, First + Png.size());
  End();
  Begin(PlusDrawImage, ImageSlot);
  Put(NoAttributes);
  Put(UnitPixel);
  Put(QRectF(Picture.rect()));
  Put(Place);
  End();
}

void TEmfPlus::Finish() {
  if (!FIsClipped) return;
  FIsClipped = false;
  Begin(PlusResetClip, 0);
  End();
}

/// The path as the object in its slot.
void TEmfPlus::PutPath(const QPainterPath& Path) {
  enum : std::uint8_t { Start = 0, Line = 1, Curve = 3, Closes = 0x80 };
  const int Count = Path.elementCount();
  Begin(PlusObject, KindPath | PathSlot);
  for (const std::uint32_t Part : {Version, static_cast<std::uint32_t>(Count), 0u}) Put(Part);
  for (int Index = 0; Index < Count; ++Index) {
    Put(Single(Path.elementAt(Index).x));
    Put(Single(Path.elementAt(Index).y));
  }
  for (int Index = 0; Index < Count; ++Index) {
    const QPainterPath::Element Element = Path.elementAt(Index);
    const bool IsLast = Index + 1 == Count || Path.elementAt(Index + 1).isMoveTo();
    const int Type = Element.isMoveTo() ? Start : Element.isLineTo() ? Line : Curve;
    Put(static_cast<std::uint8_t>(IsLast && !Element.isMoveTo() ? Type | Closes : Type));
  }
  End();
}

}  // namespace zy
