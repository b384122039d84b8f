// A program with one window, "Sheets". At each key it writes "key", and opens a sheet that closes before it is shown.

#include "platform/desktop/FocusWatch.h"

#include <QApplication>
#include <QDialog>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

class SheetWindow final : public QWidget {
    void keyPressEvent(QKeyEvent * /*event*/) override
    {
        std::puts("key");
        sheet.open();
        sheet.hide();
    }

    QDialog sheet{this};
};

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const FocusWatch focusWatch;
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    SheetWindow window;
    window.setWindowTitle(u"Sheets"_s);
    window.show();
    return QApplication::exec();
}
