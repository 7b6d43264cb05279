// SPDX-License-Identifier: GPL-3.0-or-later
// Letters that choose the entries of a menu, found at run time: captions come from language files, which know
// nothing of them.
#pragma once

#include <QStringList>

namespace dosmara {

// The texts of the entries of one menu, which show `captions` letter by letter, each with one of its own
// characters as its mnemonic. No two share one; an entry goes without only where the others need all of its
// characters.
QStringList WithMnemonics(const QStringList& captions);

// The text of one entry that shows `caption` in the same window as entries of these texts, whose mnemonics
// are taken.
QString WithMnemonic(const QString& caption, const QStringList& texts);

}  // namespace dosmara
