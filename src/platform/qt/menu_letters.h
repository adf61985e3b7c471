#pragma once

#include <QStringList>

namespace brindlemoor {

/// The captions of one menu as the widgets want them: each has an "&" in front of the letter that
/// chooses it by key, another one in each item as far as there are letters; the first of a word is
/// taken before one within a word. An "&" of the caption itself is doubled, and a tab, which would
/// begin the column of the shortcuts, becomes a blank. Separators ("-") take no letter.
QStringList WithLetters(const QStringList& captions);

}  // namespace brindlemoor
