#pragma once

#include "app/list/MovieList.h"
#include "app/loading/MovieJobs.h"

#include <functional>

class ExportResults;
class ListHistory;
class VXLoadingWndCtl;
class QWidget;
struct Desktop;

/// Shows the user the job that runs, in the progress sheet over the main window and in the task bar, and at its end
/// what has come of it. Main thread.
class JobSheet final : public JobsView {
public:
    /// All of it must outlive this.
    struct Services {
        VXLoadingWndCtl &sheet;
        QWidget &window;
        const Desktop &desktop;
        ExportResults &results;
        MovieList &movies;
        ListHistory &history;
        std::function<void(Kind)> ended; ///< the sheet has gone, the list is as the job has left it
    };

    explicit JobSheet(Services services) : services_(std::move(services)) {}

    void jobStarted(Kind kind, const QString &text) override;
    void jobProgress(const JobProgress &progress) override;
    void jobEnded(Kind kind, const ExportReport &report) override;

private:
    void showInTaskbar(std::optional<double> fraction) const;

    Services services_;
    MovieList::Movies exported_; // what was in the list when the export began
};
