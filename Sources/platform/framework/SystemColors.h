#pragma once

#include "platform/framework/Argb.h"

namespace zy {

/// Number of colours that a desktop has for the parts of its windows.
inline constexpr int SystemColorCount = 31;

/// The desktop's colour of a number from 0 to SystemColorCount - 1, opaque; black for any other number.
///
/// The numbers: 0 scroll bar, 1 desktop, 2 and 3 active and inactive caption, 4 menu, 5 window, 6 window frame, 7 menu
/// text, 8 window text, 9 caption text, 10 and 11 active and inactive border, 12 work space, 13 and 14 highlight and
/// its text, 15 button face, 16 button shadow, 17 gray text, 18 button text, 19 inactive caption text, 20 button
/// highlight, 21 dark shadow, 22 light edge, 23 and 24 text and background of hints, 25 alternate face, 26 link, 27 and
/// 28 second colours of the captions, 29 menu highlight, 30 menu bar.
///
/// Read from the application's palette at the first call; a later change of the palette is followed while anything
/// watches it (TPaletteWatch). Until there is an application object, and in a program that draws nothing, the colours
/// are those of a plain light desktop.
ARGB SystemColor(int Number);

/// Where the colours of the present desktop come from; 0 for one that it does not know yet. The drawing surface sets
/// it.
using TSystemColorReader = ARGB (*)(int Number);
void SetSystemColorReader(TSystemColorReader Value);

}  // namespace zy
