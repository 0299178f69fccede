#pragma once

namespace zy {

/// Takes all texts of the library from the translators that are installed in the toolkit's application object, now and
/// at each change of its language (QEvent::LanguageChange), before windows are told of that.
///
/// Asks `QCoreApplication::translate` for the English text of each row in the context "Zyphos", with the row's symbol,
/// such as "_sAxisStart", as the comment; the line breaks of a row are "\n" there. A row that no translator knows, or
/// has an empty text for, reads in English. What LoadLanguage had loaded is replaced. Texts that are shown already stay
/// as they are; what is made, opened or thrown from then on has the new ones.
///
/// On the control thread, once in a program; further calls ask again. Ends with the application object, and does
/// nothing in a program without one.
void UseTranslators();

}  // namespace zy
