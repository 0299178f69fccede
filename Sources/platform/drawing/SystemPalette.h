#pragma once

namespace zy {

/// Lets SystemColor answer with the palette of the application object, once there is one. The drawing surface calls it
/// at start. Returns true.
bool UseSystemPalette();
/// Reads the palette again.
void RefreshSystemPalette();

}  // namespace zy
