#include "platform/widgets/WindowPlacement.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace {

constexpr QSize usualFrame(16, 48);

} // namespace

void keepOnScreen(QWidget &window)
{
    if (window.isMaximized() || window.isFullScreen()) {
        return; // the desktop's business
    }
    const QScreen *under = QGuiApplication::screenAt(window.geometry().center());
    const QRect available = (under ? under : window.screen())->availableGeometry();
    const QSize known = window.frameGeometry().size() - window.size();
    const QSize frame = known.isNull() ? usualFrame : known;
    const QSize room = available.size() - frame;
    window.setMinimumSize(window.minimumSize().boundedTo(room));
    window.resize(window.size().boundedTo(room));
    if (!window.testAttribute(Qt::WA_Moved)) {
        return; // the desktop chooses the place
    }
    const QSize left = room - window.size(); // less than nothing where the contents do not fit
    const QPoint last = available.topLeft() + QPoint(std::max(left.width(), 0), std::max(left.height(), 0));
    const QPoint place(std::clamp(window.x(), available.left(), last.x()),
                       std::clamp(window.y(), available.top(), last.y()));
    if (place != window.pos()) {
        window.move(place);
    }
}
