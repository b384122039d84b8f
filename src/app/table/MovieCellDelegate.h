#pragma once

#include <QCache>
#include <QPixmap>
#include <QStyledItemDelegate>

#include <utility>

/// Paints the table's cells: pictures fitted and centred, the title as a strong name over a quiet path.
/// Owned by the table; main thread.
class MovieCellDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit MovieCellDelegate(QObject *parent = nullptr);

    /// How high a row must be for the pictures and for two lines of text, points.
    static int rowHeight(const QFontMetrics &metrics);

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    void paintPicture(QPainter &painter, const QRect &cell, const QImage &image) const;
    QPixmap fitted(const QImage &image, QSize pixels) const;

    using Key = std::pair<qint64, int>;     // the image's cache key and the width in pixels
    mutable QCache<Key, QPixmap> pictures_; // scaled once, not at every repaint; the costs are bytes
};
