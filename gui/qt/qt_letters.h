#pragma once

#include <QString>

#include <set>

/// Gives the texts of a menu or a dialog a letter each, so that the keyboard reaches them with Alt.
class LQtLetters {
public:
    /// The text with "&" before its first letter that none has yet; without one where there is none left.
    QString Mark(const QString& text);
    /// Takes the letter of a marked text back.
    void Release(const QString& marked);
    /// What a marked text shows.
    static QString Strip(const QString& marked);

private:
    std::set<QChar> taken;
};
