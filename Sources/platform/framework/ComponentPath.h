#pragma once

#include <string>
#include <string_view>

namespace zy {

class TComponent;

/// Names from below Root (or from below the application, with Root null) down to Component, joined by ".".
/// Empty for null, and when a name on the way is empty. With a Root that does not own Component, directly or through
/// others, the names from below the application count.
std::string ComponentPath(const TComponent* Component, const TComponent* Root = nullptr);

/// The component of a path: below Root when there is one and the path leads somewhere there, else from the data modules
/// and forms of the screen, and what else the application owns. Null when any part is missing.
TComponent* ComponentFromPath(std::string_view Path, const TComponent* Root = nullptr);

}  // namespace zy
