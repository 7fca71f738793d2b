#include "gui/qt/qt_letters.h"

QString LQtLetters::Mark(const QString& text) {
    QString marked = text;
    marked.replace('&', "&&");
    for (qsizetype i = 0; i < marked.size(); ++i)
        if (marked[i].isLetterOrNumber() && taken.insert(marked[i].toLower()).second)
            return marked.insert(i, '&');
    return marked;
}

void LQtLetters::Release(const QString& marked) {
    for (qsizetype i = 0; i + 1 < marked.size(); ++i)
        if (marked[i] == '&' && marked[++i] != '&')
            taken.erase(marked[i].toLower());
}

QString LQtLetters::Strip(const QString& marked) {
    QString shown;
    for (qsizetype i = 0; i < marked.size(); ++i)
        shown += marked[i] == '&' && i + 1 < marked.size() ? marked[++i] : marked[i];
    return shown;
}
