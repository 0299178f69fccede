#pragma once

#include <string>
#include <tuple>
#include <vector>

#include "analysis/ZyParseFktCaptions.h"
#include "annotations/captions/ZyCaptionLayout.h"
#include "annotations/captions/ZyCaptionRuns.h"
#include "texts/Exceptions.h"

namespace zy::testing {

/// What is drawn of a caption, whatever runs it is drawn in.
inline auto DrawnOf(const std::string& Caption) {
  std::vector<std::tuple<int, std::string, float, unsigned, TZyColor, std::string>> Result;
  TZyCaptionLook Look;
  Look.FontName = "DejaVu Sans";
  Look.FontSize = 10;
  const TZyCaptionLayout Layout(ParseVariables(Caption, nullptr), Look);
  for (const TZySubCaption& Run : Layout.SubCaptions) {
    std::tuple Each(Run.LineIndex, Run.FontName(), Run.RunFont.GetSize(), Run.RunFont.GetStyle().Bits(), Run.Color,
                    std::string());
    auto Last = Result.empty() ? Each : Result.back();
    std::get<5>(Last).clear();
    if (Result.empty() || Last != Each) Result.push_back(Each);
    std::get<5>(Result.back()) += Run.Caption;
  }
  return std::pair(Result, Layout.Height);
}

/// What is wrong with a caption that was read into runs and written from them; empty when nothing is.
inline std::string RoundTripFault(const std::string& Caption) {
  bool IsDrawn = true;
  try {
    DrawnOf(Caption);
  } catch (const Exception&) {
    IsDrawn = false;
  }
  std::string Written;
  try {
    Written = WriteCaption(ReadCaption(Caption, nullptr));
  } catch (const Exception&) {
    return IsDrawn ? "cannot be read" : "";
  }
  if (!IsDrawn) return "is read and cannot be drawn";
  try {
    if (DrawnOf(Written) != DrawnOf(Caption)) return "looks different as " + Written;
    const std::string Again = WriteCaption(ReadCaption(Written, nullptr));
    return Again == Written ? "" : "is " + Written + " and then " + Again;
  } catch (const Exception& Error) {
    return "cannot be used as " + Written + ": " + Error.what();
  }
}

}  // namespace zy::testing
