#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/drawing/Geometry.h"
#include "platform/drawing/GraphicsBackend.h"

namespace zy {

class Graphics;
class TStream;

/// A drawing as the calls that made it: replayed in any size on any target, and written as a file of lines, areas and
/// texts.
///
/// `Graphics Canvas(Recording);` records. What calls refer to is copied, so that nothing but the recording must live
/// on.
class Metafile {
 public:
  /// Width and Height are those of the page, in pixels. Throws ERangeError unless both are finite and above 0.
  Metafile(float Width, float Height);

  float GetWidth() const { return FWidth; }
  float GetHeight() const { return FHeight; }
  std::size_t CallCount() const { return FCalls.size(); }

  /// Replays the page, scaled into To, on top of the target's present transform and clip, which then are as before.
  void PlayTo(Graphics& Target, const RectF& To) const;

  /// Writes the page as "EMF", "PDF" or "SVG", in any case of letters. Throws EStreamError, with nothing written, for
  /// an unknown format.
  void Save(TStream& Stream, std::string_view FormatName) const;
  /// Writes a file in the format that its extension names. Throws EFileError when it cannot be
  /// written and EStreamError as above, both with the file's name and with an old file whole.
  void Save(const std::filesystem::path& FileName) const;

  /// For Graphics: a backend that appends to this recording, which must outlive it.
  std::unique_ptr<TGraphicsBackend> Recorder();

 private:
  class TRecorder;
  struct TCall {
    TDrawState State;
    std::function<void(Graphics&)> Play;
  };

  float FWidth;
  float FHeight;
  std::vector<TCall> FCalls;
};

}  // namespace zy
