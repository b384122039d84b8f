#pragma once

#include "platform/Result.h"
#include "platform/threads/CancelFlag.h"
#include "render/CollageTexts.h"

#include <QString>

#include <functional>

class AlertPanel;
class ExportObserver;
class FrameGrabber;
class KTMovieObject;
class MovieSource;
class QImage;
class UserDefaults;
class Workspace;
struct ExportResult;

/// What an export works with; all of it must outlive the job.
struct ExportServices {
    MovieSource &aryItems;
    FrameGrabber &grabber;
    UserDefaults &defaults;
    AlertPanel &alert;
    Workspace &workspace;
    ExportObserver &observer;
    /// The folder for images that do not go beside their movie; asked when the first of them is about to be written.
    std::function<QString()> outputFolder;
    const CancelFlag &bExportCanceled;
};

/// One export: makes a collage of every movie of the list, in order, and writes it. Made and run once; run() may be
/// called on another thread than the constructor. Needs a QGuiApplication for its fonts.
class ExportJob {
public:
    enum class State { Ready, Running, Finished };

    /// Reads the text styles; everything else is read when a movie's turn comes.
    explicit ExportJob(ExportServices services);

    /// Returns when all is done or soon after the cancel flag is set; the movie in hand is then not written. A second
    /// call does nothing.
    void run();

    State state() const { return progress_; }

private:
    void exportOrFail(const KTMovieObject &movie, int index);
    void exportMovie(const KTMovieObject &movie, int index, ExportResult &result);
    QImage render(const KTMovieObject &movie, int index, ExportResult &result);
    QString folderFor(const KTMovieObject &movie) const;
    Result<void> mayBeWritten(const QString &path);
    /// The path at which the image stands, or would if it could have been written. Nothing after a cancel.
    QString write(const KTMovieObject &movie, const QImage &canvas, QString path, ExportResult &result);
    void tell(const ExportResult &result);
    void runAfterExportActions(const QString &path);

    ExportServices services_;
    CollageTextStyles styles_;
    State progress_ = State::Ready;
    QString tidyFolder_; ///< where leftovers of killed runs have been removed already
};
