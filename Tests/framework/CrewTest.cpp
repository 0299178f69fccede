#include <gtest/gtest.h>

#include <atomic>
#include <numeric>
#include <vector>

#include "platform/framework/TCrew.h"

namespace zy {
namespace {

TEST(Crew, JobsOfALaneFollowEachOther) {
  for (const int Processors : {1, 2, 7}) {
    TCrew::SetProcessors(Processors);
    constexpr int Lanes = 5, Jobs = 200;
    std::vector<std::vector<int>> Done(Lanes);
    {
      TCrew Crew(Lanes);
      for (int Job = 0; Job < Jobs; ++Job) {
        Crew.Post([&Done, Job](int Lane) { Done[static_cast<std::size_t>(Lane)].push_back(Job); });
        if (Job % 50 == 0) Crew.FinishUpTo(3);
      }
    }
    std::vector<int> InOrder(Jobs);
    std::iota(InOrder.begin(), InOrder.end(), 0);
    for (const std::vector<int>& Lane : Done) EXPECT_EQ(Lane, InOrder);
  }
  TCrew::SetProcessors(0);
  EXPECT_GE(TCrew::Processors(), 1);
}

TEST(Crew, EveryPieceIsDoneOnce) {
  TCrew::SetProcessors(3);
  std::vector<std::atomic<int>> Times(100);
  InParallel(100, [&](int Piece) { ++Times[static_cast<std::size_t>(Piece)]; });
  for (const std::atomic<int>& Each : Times) EXPECT_EQ(Each, 1);
  InParallel(0, [](int) { FAIL(); });
  TCrew::SetProcessors(0);
}

}  // namespace
}  // namespace zy
