#include "platform/drawing/ZyRasterThinQueue.h"

#include <algorithm>
#include <atomic>
#include <utility>

#include "platform/drawing/ZyRasterThin.h"

namespace zy {
namespace {

constexpr std::size_t PointsOfBlock = 1 << 14;  // as long to draw as some threads take to start
constexpr int MostBlocks = 32;                  // that wait
constexpr std::size_t KeptBlocks = 8;           // for the next lines
constexpr int MostLanes = 32;
constexpr int Together = 16;  // columns of a picture that no two processors write at once: a line of their caches

}  // namespace

struct TRasterThinQueue::TBlock {
  struct TLine {
    TRasterRect Clip;
    std::uint32_t Color;
    TRasterCap Cap;
    std::size_t First, Count;  // of its points
  };
  std::vector<TLine> Lines;
  std::vector<PointF> Points;
  std::atomic<int> Waiting = 0;  // lanes that have yet to draw it

  /// Forgets the lines. The memory of very long ones is given back.
  void Clear() {
    Lines.clear();
    Points.clear();
    if (Points.capacity() > 4 * PointsOfBlock) Points.shrink_to_fit();
  }
  void Draw(const TRasterTarget& Target, int Left, int Right) const {
    for (const TLine& Line : Lines) {
      if (std::max(Left, Line.Clip.Left) >= std::min(Right, Line.Clip.Right)) continue;
      TRasterThin(Target, Line.Clip, Line.Color, Left, Right)
          .Line(std::span(Points).subspan(Line.First, Line.Count), Line.Cap, Line.Cap);
    }
  }
};

TRasterThinQueue::TRasterThinQueue() = default;
TRasterThinQueue::~TRasterThinQueue() = default;

void TRasterThinQueue::Add(const TRasterTarget& Target, const TRasterRect& Clip, std::uint32_t Color,
                           std::span<const PointF> Points, TRasterCap Cap) {
  if (IsEmpty()) FTarget = Target;  // which others read from then on
  if (FNext == nullptr) {
    const auto Free = std::ranges::find_if(FBlocks, [](const auto& Block) { return Block->Waiting.load() == 0; });
    FNext = Free != FBlocks.end() ? Free->get() : FBlocks.emplace_back(std::make_unique<TBlock>()).get();
    FNext->Clear();
  }
  const std::size_t First = FNext->Points.size();
  FNext->Points.insert(FNext->Points.end(), Points.begin(), Points.end());
  FNext->Lines.push_back({Clip, Color, Cap, First, Points.size()});
  if (FNext->Points.size() >= PointsOfBlock) PostBlock();
}

void TRasterThinQueue::PostBlock() {
  if (!FCrew) {
    FLanes = std::clamp(TCrew::Processors(), 1, MostLanes);
    FCrew.emplace(FLanes);
  }
  TBlock& Block = *std::exchange(FNext, nullptr);
  Block.Waiting = FLanes;
  FCrew->Post([this, &Block](int Lane) {
    const auto Edge = [this](int i) { return FTarget.Width * i / FLanes / Together * Together; };
    Block.Draw(FTarget, Edge(Lane), Lane + 1 == FLanes ? FTarget.Width : Edge(Lane + 1));
    --Block.Waiting;
  });
  FCrew->FinishUpTo(MostBlocks);
}

void TRasterThinQueue::Finish() {
  if (FCrew && FNext != nullptr) PostBlock();
  FCrew.reset();
  if (FNext != nullptr) FNext->Draw(FTarget, 0, FTarget.Width);
  FNext = nullptr;
  if (FBlocks.size() > KeptBlocks) FBlocks.resize(KeptBlocks);  // how many there were depends on the threads' pace
  for (const std::unique_ptr<TBlock>& Block : FBlocks) Block->Clear();
}

}  // namespace zy
