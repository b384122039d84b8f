// A program with one window, "Files", from which files can be dragged.
// Usage: drag_window URI…
// It writes "accepted" when what is under the pointer would take them, and "given" or "kept" at the end of a drag.

#include "platform/MakeForQt.h"

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QWidget>

#include <cstdio>

using namespace Qt::StringLiterals;

class DragWindow final : public QWidget {
    void mousePressEvent(QMouseEvent * /*event*/) override
    {
        auto *files = makeForQt<QMimeData>();
        files->setData(u"text/uri-list"_s, QApplication::arguments().mid(1).join(u"\r\n").toUtf8());
        auto *drag = makeForQt<QDrag>(this);
        drag->setMimeData(files);
        QObject::connect(drag, &QDrag::actionChanged, this, [](Qt::DropAction action) {
            if (action != Qt::IgnoreAction) {
                std::puts("accepted");
            }
        });
        std::puts(drag->exec(Qt::CopyAction) == Qt::IgnoreAction ? "kept" : "given");
    }
};

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    DragWindow window;
    window.setWindowTitle(u"Files"_s);
    window.setGeometry(1300, 800, 200, 100);
    window.show();
    return QApplication::exec();
}
