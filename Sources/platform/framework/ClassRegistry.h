#pragma once

#include <string_view>
#include <vector>

namespace zy {

class TClassInfo;

/// Makes a class known by its name, so that stored forms can create its objects. ZY_PUBLISHED does it for every class
/// at start. Registering the same class again changes nothing. Returns true.
bool RegisterClass(const TClassInfo& Info);

/// The registered class of that name, null when there is none.
const TClassInfo* GetClass(std::string_view ClassName);

/// As GetClass, but throws EClassNotFound, naming the class, when there is none.
const TClassInfo& FindClass(std::string_view ClassName);

/// All registered classes, by name.
std::vector<const TClassInfo*> RegisteredClasses();

}  // namespace zy
