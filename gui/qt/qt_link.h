#pragma once

#include <QLabel>

/// A text in the theme's colour of links that is used by a click, or by Return where Tab has led to it; then
/// `linkActivated` is sent.
class LQtLink : public QLabel {
public:
    LQtLink(const QString& linkText, QWidget* parent);

    void SetLinkText(const QString& linkText);
    const QString& GetLinkText() const { return plainText; }

protected:
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    QString plainText;
};
