#pragma once

#include <filesystem>
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

#include "platform/framework/TStream.h"
#include "series/ZyCustomDoubleVector.h"

namespace zy {

class IXMLNode;
class TCustomIniFile;

/// A data vector that holds its values.
class TZyDoubleVector : public TZyCustomDoubleVector {
  ZY_CLASS(TZyDoubleVector, TZyCustomDoubleVector)
  explicit TZyDoubleVector(TComponent* Owner = nullptr);

  /// Whether the values are stored with the form.
  bool PersistentValues() const { return FPersistentValues; }
  void SetPersistentValues(bool Value) { FPersistentValues = Value; }

  /// Whether the vector is filled from a database field.
  bool DBData() const { return false; }

  /// Appends all values with one notification.
  void AddRange(std::span<const double> Range);
  void AddRange(std::span<const float> Range);
  void AddRange(std::span<const int> Range);
  void AddRange(std::initializer_list<double> Range) { AddRange(std::span(Range.begin(), Range.size())); }

  /// The values themselves. Writes through it pass by all tracking: call OutOfRange when they are done.
  std::span<double> InternalArray() { return FArray; }
  /// Takes over an array as the storage, without a copy; count and capacity become its length. Outlier marks stay.
  void SetInternalArray(std::vector<double> Value);

  // The vector's record in the three forms of stored charts. Readers replace increment, capacity, values and marks;
  // what was read before a failure stays. They throw EReadError for a truncated stream, EXMLError and EConvertError for
  // texts that are none of the form's.
  void WriteTo(TStream& Stream) const;
  void ReadFrom(TStream& Stream);
  /// A file of the stream's form. Throw EFileError, naming the file, when it cannot be opened.
  void WriteTo(const std::filesystem::path& FileName) const;
  void ReadFrom(const std::filesystem::path& FileName);
  /// A new child of Node, and the first such child of it.
  void WriteTo(const IXMLNode& Node) const;
  void ReadFrom(const IXMLNode& Node);
  void WriteTo(TCustomIniFile& Ini, std::string_view Section) const;
  void ReadFrom(const TCustomIniFile& Ini, std::string_view Section);

  void DefineProperties(TFiler& Filer) override;

 private:
  template <class T>
  void Append(std::span<const T> Range);

  bool FPersistentValues = false;
};

}  // namespace zy
