// Main program of the tests of databases: the toolkit loads its drivers for an application object only.
#include <gtest/gtest.h>

#include <QCoreApplication>

int main(int ArgCount, char** Args) {
  ::testing::InitGoogleTest(&ArgCount, Args);
  const QCoreApplication Program(ArgCount, Args);
  return RUN_ALL_TESTS();
}
