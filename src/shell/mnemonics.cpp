// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/mnemonics.h"

#include <QKeySequence>
#include <QMap>
#include <QSet>
#include <algorithm>
#include <vector>

namespace dosmara {

namespace {

bool BeginsWord(const QString& caption, qsizetype i) { return i == 0 || !caption[i - 1].isLetterOrNumber(); }

// Where in a caption a mnemonic can stand, the best place first: letters and digits at the beginning of a
// word, then the other ones; signs only where there is nothing else, as in "?".
std::vector<qsizetype> Places(const QString& caption) {
  std::vector<qsizetype> places;
  for (qsizetype i = 0; i < caption.size(); ++i) {
    if (caption[i].isLetterOrNumber()) {
      places.push_back(i);
    }
  }
  std::stable_partition(places.begin(), places.end(), [&](qsizetype i) { return BeginsWord(caption, i); });
  for (qsizetype i = 0; places.empty() && i < caption.size(); ++i) {
    if (caption[i] != '&' && (caption[i].isPunct() || caption[i].isSymbol())) {
      places.push_back(i);
    }
  }
  return places;
}

// Gives each caption a place whose key no other one has. The beginnings of words are given away first. A
// caption that then finds all of its keys taken makes another one move on, if that one can.
class Assignment {
 public:
  explicit Assignment(const QStringList& captions) : captions_(captions), places_(captions.size(), -1) {
    for (qsizetype i = 0; i < captions.size(); ++i) {
      TakeFree(i, true);
    }
    for (qsizetype i = 0; i < captions.size(); ++i) {
      QSet<QChar> tried;
      if (places_[i] < 0) {
        Find(i, tried);
      }
    }
  }

  // Index of the mnemonic in caption `i`; -1 when it has none.
  qsizetype Place(qsizetype i) const { return places_[i]; }

 private:
  QChar Key(qsizetype i, qsizetype place) const { return captions_[i][place].toUpper(); }

  void Take(qsizetype i, qsizetype place) {
    owners_[Key(i, place)] = i;
    places_[i] = place;
  }

  bool TakeFree(qsizetype i, bool beginnings_only) {
    for (const qsizetype place : Places(captions_[i])) {
      if (!owners_.contains(Key(i, place)) && (!beginnings_only || BeginsWord(captions_[i], place))) {
        Take(i, place);
        return true;
      }
    }
    return false;
  }

  // `tried` are the keys whose owners have been asked to move on.
  bool Find(qsizetype i, QSet<QChar>& tried) {
    if (TakeFree(i, false)) {
      return true;
    }
    for (const qsizetype place : Places(captions_[i])) {
      const QChar key = Key(i, place);
      if (!tried.contains(key)) {
        tried.insert(key);
        if (Find(owners_[key], tried)) {
          Take(i, place);
          return true;
        }
      }
    }
    return false;
  }

  const QStringList& captions_;
  std::vector<qsizetype> places_;
  QMap<QChar, qsizetype> owners_;  // of each key that is taken
};

// The text that shows `part` letter by letter.
QString Literal(QString part) { return part.replace('&', "&&"); }

// The text with the mnemonic at `place`; without one at -1.
QString TextWith(const QString& caption, qsizetype place) {
  return place < 0 ? Literal(caption) : Literal(caption.left(place)) + '&' + Literal(caption.mid(place));
}

}  // namespace

QStringList WithMnemonics(const QStringList& captions) {
  const Assignment assignment(captions);
  QStringList texts;
  for (qsizetype i = 0; i < captions.size(); ++i) {
    texts.append(TextWith(captions[i], assignment.Place(i)));
  }
  return texts;
}

QString WithMnemonic(const QString& caption, const QStringList& texts) {
  QSet<QKeySequence> taken;
  for (const QString& text : texts) {
    taken.insert(QKeySequence::mnemonic(text));
  }
  for (const qsizetype place : Places(caption)) {
    const QString text = TextWith(caption, place);
    if (!taken.contains(QKeySequence::mnemonic(text))) {
      return text;
    }
  }
  return TextWith(caption, -1);
}

}  // namespace dosmara
