#pragma once

#include <vector>

namespace zy {

class TPersistent;
class TStream;
class TZyUndoStack;

// What the undo stack asks of the objects that it serves, so that it knows none of their classes. A class implements an
// interface beside its own base; the stack finds it by a dynamic cast.

/// An object whose contents are logged as bytes: a data vector.
class IZyStreamState {
 public:
  virtual ~IZyStreamState() = default;
  /// Writes everything that ReadFrom needs, and reads it back.
  virtual void WriteTo(TStream& Stream) const = 0;
  virtual void ReadFrom(TStream& Stream) = 0;
};

/// A component whose changes are logged.
class IZyUndoUser {
 public:
  virtual ~IZyUndoUser() = default;
  virtual TZyUndoStack* UndoStack() const = 0;
  virtual void SetUndoStack(TZyUndoStack* Value) = 0;
};

/// A component with a place among its like that changes as they come and go: a series in the drawing order.
class IZyUndoPlace {
 public:
  virtual ~IZyUndoPlace() = default;
  virtual int Place() const = 0;
  /// Moves it there, past the others.
  virtual void SetPlace(int Value) = 0;
};

/// An object with settings objects that are no properties of it, such as the entries of a list. The stack notes how
/// records name them, so that steps of theirs hold when the object is freed and brought back.
class IZyUndoParts {
 public:
  virtual ~IZyUndoParts() = default;
  /// In an order that a stored form keeps.
  virtual std::vector<TPersistent*> UndoParts() const = 0;
};

/// A chart that takes the first undo stack which is put on its form while that is designed.
class IZyUndoHolder : public IZyUndoUser {};

}  // namespace zy
