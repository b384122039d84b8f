#include "platform/threads/InlinePainting.h"

#include <QThreadPool>
#include <QtGlobal>

void paintInline()
{
    qputenv("QT_NO_GUI_THREADPOOL", "1"); // from Qt 6.6 on
}

// Earlier versions ask this function for the pool, and paint without one if it gives none. The definition in a program
// takes precedence over the one in a library.
QThreadPool *QThreadPool::globalInstance()
{
    return nullptr;
}
