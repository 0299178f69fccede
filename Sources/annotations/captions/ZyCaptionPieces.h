#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zy {

/// A part of a caption between the marks of variables, or what stands between two of these marks.
struct TZyCaptionPiece {
  bool IsVariable = false;
  std::string Text;  ///< with doubled marks as the single ones that they stand for
  bool operator==(const TZyCaptionPiece&) const = default;
};

/// Takes a caption apart as ParseVariables does whose variables have values without marks. Texts that follow each other
/// are one. A mark that is not closed is a variable without a name.
std::vector<TZyCaptionPiece> CaptionPiecesOf(std::string_view Caption);

}  // namespace zy
