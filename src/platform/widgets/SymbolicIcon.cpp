#include "platform/widgets/SymbolicIcon.h"

#include "platform/MakeForQt.h"
#include "platform/desktop/SvgImage.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace {

QColor inkFor(QIcon::Mode mode)
{
    const QPalette palette = QGuiApplication::palette();
    switch (mode) {
    case QIcon::Disabled:
        return palette.color(QPalette::Disabled, QPalette::ButtonText);
    case QIcon::Selected:
        return palette.color(QPalette::Active, QPalette::HighlightedText);
    default:
        return palette.color(QPalette::Active, QPalette::ButtonText);
    }
}

/// Draws a resource anew each time, in the colour that the palette has then.
class SymbolicIconEngine final : public QIconEngine {
public:
    explicit SymbolicIconEngine(const QString &resource) : resource_(resource) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        painter->drawImage(rect.topLeft(), tinted(rect.size(), painter->device()->devicePixelRatioF(), mode));
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        return QPixmap::fromImage(tinted(size, 1.0, mode));
    }

    QIconEngine *clone() const override { return makeForQt<SymbolicIconEngine>(resource_); }

private:
    QImage tinted(const QSize &size, qreal devicePixelRatio, QIcon::Mode mode) const
    {
        const int side = std::min(size.width(), size.height());
        QImage image = svgImage(resource_, QSizeF(side, side), devicePixelRatio);
        QPainter painter(&image);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(QRect(0, 0, side, side), inkFor(mode));
        return image;
    }

    const QString resource_;
};

} // namespace

QIcon symbolicIcon(const QString &name)
{
    const QString resource = u":/images/" + name + u".svg";
    // The icon owns its engine.
    return QFile::exists(resource) ? QIcon(makeForQt<SymbolicIconEngine>(resource)) : QIcon();
}
