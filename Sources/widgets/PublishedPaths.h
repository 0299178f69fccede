#pragma once

#include <QVariant>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zy {

class TPersistent;
class TPropInfo;

/// The published properties of a component as the toolkit's editors and forms have them: by paths with points in
/// between ("MajorGridVertical.Visible"), with colours as QColor, values of enumerations and sets by their names,
/// reals, integers, truth values and texts as such.

/// One that can be edited: no event, no reference, nothing that only a parent decides, such as the bounds.
struct TPublishedPath {
  std::string Path;
  const TPropInfo* Info = nullptr;
};

/// Those of an object and of all that it is made of: settings objects, and components that it refers to under the names
/// in Parts ("PrimaryXAxis").
std::vector<TPublishedPath> PublishedPaths(TPersistent& Object, const std::vector<std::string>& Parts);

/// The value at a path; invalid when there is none.
QVariant ReadPublished(TPersistent& Object, std::string_view Path);
/// Whether the property, and each that it is part of, is stored for the objects as they are; see TPropInfo::StoredIf.
bool IsPublishedStored(TPersistent& Object, std::string_view Path);
/// The names that the value of an enumeration or a set is made of; empty for any other property.
std::span<const std::string_view> PublishedNames(TPersistent& Object, std::string_view Path);
/// Writes through the property's setter; false when there is none at that path. Throws EConvertError or ERangeError,
/// with the property's name, for a value that does not fit.
bool WritePublished(TPersistent& Object, std::string_view Path, const QVariant& Value);

}  // namespace zy
