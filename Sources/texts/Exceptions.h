#pragma once

#include <stdexcept>
#include <string>

namespace zy {

/// Base of every exception that the library throws. Texts are those of the text table, filled with what and where.
class Exception : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  /// Puts in front of the text where it happened, for whoever passes the exception on and knows.
  void AddPlace(const std::string& Place) {
    static_cast<std::runtime_error&>(*this) = std::runtime_error(Place + ": " + what());
  }
};

/// An operation that the object cannot carry out in its present state.
class EInvalidOperation : public Exception {
 public:
  using Exception::Exception;
};

/// What was going on has lost its ground, and ends without a word to the user.
class EAbort : public Exception {
 public:
  using Exception::Exception;
};

/// An index or a value outside its range.
class ERangeError : public Exception {
 public:
  using Exception::Exception;
};

/// An operation that the class leaves to its descendants.
class EMethodNotFound : public Exception {
 public:
  using Exception::Exception;
};

/// A calculation without a result.
class EMathError : public Exception {
 public:
  using Exception::Exception;
};

/// A counter that left its range.
class EOverflow : public EMathError {
 public:
  using EMathError::EMathError;
};

/// A text or a value that cannot be converted to what is asked for.
class EConvertError : public Exception {
 public:
  using Exception::Exception;
};

/// A failure that comes from outside the library's own rules, such as a write to a read-only vector.
class EExternal : public Exception {
 public:
  using Exception::Exception;
};

/// A duplicate or malformed component name.
class EComponentError : public Exception {
 public:
  using Exception::Exception;
};

/// Anything that goes wrong with a stream.
class EStreamError : public Exception {
 public:
  using Exception::Exception;
};

/// A file that cannot be opened or created.
class EFileError : public EStreamError {
 public:
  using EStreamError::EStreamError;
};

/// Component streaming: a property that does not exist and the like.
class EFilerError : public EStreamError {
 public:
  using EStreamError::EStreamError;
};

/// Component streaming: malformed, truncated or mistyped input.
class EReadError : public EFilerError {
 public:
  using EFilerError::EFilerError;
};

/// Component streaming: a class name that is not registered.
class EClassNotFound : public EFilerError {
 public:
  using EFilerError::EFilerError;
};

/// A printer that is not there, cannot print, or is not in the state for what is asked of it.
class EPrinter : public Exception {
 public:
  using Exception::Exception;
};

/// A malformed key-value file.
class EIniFileError : public Exception {
 public:
  using Exception::Exception;
};

/// A malformed XML text, or a node or attribute that is taken to be there and is not.
class EXMLError : public Exception {
 public:
  using Exception::Exception;
};

/// A database that cannot be reached, a table or a field that is not there, a value or a state that does not allow what
/// is asked for.
class EDatabaseError : public Exception {
 public:
  using Exception::Exception;
};

}  // namespace zy
