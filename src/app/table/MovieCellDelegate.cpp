#include "app/table/MovieCellDelegate.h"

#include "app/table/MovieTableModel.h"
#include "platform/MakeForQt.h"

#include <QApplication>
#include <QPainter>

#include <algorithm>

namespace {

constexpr QSize pictureRoom(96, 64);
constexpr int padding = 6;
constexpr int lineGap = 2;
constexpr int cacheBytes = 48 * 1024 * 1024;
constexpr float quietOpacity = 0.7F;

/// The cell without contents: its ground, selected or not, and the focus.
void paintGround(QPainter &painter, QStyleOptionViewItem cell, const QModelIndex &index)
{
    cell.index = index;
    const QStyle *style = cell.widget ? cell.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &cell, &painter, cell.widget);
}

QColor textColor(const QStyleOptionViewItem &cell)
{
    const bool isActive = cell.state & QStyle::State_Active;
    const bool isEnabled = cell.state & QStyle::State_Enabled;
    const QPalette::ColorGroup group = !isEnabled ? QPalette::Disabled
                                       : isActive ? QPalette::Active
                                                  : QPalette::Inactive;
    const bool isSelected = cell.state & QStyle::State_Selected;
    return cell.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text);
}

/// Both lines together stand in the middle of the cell; what is too long loses its middle.
void paintTitle(QPainter &painter, const QStyleOptionViewItem &cell, const QString &name, const QString &path)
{
    QFont strong = cell.font;
    strong.setBold(true);
    const QFontMetrics nameMetrics(strong);
    const QFontMetrics pathMetrics(cell.font);
    const int nameHeight = nameMetrics.height();
    const int height = nameHeight + lineGap + pathMetrics.height();
    const QRect room = cell.rect.adjusted(padding, 0, -padding, 0);
    const int top = room.top() + (room.height() - height) / 2;

    QColor color = textColor(cell);
    painter.setPen(color);
    painter.setFont(strong);
    painter.drawText(QRect(room.left(), top, room.width(), nameHeight), Qt::AlignVCenter | Qt::TextSingleLine,
                     nameMetrics.elidedText(name, Qt::ElideMiddle, room.width()));
    if (!(cell.state & QStyle::State_Selected)) {
        color.setAlphaF(color.alphaF() * quietOpacity); // on a highlight it would be hard to read
    }
    painter.setPen(color);
    painter.setFont(cell.font);
    painter.drawText(QRect(room.left(), top + nameHeight + lineGap, room.width(), pathMetrics.height()),
                     Qt::AlignVCenter | Qt::TextSingleLine,
                     pathMetrics.elidedText(path, Qt::ElideMiddle, room.width()));
}

} // namespace

MovieCellDelegate::MovieCellDelegate(QObject *parent) : QStyledItemDelegate(parent), pictures_(cacheBytes) {}

int MovieCellDelegate::rowHeight(const QFontMetrics &metrics)
{
    return std::max(pictureRoom.height(), 2 * metrics.height() + lineGap) + 2 * padding;
}

void MovieCellDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QStyleOptionViewItem cell = option;
    cell.state &= ~QStyle::State_MouseOver; // a row is one thing; its cells do not light up by themselves
    const QVariant picture = index.data(Qt::DecorationRole);
    if (!picture.isValid() && index.column() != MovieTableModel::Title) {
        QStyledItemDelegate::paint(painter, cell, index);
        return;
    }
    painter->save();
    paintGround(*painter, cell, index);
    if (picture.isValid()) {
        paintPicture(*painter, cell.rect, picture.value<QImage>());
    } else {
        const QString text = index.data(Qt::DisplayRole).toString();
        const qsizetype lineBreak = text.indexOf(u'\n');
        paintTitle(*painter, cell, text.first(lineBreak), text.sliced(lineBreak + 1));
    }
    painter->restore();
}

void MovieCellDelegate::paintPicture(QPainter &painter, const QRect &cell, const QImage &image) const
{
    if (image.isNull()) {
        return;
    }
    QSize size = image.deviceIndependentSize().toSize();
    const QSize room = pictureRoom.boundedTo(cell.size());
    if (size.width() > room.width() || size.height() > room.height()) {
        size = size.scaled(room, Qt::KeepAspectRatio);
    }
    const qreal ratio = painter.device()->devicePixelRatioF();
    const QPixmap picture = fitted(image, (QSizeF(size) * ratio).toSize().expandedTo({1, 1}));
    QRect place({}, size);
    place.moveCenter(cell.center());
    painter.drawPixmap(place, picture);
}

QPixmap MovieCellDelegate::fitted(const QImage &image, QSize pixels) const
{
    const Key key(image.cacheKey(), pixels.width());
    if (const QPixmap *known = pictures_.object(key)) {
        return *known;
    }
    QPixmap picture = QPixmap::fromImage(image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    const int cost = pixels.width() * pixels.height() * picture.depth() / 8;
    pictures_.insert(key, makeForQt<QPixmap>(picture), cost);
    return picture;
}
