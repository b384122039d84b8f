#pragma once

#include "platform/Result.h"
#include "platform/threads/CancelFlag.h"
#include "render/CollageTexts.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

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
    ~ExportJob();

    /// Returns when all is done or soon after the cancel flag is set; the movie in hand is then not written. A second
    /// call does nothing.
    void run();

    State state() const { return progress_; }

private:
    struct Turn;

    std::unique_ptr<Turn> find(int index);
    void begin(Turn &turn);
    void beginNext(int index);
    void exportOrFail(Turn &turn);
    void exportMovie(Turn &turn);
    QImage render(Turn &turn);
    QString folderFor(const KTMovieObject &movie) const;
    Result<void> mayBeWritten(const QString &path);
    QString writeWhileNextBegins(Turn &turn, const QImage &canvas, const QString &path);
    /// The path at which the image stands, or would if it could have been written. Nothing after a cancel.
    QString write(Turn &turn, const QImage &canvas, QString path);
    void tell(const ExportResult &result);
    void runAfterExportActions(const QString &path);

    ExportServices services_;
    CollageTextStyles styles_;
    State progress_ = State::Ready;
    std::optional<std::unique_ptr<Turn>> next_; ///< that of the next movie, if it has begun
    QString tidyFolder_;                        ///< where leftovers of killed runs have been removed already
};
