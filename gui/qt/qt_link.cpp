#include "gui/qt/qt_link.h"

#include <QEvent>
#include <QStyle>

LQtLink::LQtLink(const QString& linkText, QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::RichText);
    setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeading) | Qt::AlignVCenter);
    setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    SetLinkText(linkText);
}

void LQtLink::SetLinkText(const QString& linkText) {
    plainText = linkText;
    const QString text = linkText.toHtmlEscaped();
    setText(isEnabled() ? "<a href=\"#\">" + text + "</a>" : text); // a link would keep its colour
    setAccessibleName(linkText);
}

void LQtLink::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        SetLinkText(plainText);
}

/// A label can hold several links, and goes to the first one only with the next Tab.
void LQtLink::focusInEvent(QFocusEvent* event) {
    QLabel::focusInEvent(event);
    if (!hasSelectedText())
        focusNextPrevChild(true);
}
