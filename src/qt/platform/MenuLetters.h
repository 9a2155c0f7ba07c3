// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <vector>

class QMenu;

namespace planview {

/// For each caption of one menu the place of the letter or digit that chooses it by keyboard, -1 where it has none.
/// First letters come before the initials of later words, and these before all others; where a menu has more entries
/// than letters, some share their first one.
[[nodiscard]] std::vector<qsizetype> menuLetters(const QStringList& captions);

/// Gives the entries of the menu their letters; their texts are captions without any.
void giveLetters(QMenu& menu);

/// The text with the character at this place as its mnemonic, -1 for none; "&" in the text itself is shown verbatim.
[[nodiscard]] QString withMnemonicAt(const QString& text, qsizetype place);

}  // namespace planview
