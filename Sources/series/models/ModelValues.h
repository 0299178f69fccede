#pragma once

#include <optional>
#include <string>

class QVariant;

namespace zy {

/// The number of a cell: numbers and truth values as they are, dates and times as days since 30 December 1899 by the
/// clock that they show, and texts that read as one of these, with a decimal point or the user's decimal separator.
/// Not-a-number for a cell without a value, nothing for one whose value is no number.
std::optional<double> NumberOf(const QVariant& Cell);

/// The text of a cell for showing: numbers with up to 15 digits in the user's decimal separator, dates and times in
/// ISO form, empty for a cell without a value.
std::string TextOf(const QVariant& Cell);

}  // namespace zy
