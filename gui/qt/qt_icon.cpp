#include "gui/qt/qt_icon.h"

#include "gui/qt/qt_text.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

namespace {

QColor ColourOf(QIcon::Mode mode, QIcon::State state) {
    const QPalette palette = QGuiApplication::palette();
    if (mode == QIcon::Selected)
        return palette.color(QPalette::HighlightedText);
    // A pressed item is told by its picture too: in some themes its frame is faint.
    const QPalette::ColorRole role = state == QIcon::On ? QPalette::Highlight : QPalette::ButtonText;
    QColor colour = palette.color(QPalette::Active, role);
    if (mode == QIcon::Disabled)
        colour.setAlphaF(0.35F);
    return colour;
}

/// Draws an SVG picture in the palette's colour at the time it is drawn, so that a change of theme is
/// followed.
class LQtIconEngine : public QIconEngine {
public:
    explicit LQtIconEngine(const QByteArray& picture) : svg(picture) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const QColor colour = ColourOf(mode, state);
        QByteArray coloured = svg;
        coloured.replace("currentColor", colour.name(QColor::HexRgb).toLatin1());
        QSvgRenderer renderer(coloured);
        painter->save();
        painter->setOpacity(painter->opacity() * static_cast<qreal>(colour.alphaF()));
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
