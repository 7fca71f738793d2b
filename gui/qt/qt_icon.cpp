#include "gui/qt/qt_icon.h"

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

/// A pressed item is told by its picture too, drawn like selected text: in some themes its frame is faint.
QPalette::ColorRole RoleOf(QIcon::Mode mode, QIcon::State state) {
    return mode == QIcon::Selected || state == QIcon::On ? QPalette::HighlightedText : QPalette::ButtonText;
}

/// Draws an SVG picture in the palette's colour at the time it is drawn, so that a change of theme is
/// followed.
class LQtIconEngine : public QIconEngine {
public:
    explicit LQtIconEngine(const QByteArray& picture) : svg(picture) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const QPalette palette = QGuiApplication::palette();
        const auto colour = [&palette](QPalette::ColorRole role) {
            return palette.color(QPalette::Active, role);
        };
        QByteArray coloured = svg;
        coloured.replace("currentColor", colour(RoleOf(mode, state)).name(QColor::HexRgb).toLatin1());
        QSvgRenderer renderer(coloured);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setOpacity(painter->opacity() * (mode == QIcon::Disabled ? DisabledOpacity : 1));
        if (state == QIcon::On) {
            painter->setPen(Qt::NoPen);
            painter->setBrush(colour(QPalette::Highlight));
            painter->drawRoundedRect(rect, Corner * rect.width(), Corner * rect.height());
        }
        renderer.render(painter, rect);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return drawn;
    }

    QIconEngine* clone() const override { return std::make_unique<LQtIconEngine>(svg).release(); }

private:
    QByteArray svg;
};

} // namespace

QIcon MakeIcon(const std::string& name) {
    QFile file(":/icons/" + ToQt(name) + ".svg");
    if (name.empty() || !file.open(QIODevice::ReadOnly))
        return {};
    return QIcon(std::make_unique<LQtIconEngine>(file.readAll()).release());
}
