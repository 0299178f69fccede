#pragma once

#include <string>
#include <vector>

namespace zy {

class TComponent;
class TZyPropertyLinks;

/// What a designer offers for Items: the paths to all published properties of Root (a form or a data module), of what
/// it owns, and of the settings in them, that have the type of the managed property. Singles and doubles are one type
/// there. Left out are the managed control itself and what has no name. In the order of creation and of the tables.
std::vector<std::string> LinkChoices(const TZyPropertyLinks& Links, TComponent& Root);

}  // namespace zy
