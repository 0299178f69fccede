#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace zy::testing {

/// A file of the Statistical Reference Datasets of the National Institute of Standards and Technology: data, and what
/// they come to as computed with hundreds of digits.
struct TNistData {
  explicit TNistData(const std::string& Name) {
    std::ifstream File(std::string(ZY_TEST_DATA) + "/nist/" + Name + ".dat");
    for (std::string Line; std::getline(File, Line);) Lines.push_back(Line);
    std::size_t First = Lines.size();
    while (First > 0 && Lines[First - 1].rfind("Data:", 0) != 0) --First;
    for (; First < Lines.size(); ++First) {
      std::istringstream Row(Lines[First]);
      std::vector<double> Values;
      for (double Value; Row >> Value;) Values.push_back(Value);
      for (std::size_t i = 0; i < Values.size(); ++i) {
        if (i == Columns.size()) Columns.emplace_back();
        Columns[i].push_back(Values[i]);
      }
    }
    EXPECT_FALSE(Columns.empty()) << Name;
  }

  /// The numbers behind the last line that has a label, which may stand in front of a colon.
  std::vector<double> Certified(const std::string& Label) const {
    std::vector<double> Values;
    for (const std::string& Line : Lines) {
      const auto Start = Line.find_first_not_of(' ');
      if (Start == std::string::npos || Line.compare(Start, Label.size(), Label) != 0) continue;
      std::string Rest = Line.substr(Start + Label.size());
      const auto Colon = Rest.rfind(':');
      if (Colon != std::string::npos) Rest = Rest.substr(Colon + 1);
      std::istringstream Row(Rest);
      std::vector<double> Found;
      for (double Value; Row >> Value;) Found.push_back(Value);
      if (!Found.empty()) Values = Found;
    }
    EXPECT_FALSE(Values.empty()) << Label;
    return Values;
  }

  std::vector<std::string> Lines;
  std::vector<std::vector<double>> Columns;
};

/// Expects so many digits of a certified value.
inline void ExpectDigits(double Found, double Certified, int Digits, const std::string& What) {
  EXPECT_NEAR(Found, Certified, std::fabs(Certified) * std::pow(10.0, -Digits)) << What;
}

}  // namespace zy::testing
