// Int(Rnd x n) + k takes the floor: a negative n reaches n but never 0.
#include <gtest/gtest.h>

#include <set>

#include "core/random.h"

TEST(Random, IntTakesTheFloorForEitherSign) {
  core::Randomize(7);
  std::set<int> negative, positive;
  for (int i = 0; i < 2000; ++i) {
    negative.insert(core::RandomInt(-5));
    positive.insert(core::RandomInt(5, 1));
  }
  EXPECT_EQ(negative, (std::set<int>{-5, -4, -3, -2, -1}));
  EXPECT_EQ(positive, (std::set<int>{1, 2, 3, 4, 5}));
  // The same seed, the same draws.
  core::Randomize(7);
  int first = core::RandomInt(1000);
  core::Randomize(7);
  EXPECT_EQ(core::RandomInt(1000), first);
  for (int i = 0; i < 200; ++i) EXPECT_EQ(core::RandomInt(-1, 3), 2) << "Int(Rnd x -1) is -1";
}
