// SPDX-License-Identifier: MIT
#include "qt/platform/MenuLetters.h"

#include <QAction>
#include <QMenu>
#include <QSet>
#include <initializer_list>

namespace planview {

namespace {

enum class Wanted { First, Initial, Any };

/// The first letter of the caption that is wanted and not taken.
qsizetype findLetter(const QString& caption, Wanted wanted, const QSet<QChar>& taken) {
    bool insideWord = false;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        const QChar character = caption[i];
        if (!character.isLetterOrNumber()) {
            insideWord = false;
            continue;
        }
        const bool isWanted = wanted != Wanted::Initial || !insideWord;
        if (isWanted && !taken.contains(character.toLower())) {
            return i;
        }
        if (wanted == Wanted::First) {
            return -1;
        }
        insideWord = true;
    }
    return -1;
}

}  // namespace

std::vector<qsizetype> menuLetters(const QStringList& captions) {
    std::vector<qsizetype> letters(static_cast<std::size_t>(captions.size()), -1);
    QSet<QChar> taken;
    for (const Wanted wanted : {Wanted::First, Wanted::Initial, Wanted::Any}) {
        for (std::size_t i = 0; i < letters.size(); ++i) {
            const QString& caption = captions[static_cast<qsizetype>(i)];
            if (letters[i] < 0) {
                letters[i] = findLetter(caption, wanted, taken);
            }
            if (letters[i] >= 0) {
                taken.insert(caption[letters[i]].toLower());
            }
        }
    }
    for (std::size_t i = 0; i < letters.size(); ++i) {
        if (letters[i] < 0) {
            letters[i] = findLetter(captions[static_cast<qsizetype>(i)], Wanted::First, {});
        }
    }
    return letters;
}

void giveLetters(QMenu& menu) {
    QStringList captions;
    for (const QAction* action : menu.actions()) {
        captions << (action->isSeparator() ? QString() : action->text());
    }
    const std::vector<qsizetype> letters = menuLetters(captions);
    for (qsizetype i = 0; i < captions.size(); ++i) {
        menu.actions()[i]->setText(withMnemonicAt(captions[i], letters[static_cast<std::size_t>(i)]));
    }
}

QString withMnemonicAt(const QString& text, qsizetype place) {
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (i == place) {
            result += QLatin1Char('&');
        }
        result += text[i] == QLatin1Char('&') ? QStringLiteral("&&") : QString(text[i]);
    }
    return result;
}

}  // namespace planview
