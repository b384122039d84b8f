#include "platform/threads/InlinePainting.h"

#include <QThreadPool>
#include <QtGlobal>

void paintInline()
{
    qputenv("QT_NO_GUI_THREADPOOL", "1"); // from Qt 6.6 on
}

// Earlier versions ask for this pool, and paint by themselves where there is none. A program's own definition comes
// before that of a library.
QThreadPool *QThreadPool::globalInstance()
{
    return nullptr;
}
