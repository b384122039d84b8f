#include "app/window/CollageEditing.h"

#include "app/loading/MovieJobs.h"
#include "app/loading/MovieList.h"
#include "app/window/MyTableView.h"
#include "collage/editor/KTCustomCollageWndCtl.h"

#include <QPushButton>

#include <utility>

CollageEditing::CollageEditing(Services editingServices, QWidget &mainWindow) :
    services(std::move(editingServices)), window(mainWindow)
{
}

CollageEditing::~CollageEditing() = default;

std::vector<std::shared_ptr<KTMovieObject>> CollageEditing::aryItems() const
{
    return services.movies.snapshot();
}

void CollageEditing::reloadData()
{
    services.tableView.reloadData();
}

int CollageEditing::selectedRow() const
{
    const std::vector<int> rows = services.tableView.selectedRows();
    const int current = services.tableView.currentIndex().row();
    if (std::ranges::find(rows, current) != rows.end()) {
        return current;
    }
    return rows.empty() ? -1 : rows.front();
}

void CollageEditing::makeEditor()
{
    customWndCtl =
        std::make_unique<KTCustomCollageWndCtl>(KTCustomCollageWndCtl::Services{.defaults = services.defaults,
                                                                                .notifications = services.notifications,
                                                                                .alert = services.alert,
                                                                                .host = *this},
                                                &window);
    customWndCtl->addAction(&services.quit);
    QObject::connect(customWndCtl.get(), &QDialog::finished, &window, [this] { services.jobs.release(); });
}

void CollageEditing::customCollageDown()
{
    const int row = selectedRow();
    if (row < 0 || services.jobs.isRunning()) {
        return;
    }
    services.jobs.hold();
    if (!customWndCtl) {
        makeEditor();
    }
    const int count = services.movies.count();
    // Away from the ends both buttons stay as the last use of the sheet has left them.
    if (row == 0) {
        customWndCtl->btnPrev().setEnabled(false);
        if (count >= 2) {
            customWndCtl->btnNext().setEnabled(true);
        }
    }
    if (row == count - 1) {
        customWndCtl->btnNext().setEnabled(false);
        if (count >= 2) {
            customWndCtl->btnPrev().setEnabled(true);
        }
    }
    customWndCtl->flushWithKTObject(services.movies.movieAt(row));
    customWndCtl->open();
}

void CollageEditing::cancel()
{
    if (customWndCtl && customWndCtl->isVisible()) {
        customWndCtl->cancelDown();
    }
}

void CollageEditing::showRow(int row)
{
    services.tableView.selectRowAlone(row);
    customWndCtl->flushWithKTObject(services.movies.movieAt(row));
}

void CollageEditing::selectPrevMovie()
{
    const int row = selectedRow() - 1;
    if (row < 0) {
        return; // a button that a middle row has left enabled
    }
    customWndCtl->btnPrev().setEnabled(row > 0);
    showRow(row);
    customWndCtl->btnNext().setEnabled(true);
}

void CollageEditing::selectNextMovie()
{
    const int row = selectedRow() + 1;
    if (row >= services.movies.count()) {
        return;
    }
    customWndCtl->btnNext().setEnabled(row < services.movies.count() - 1);
    showRow(row);
    customWndCtl->btnPrev().setEnabled(true);
}
