#include "gui/qt/qt_icon.h"

#include "gui/qt/qt_shades.h"
#include "gui/qt/qt_text.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

namespace {

constexpr qreal DisabledOpacity = 0.35;
constexpr qreal Corner = 0.2; // of the background's width

/// As the theme is dark or light, so that it stands out.
QColor LampColour(const QPalette& palette) {
    const bool dark = IsDark(palette, QPalette::Button);
    return dark ? QColor(0x3f, 0xb9, 0x50) : QColor(0x1f, 0x88, 0x3d);
}

/// Draws an SVG picture in the palette's colour at the time it is drawn, so that a change of theme is
/// followed.
class LQtIconEngine : public QIconEngine {
public:
    LQtIconEngine(const QByteArray& picture, LIconLook pressedLook) : svg(picture), look(pressedLook) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const QPalette palette = QGuiApplication::palette();
        const bool on = state == QIcon::On, lit = on && look == LIconLook::Lamp;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setOpacity(painter->opacity() * (mode == QIcon::Disabled && !lit ? DisabledOpacity : 1));
        if (on && !lit) { // in some themes the frame of a pressed item is faint
            painter->setPen(Qt::NoPen);
            painter->setBrush(palette.color(QPalette::Active, QPalette::Highlight));
            painter->drawRoundedRect(rect, Corner * rect.width(), Corner * rect.height());
        }
        const bool selected = on || mode == QIcon::Selected;
        const auto role = selected ? QPalette::HighlightedText : QPalette::ButtonText;
        Draw(painter, rect, lit ? LampColour(palette) : palette.color(QPalette::Active, role));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return drawn;
    }

    QIconEngine* clone() const override { return std::make_unique<LQtIconEngine>(svg, look).release(); }

private:
    void Draw(QPainter* painter, const QRect& rect, const QColor& colour) const {
        QByteArray coloured = svg;
        coloured.replace("currentColor", colour.name(QColor::HexRgb).toLatin1());
        QSvgRenderer(coloured).render(painter, rect);
    }

    QByteArray svg;
    LIconLook look;
};

} // namespace

QIcon MakeIcon(const std::string& name, LIconLook look) {
    QFile file(":/icons/" + ToQt(name) + ".svg");
    if (name.empty() || !file.open(QIODevice::ReadOnly))
        return {};
    return QIcon(std::make_unique<LQtIconEngine>(file.readAll(), look).release());
}
