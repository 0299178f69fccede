#pragma once

#include <string>
#include <vector>

#include "platform/drawing/Graphics.h"

namespace zy {

/// A Graphics that draws nothing and lists its calls as texts, with numbers rounded to hundredths; for tests.
///
/// A call is its name and its arguments: "DrawLine(pen FF000000 1, 0 0, 10 5)". What it is drawn under is listed as a
/// call of its own in front of it when it is other than before: "SetTransform(1 0 0 1, 10 20)", "SetClip(0 0 100 50)",
/// "SetSmoothingMode(3)".
class TRecordingGraphics : public Graphics {
 public:
  TRecordingGraphics();
  ~TRecordingGraphics() override;

  const std::vector<std::string>& Calls() const;
  /// Indexes of the calls that begin with a text.
  std::vector<std::size_t> CallsOf(std::string_view Start) const;
  void ClearCalls();

 private:
  class TBackend;
  explicit TRecordingGraphics(TBackend* Backend);

  TBackend* FCalls;  // lives as long as this
};

}  // namespace zy
