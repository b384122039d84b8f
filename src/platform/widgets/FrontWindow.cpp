#include "platform/widgets/FrontWindow.h"

#include <QApplication>
#include <QWidget>

#include <algorithm>

QWidget *frontWindow()
{
    for (QWidget *window : {QApplication::activeModalWidget(), QApplication::activeWindow()}) {
        if (window != nullptr) {
            return window->window();
        }
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto seen = std::ranges::find_if(windows, [](const QWidget *window) {
        return window->isVisible() && (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog);
    });
    return seen == windows.end() ? nullptr : *seen;
}
