#include "app/window/CollageEditing.h"

#include "app/list/ListHistory.h"
#include "app/loading/MovieJobs.h"
#include "app/table/MovieTableModel.h"
#include "app/table/MyTableView.h"
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

int CollageEditing::rowCount() const
{
    return services_.tableView.model()->rowCount();
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
    QObject::connect(customWndCtl.get(), &QDialog::finished, &window_, [this] {
        endVisit();
        services_.jobs.release();
    });
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
    const int count = rowCount();
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
    beginVisit(row);
    customWndCtl->open();
}

void CollageEditing::beginVisit(int row)
{
    looks_ = CollageStep::of(services_.movies.snapshot());
    customWndCtl->flushWithKTObject(services_.tableView.movieAt(row));
}

void CollageEditing::endVisit()
{
    services_.history.noteEdited(customWndCtl->movieObj(), looks_);
    looks_.clear();
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
    endVisit();
    beginVisit(row);
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
    if (row >= rowCount()) {
        return;
    }
    customWndCtl->btnNext().setEnabled(row < rowCount() - 1);
    showRow(row);
    customWndCtl->btnPrev().setEnabled(true);
}
