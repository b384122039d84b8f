#pragma once

#include "app/list/ExportReport.h"

#include <QAction>
#include <QObject>

#include <functional>

class StatusLine;
struct Desktop;
class QWidget;

/// Tells what has come of an export: in the status line, with its details and the way to the images, and by the desktop
/// when the window is not in front. Main thread.
class ExportResults final : public QObject {
public:
    /// All of it must outlive this.
    struct Services {
        StatusLine &statusLine;
        const Desktop &desktop;
        std::function<void(const MovieList::Movies &)> exportAgain;
    };

    ExportResults(Services services, QWidget &window);

    void tell(ExportReport report);

private:
    void showInFolder();
    void showDetails();
    void notify() const;

    Services services_;
    QWidget &window_;
    ExportReport report_;
    QAction showInFolder_;
    QAction details_;
};
