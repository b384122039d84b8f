#include "app/table/RowDrag.h"

#include "platform/MakeForQt.h"

#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QPixmap>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

const QString rowsFormat = u"application/x-tessarine-rows"_s; // which rows is what is selected

} // namespace

void RowDrag::run(QWidget &table, const QPixmap &picture)
{
    auto *data = makeForQt<QMimeData>();
    data->setData(rowsFormat, {});
    auto *drag = makeForQt<QDrag>(&table);
    drag->setMimeData(data); // takes it
    drag->setPixmap(picture);
    drag->exec(Qt::MoveAction);
}

bool RowDrag::isOf(const QWidget &table, const QDropEvent &event)
{
    return event.source() == &table && event.mimeData()->hasFormat(rowsFormat);
}
