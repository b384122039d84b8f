#include "app/window/CollageEditing.h"

#include "app/list/MovieList.h"
#include "app/loading/MovieJobs.h"
#include "app/window/MyTableView.h"
#include "collage/editor/KTCustomCollageWndCtl.h"

#include <QPushButton>

CollageEditing::CollageEditing(Services services, QWidget &window) : services_(services), window_(window) {}

CollageEditing::~CollageEditing() = default;

std::vector<std::shared_ptr<KTMovieObject>> CollageEditing::aryItems() const
{
    return services_.movies.snapshot();
}

void CollageEditing::reloadData()
{
    services_.tableView.reloadData();
}

int CollageEditing::selectedRow() const
{
    const std::vector<int> rows = services_.tableView.selectedRows();
    const int current = services_.tableView.currentIndex().row();
    if (std::ranges::find(rows, current) != rows.end()) {
        return current;
    }
    return rows.empty() ? -1 : rows.front();
}

void CollageEditing::makeEditor()
{
    customWndCtl = std::make_unique<KTCustomCollageWndCtl>(
        KTCustomCollageWndCtl::Services{.defaults = services_.defaults,
                                        .notifications = services_.notifications,
                                        .alert = services_.alert,
                                        .host = *this},
        &window_);
    customWndCtl->addAction(&services_.quit);
    QObject::connect(customWndCtl.get(), &QDialog::finished, &window_, [this] { services_.jobs.release(); });
}

void CollageEditing::customCollageDown()
{
    const int row = selectedRow();
    if (row < 0 || services_.jobs.isRunning()) {
        return;
    }
    services_.jobs.hold();
    if (!customWndCtl) {
        makeEditor();
    }
    const int count = services_.movies.count();
    // In the middle of the list both buttons stay as the last use of the sheet has left them.
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
    customWndCtl->flushWithKTObject(services_.movies.movieAt(row));
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
    services_.tableView.selectRowAlone(row);
    customWndCtl->flushWithKTObject(services_.movies.movieAt(row));
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
    if (row >= services_.movies.count()) {
        return;
    }
    customWndCtl->btnNext().setEnabled(row < services_.movies.count() - 1);
    showRow(row);
    customWndCtl->btnPrev().setEnabled(true);
}
