#pragma once

#include <QFont>
#include <QPointF>
#include <QSizeF>
#include <QString>
#include <QTextLayout>

class QPainter;

/// A word-wrapped text. It is laid out once, so that the size measured is the size drawn. Needs a QGuiApplication; an
/// object belongs to one thread at a time.
class TextBlock {
public:
    /// Lays out the lines that fit whole into the box (pixels). A newline at the very end adds no line.
    TextBlock(const QString &text, const QFont &font, QSizeF box);

    /// The room that the lines use, in whole pixels; 0 × 0 for the empty text.
    QSizeF size() const { return used_; }

    /// Draws the lines with the painter's pen, the block's top left at `origin`.
    void draw(QPainter &painter, QPointF origin) const;

    /// The font of all texts on a collage: the system's, 12 pixels high whatever the screen.
    static QFont systemFont();

private:
    QTextLayout layout_;
    int lines_ = 0; // those that fit
    QSizeF used_{0.0, 0.0};
};
