// A program with one window, the other end of a drag: it offers files when they are dragged from it, and says what is
// dropped on it.
// Usage: drag_window TITLE X Y [URI…]
// It writes a line for each event: "accepted" when what is under the pointer would take the files, "given" or "kept" at
// the end of a drag, "dropped URI" for each address dropped on it.

#include <QApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QWidget>

#include <cstdio>

namespace {

void say(const QByteArray &line)
{
    std::printf("%s\n", line.constData());
    std::fflush(stdout);
}

class DragWindow final : public QWidget {
public:
    explicit DragWindow(QByteArray uriList) : uris(std::move(uriList)) { setAcceptDrops(uris.isEmpty()); }

private:
    void mousePressEvent(QMouseEvent * /*event*/) override
    {
        auto *files = new QMimeData;
        files->setData(QStringLiteral("text/uri-list"), uris);
        auto *drag = new QDrag(this);
        drag->setMimeData(files);
        QObject::connect(drag, &QDrag::actionChanged, this, [](Qt::DropAction action) {
            if (action != Qt::IgnoreAction) {
                say("accepted");
            }
        });
        say(drag->exec(Qt::CopyAction) == Qt::IgnoreAction ? "kept" : "given");
    }

    void dragEnterEvent(QDragEnterEvent *event) override { event->acceptProposedAction(); }

    void dropEvent(QDropEvent *event) override
    {
        event->acceptProposedAction();
        for (const QByteArray &uri : event->mimeData()->data(QStringLiteral("text/uri-list")).split('\n')) {
            if (!uri.trimmed().isEmpty()) {
                say("dropped " + uri.trimmed());
            }
        }
    }

    QByteArray uris;
};

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    DragWindow window(arguments.mid(4).join(u"\r\n").toUtf8());
    window.setWindowTitle(arguments.value(1));
    window.setAccessibleName(arguments.value(1));
    window.setGeometry(arguments.value(2).toInt(), arguments.value(3).toInt(), 200, 100);
    window.show();
    return QApplication::exec();
}
