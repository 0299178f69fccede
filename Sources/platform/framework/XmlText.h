#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zy {

// The rules of XML 1.0 for names, characters and references, apart from any tree.

/// Index of the first byte that no XML text can hold: malformed UTF-8, a control character other than tab, line feed
/// and carriage return, or a code that XML excludes. The length of Text when there is none.
std::size_t FirstBadXmlByte(std::string_view Text);

/// Whether Name can name an element or an attribute.
bool IsXmlName(std::string_view Name);

/// Text as it stands in a file between tags. A carriage return becomes a reference, since readers turn a bare one into
/// a line feed; so does the first character of a text of nothing but white space, which readers take for indentation.
std::string EscapeXmlText(std::string_view Text);

/// Text as it stands in a file between the double quotes of an attribute, with references for line ends and tabs, which
/// readers would turn into blanks.
std::string EscapeXmlAttribute(std::string_view Text);

/// Text with its references resolved: the five entities that XML defines, and characters by code. Nothing when a
/// reference is malformed, unknown or to a character that XML excludes.
std::optional<std::string> UnescapeXml(std::string_view Text);

}  // namespace zy
