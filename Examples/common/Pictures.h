#pragma once

#include <filesystem>
#include <initializer_list>

#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Metafile.h"

namespace zy::examples {

/// Draws into Stem.png, and with two stored pixels for each logical one into Stem@2x.png.
template <class TDraw>
void SavePictures(const std::filesystem::path& Stem, int Width, int Height, const TDraw& Draw) {
  for (const int Ratio : {1, 2}) {
    Bitmap Picture(Width, Height, static_cast<float>(Ratio));
    {
      Graphics Canvas(Picture);
      Draw(Canvas);
    }
    Picture.Save(Stem.string() + (Ratio == 1 ? ".png" : "@2x.png"));
  }
}

/// Records once, and writes the recording as Stem with each of the extensions: ".svg", ".pdf", ".emf".
template <class TDraw>
void SaveRecordings(const std::filesystem::path& Stem, int Width, int Height,
                    std::initializer_list<const char*> Extensions, const TDraw& Draw) {
  Metafile Recording(static_cast<float>(Width), static_cast<float>(Height));
  {
    Graphics Canvas(Recording);
    Draw(Canvas);
  }
  for (const char* Extension : Extensions) Recording.Save(Stem.string() + Extension);
}

}  // namespace zy::examples
