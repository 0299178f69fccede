#pragma once

#include <string>

namespace zy {

/// What the undo stack needs of an edit control: its text, in the form that brings everything back, and its selection
/// in characters. Implemented by edit controls beside their component class.
class IZyEditState {
 public:
  virtual ~IZyEditState() = default;
  virtual std::string EditText() const = 0;
  virtual void SetEditText(const std::string& Value) = 0;
  virtual int SelStart() const = 0;
  virtual void SetSelStart(int Value) = 0;
  virtual int SelLength() const = 0;
  virtual void SetSelLength(int Value) = 0;
};

}  // namespace zy
