#pragma once

class QDropEvent;
class QPixmap;
class QWidget;

/// Rows of a table that are dragged to another place in it. Main thread.
namespace RowDrag {

/// Drags until the pointer lets go; the picture is what is seen of the rows meanwhile.
void run(QWidget &table, const QPixmap &picture);

/// Whether it is rows of this table that are dragged.
bool isOf(const QWidget &table, const QDropEvent &event);

} // namespace RowDrag
