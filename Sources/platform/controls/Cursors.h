#pragma once

class QCursor;

namespace zy {

/// Number of a mouse pointer's shape, as it stands in stored forms.
using TCursor = short;
/// The shapes of the mouse pointer.
enum TCursorShape : TCursor {
  crDefault = 0,  ///< that of the parent
  crNone = -1,
  crArrow = -2,
  crCross = -3,
  crIBeam = -4,
  crSizeNESW = -6,
  crSizeNS = -7,
  crSizeNWSE = -8,
  crSizeWE = -9,
  crUpArrow = -10,
  crHourGlass = -11,
  crDrag = -12,
  crNoDrop = -13,
  crHSplit = -14,
  crVSplit = -15,
  crNo = -18,
  crAppStart = -19,
  crHelp = -20,
  crHandPoint = -21,
  crSizeAll = -22
};

/// The pointer's shape over the whole program, whatever the controls say; crDefault gives it back to them. Kept, but
/// not shown, without windows.
TCursor ApplicationCursor();
void SetApplicationCursor(TCursor Value);

/// Shows the hourglass as long as it lives.
class TBusyCursor {
 public:
  TBusyCursor() : FOld(ApplicationCursor()) { SetApplicationCursor(crHourGlass); }
  ~TBusyCursor() { SetApplicationCursor(FOld); }
  TBusyCursor(const TBusyCursor&) = delete;
  TBusyCursor& operator=(const TBusyCursor&) = delete;

 private:
  TCursor FOld;
};

/// The toolkit's pointer; an arrow for numbers that name no shape.
QCursor ToolkitCursor(TCursor Value);

}  // namespace zy
