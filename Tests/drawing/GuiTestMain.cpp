#include <gtest/gtest.h>

#include "platform/controls/TApplication.h"

/// Main program of all tests that draw or show: the application object lives around them.
int main(int ArgCount, char** Args) {
  testing::InitGoogleTest(&ArgCount, Args);
  const zy::TApplication Program(ArgCount, Args);
  return RUN_ALL_TESTS();
}
