#include "app/window/JobSheet.h"

#include "app/list/ListHistory.h"
#include "app/results/ExportResults.h"
#include "app/window/VXLoadingWndCtl.h"
#include "platform/desktop/Desktop.h"

#include <utility>

void JobSheet::jobStarted(Kind kind, const QString &text)
{
    if (kind == Kind::Export) {
        exported_ = services_.movies.snapshot();
    }
    services_.sheet.setModel(static_cast<int>(kind));
    services_.sheet.startLoading(text, &services_.window);
}

void JobSheet::jobProgress(const JobProgress &progress)
{
    services_.sheet.updateProgress(progress.fraction, progress.main, progress.ing, progress.image);
    services_.sheet.setRemaining(progress.remaining);
    if (progress.movieCount > 0) {
        //% "Movie %1 of %2"
        const QString place = qtTrId("progress_movie").arg(progress.movie).arg(progress.movieCount);
        services_.sheet.setOverall(progress.overall, place);
    }
    showInTaskbar(progress.overall);
}

void JobSheet::jobEnded(Kind kind, const ExportReport &report)
{
    if (kind == Kind::Export) {
        services_.results.tell(report); // as long as the sheet tells whether the program is in front
    }
    showInTaskbar(std::nullopt);
    services_.sheet.endLoading();
    if (kind == Kind::Export) {
        services_.history.noteExported(std::exchange(exported_, {}));
    }
    services_.ended(kind);
}

void JobSheet::showInTaskbar(std::optional<double> fraction) const
{
    if (services_.desktop.showProgress) {
        services_.desktop.showProgress(fraction);
    }
}
