#include "platform/qt/menu_letters.h"

namespace brindlemoor {

namespace {

/// Letters and digits that every keyboard has.
bool IsKey(QChar letter) {
    return letter.unicode() < 128 && letter.isLetterOrNumber();
}

bool BeginsWord(const QString& caption, qsizetype place) {
    return place == 0 || !caption[place - 1].isLetterOrNumber();
}

/// The place of the letter for an item, -1 when all of its letters are taken.
qsizetype FreeLetter(const QString& caption, const QString& taken) {
    for (const bool withinWords : {false, true}) {
        for (qsizetype place = 0; place < caption.size(); ++place) {
            if (!IsKey(caption[place]) || taken.contains(caption[place].toLower())) continue;
            if (withinWords || BeginsWord(caption, place)) return place;
        }
    }
    return -1;
}

QString WithMark(const QString& caption, qsizetype marked) {
    QString text;
    for (qsizetype place = 0; place < caption.size(); ++place) {
        const QChar letter = caption[place];
        if (place == marked || letter == QLatin1Char('&')) text += QLatin1Char('&');
        text += letter == QLatin1Char('\t') ? QChar(QLatin1Char(' ')) : letter;
    }
    return text;
}

}  // namespace

QStringList WithLetters(const QStringList& captions) {
    QString taken;
    QStringList texts;
    for (const QString& caption : captions) {
        const bool separator = caption == QLatin1String("-");
        const qsizetype place = separator ? -1 : FreeLetter(caption, taken);
        if (place >= 0) taken += caption[place].toLower();
        texts << WithMark(caption, place);
    }
    return texts;
}

}  // namespace brindlemoor
