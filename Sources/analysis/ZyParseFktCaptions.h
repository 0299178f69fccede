#pragma once

#include <string>
#include <string_view>

namespace zy {

class TZyVariableDependent;

/// The value of what stands between the marks <% and %> of a caption: a text variable by its full name, whose text is
/// expanded as well, or a formula, which may be followed by ";" and a format for FormatFloat. Case does not count, so
/// letters in a format come out as capitals. Dependent, unless null, is noted with the containers of all variables
/// used.
///
/// Throws what a formula throws when it is set or evaluated: a name that no list holds is a formula.
std::string FindTheVar(std::string_view Name, TZyVariableDependent* Dependent);

/// Text with each <%...%> replaced by its value; <%<% gives the mark <% itself, and %>%> the mark %>, provided that a
/// <% stands somewhere behind the last place of a replacement. A value that begins with a mark is not expanded again.
///
/// Text variables that lead back to themselves end at a depth of 16, where the mark stays as text; so do those that
/// would grow without bounds. Throws what FindTheVar throws; a mark that is not closed is an empty formula.
std::string ParseVariables(std::string_view Text, TZyVariableDependent* Dependent);

}  // namespace zy
