#include "gui/qt/qt_link.h"

#include <QStyle>

LQtLink::LQtLink(const QString& linkText, QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::RichText);
    setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeading) | Qt::AlignVCenter);
    setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    SetLinkText(linkText);
}

void LQtLink::SetLinkText(const QString& linkText) {
    plainText = linkText;
    setText("<a href=\"#\">" + linkText.toHtmlEscaped() + "</a>");
    setAccessibleName(linkText);
}

/// A label can hold several links, and goes to the first one only with the next Tab.
void LQtLink::focusInEvent(QFocusEvent* event) {
    QLabel::focusInEvent(event);
    if (!hasSelectedText())
        focusNextPrevChild(true);
}
