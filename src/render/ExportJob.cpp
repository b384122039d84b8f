#include "render/ExportJob.h"

#include "Shared/FrameGrabber.h"
#include "Shared/PathParts.h"
#include "Shared/PreferenceKeys.h"
#include "collage/KTMovieObject.h"
#include "platform/Log.h"
#include "platform/desktop/AlertPanel.h"
#include "platform/desktop/Workspace.h"
#include "platform/files/NewFile.h"
#include "platform/files/PathText.h"
#include "platform/store/UserDefaults.h"
#include "platform/threads/AlternateStack.h"
#include "render/ChosenFrames.h"
#include "render/CollageCanvas.h"
#include "render/CollagePainter.h"
#include "render/ExportObserver.h"
#include "render/ImageEncoder.h"
#include "render/MetadataText.h"
#include "render/MissingFrames.h"
#include "render/MovieSource.h"
#include "render/OutputFile.h"

#include <functional>
#include <future>
#include <new>
#include <system_error>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Reports each tile's frame of one movie.
class ReportedTiles {
public:
    ReportedTiles(const ExportServices &services, ExportProgress report, const MovieTiles &tiles) :
        services_(services),
        report_(std::move(report)),
        movieSize_(tiles.movieSize),
        options_(tiles.options),
        frames_(ChosenFrames::ofTiles(services_.grabber, tiles, services_.bExportCanceled))
    {
    }

    TilePicture picture(std::int64_t tile, double seconds)
    {
        const GrabbedFrame frame = frames_->next([this](std::chrono::seconds time) {
            ExportProgress waiting = report_;
            waiting.waited = time;
            services_.observer.updateProgress(waiting);
        });
        if (!services_.bExportCanceled) {
            missing_.add(seconds, frame);
            report_.tile = tile + 1;
            report_.picture = ChosenFrames::inShape(options_, frame.picture, movieSize_);
            services_.observer.updateProgress(report_);
        }
        return {frame.picture, frame.seconds};
    }

    const MissingFrames &missingFrames() const { return missing_; }

private:
    const ExportServices &services_;
    ExportProgress report_;
    const QSize movieSize_;
    const PictureOptions options_;
    MissingFrames missing_;
    const std::unique_ptr<TileFrames> frames_;
};

MovieTiles tilesOf(const KTMovieObject &movie, const CollageLayout &layout, const PictureOptions &options)
{
    const auto sizeOf = [layout, columns = std::max(movie.settings().columeNumber, 1)](std::int64_t tile) {
        const QRectF place =
            layout.tileRect(static_cast<std::int32_t>(tile / columns), static_cast<std::int32_t>(tile % columns));
        return CollageCanvas::pixelsOf(layout.pictureRect(place)).size();
    };
    return {.moviePath = movie.filePath,
            .movieSize = QSize(movie.pixWidth, movie.pixHeight),
            .traits = movie.traits,
            .options = options,
            .share = layout.tileShare() > 0.0 ? layout.tileShare() : movie.duration,
            .count = layout.tileCount(),
            .timeOf = [layout](std::int64_t tile) { return layout.tileTime(tile); },
            .sizeOf = sizeOf};
}

void fail(ExportResult &result, const QString &reason)
{
    result.kind = ExportResult::Kind::Failed;
    result.reason = reason;
}

QString impossibleCanvas(const CollageLayout &layout)
{
    const QSizeF size = layout.canvasSize();
    return u"a collage of %1 × %2 pixels cannot be made"_s.arg(size.width(), 0, 'f', 0).arg(size.height(), 0, 'f', 0);
}

} // namespace

/// What one movie is painted with, and its frames, which are on their way.
struct ExportJob::Turn {
    int index = 0;
    std::shared_ptr<KTMovieObject> movie;
    std::optional<CollagePainter> painter;
    std::unique_ptr<ReportedTiles> tiles; ///< none where there can be no canvas
    ExportResult result;
};

ExportJob::ExportJob(ExportServices services) :
    services_(std::move(services)), styles_(CollageTextStyles::fromDefaults(services_.defaults))
{
}

ExportJob::~ExportJob() = default;

void ExportJob::run()
{
    if (progress_ != State::Ready) {
        return;
    }
    progress_ = State::Running;
    for (int index = 0; index < services_.aryItems.count() && !services_.bExportCanceled; ++index) {
        const auto turn = next_ ? *std::exchange(next_, std::nullopt) : find(index);
        if (turn) {
            exportOrFail(*turn);
        }
    }
    next_.reset(); // begun in vain: the export was cancelled, or the list cleared
    progress_ = State::Finished;
    services_.observer.exportEnded();
}

/// Null where there is no movie.
std::unique_ptr<ExportJob::Turn> ExportJob::find(int index)
{
    auto turn = std::make_unique<Turn>();
    turn->index = index;
    turn->movie = services_.aryItems.movieAt(index);
    if (!turn->movie) {
        return nullptr;
    }
    turn->result.movie = index;
    turn->result.filePath = turn->movie->filePath;
    return turn;
}

/// Takes the movie's settings, and starts its frames.
void ExportJob::begin(Turn &turn)
{
    const KTMovieObject &movie = *turn.movie;
    const CollageTextItems items = CollageTextItems::fromDefaults(services_.defaults);
    const CollagePainter &painter =
        turn.painter.emplace(movie.settings(), styles_, items, getMetaStrWithObject(movie, items.metadataBits));
    if (painter.layout().isPossible()) {
        const MovieTiles wanted = tilesOf(movie, painter.layout(), PictureOptions::fromDefaults(services_.defaults));
        const ExportProgress report{movie.filePath, turn.index, services_.aryItems.count(), 0, wanted.count, {}, {}};
        turn.tiles = std::make_unique<ReportedTiles>(services_, report, wanted);
    }
}

/// Memory that runs out costs this movie only.
void ExportJob::exportOrFail(Turn &turn)
{
    try {
        if (!turn.painter) {
            begin(turn);
        }
        exportMovie(turn);
    } catch (const std::bad_alloc &) {
        fail(turn.result, u"there is not enough memory for the collage"_s);
        tell(turn.result);
    }
}

void ExportJob::exportMovie(Turn &turn)
{
    const KTMovieObject &movie = *turn.movie;
    ExportResult &result = turn.result;
    const QImage canvas = render(turn);
    if (services_.bExportCanceled) {
        return;
    }
    const std::int64_t format = services_.defaults.int64Value(PreferenceKeys::outputFormat);
    const std::optional<QString> extension = OutputFile::extensionForFormat(format);
    if (!extension) {
        fail(result, u"no image format has the number %1"_s.arg(format));
        tell(result);
        return;
    }
    QString path = OutputFile::freePath(folderFor(movie), movie.filePath, *extension);
    if (const auto allowed = mayBeWritten(path); !allowed) {
        fail(result, allowed.error());
        tell(result);
        return;
    }
    path = writeWhileNextBegins(turn, canvas, path);
    if (path.isEmpty()) {
        return;
    }
    tell(result);
    // The actions run after a failed write too, so that the user sees what has become of the movie.
    runAfterExportActions(path);
}

QImage ExportJob::render(Turn &turn)
{
    const auto tiles = std::move(turn.tiles); // their work ends here, before that for the next movie begins
    QImage canvas = tiles ? turn.painter->makeCanvas() : QImage();
    if (canvas.isNull()) {
        fail(turn.result, impossibleCanvas(turn.painter->layout()));
        return canvas;
    }
    turn.painter->paint(canvas, std::bind_front(&ReportedTiles::picture, tiles.get()), services_.bExportCanceled);
    tiles->missingFrames().tell(*turn.movie, turn.result);
    return canvas;
}

/// Asks the user where the folder is not writable; the default answer is to leave this movie out.
Result<void> ExportJob::mayBeWritten(const QString &path)
{
    const QString folder = GlobalFun::deletingLastPathComponent(path);
    if (OutputFile::isWritableFolder(folder)) {
        return {};
    }
    const QString message = u"The output path %1 is not writable,Please set up the priviledge at the Finder"_s.arg(
        PathText::forDisplay(folder));
    if (services_.alert.run(u"Alert!"_s, message, {u"Continue"_s}) != 0) {
        return {};
    }
    return failure(message);
}

QString ExportJob::folderFor(const KTMovieObject &movie) const
{
    return services_.defaults.boolValue(PreferenceKeys::sameAsOrigin)
               ? GlobalFun::deletingLastPathComponent(movie.filePath)
               : services_.outputFolder();
}

/// Begins with the next movie, unless this one may be the last.
void ExportJob::beginNext(int index)
try {
    if (index < services_.aryItems.count() && !services_.bExportCanceled &&
        !services_.defaults.boolValue(PreferenceKeys::clearAfterFinish)) {
        next_ = find(index);
        if (*next_) {
            begin(**next_);
        }
    }
} catch (const std::bad_alloc &) {
    next_.reset(); // it begins when its turn comes, and has its own failure then
}

QString ExportJob::writeWhileNextBegins(Turn &turn, const QImage &canvas, const QString &path)
{
    std::future<QString> written;
    try {
        written = std::async(std::launch::async, [this, &turn, &canvas, &path] {
            const AlternateStack stack;
            return write(turn, canvas, path);
        });
    } catch (const std::system_error &) { // the system gives no thread
        return write(turn, canvas, path);
    }
    beginNext(turn.index + 1);
    return written.get();
}

QString ExportJob::write(Turn &turn, const QImage &canvas, QString path)
{
    ExportResult &result = turn.result;
    qCInfo(lcTessarine).noquote() << "image write to path :" << PathText::forDisplay(path);
    if (canvas.isNull()) {
        return path; // the result says so
    }
    if (const QString folder = GlobalFun::deletingLastPathComponent(path); folder != tidyFolder_) {
        NewFile::removeLeftovers(folder);
        tidyFolder_ = folder;
    }
    const QString extension = GlobalFun::pathExtension(path);
    NewFile file(path, services_.bExportCanceled);
    const bool encoded = !file.error() && GlobalFun::writeRepresentationOfType(canvas, extension, file);
    if (file.error() == std::errc::operation_canceled) {
        return {};
    }
    if (!encoded && !file.error()) {
        fail(result, u"the image cannot be encoded as "_s + extension);
        return path;
    }
    auto published = file.publishAs(path);
    while (!published && published.error() == std::errc::file_exists) { // somebody took the name since it was chosen
        path = OutputFile::freePath(GlobalFun::deletingLastPathComponent(path), turn.movie->filePath, extension);
        published = file.publishAs(path);
    }
    if (published) {
        result.imagePath = path;
    } else {
        fail(result, PathText::forDisplay(path) + u": "_s + inWords(published.error()));
    }
    return path;
}

void ExportJob::tell(const ExportResult &result)
{
    if (!result.reason.isEmpty()) {
        const bool isWritten = !result.imagePath.isEmpty();
        qCInfo(lcTessarine).noquote() << (isWritten ? "image of" : "no image of")
                                      << PathText::forDisplay(result.filePath) << ":" << result.reason;
    }
    services_.observer.movieEnded(result);
}

void ExportJob::runAfterExportActions(const QString &path)
{
    if (services_.defaults.boolValue(PreferenceKeys::openAfterFinish)) {
        services_.workspace.openFile(path);
    }
    if (services_.defaults.boolValue(PreferenceKeys::revealInFinder)) {
        services_.workspace.revealFile(path);
    }
    if (services_.defaults.boolValue(PreferenceKeys::clearAfterFinish)) {
        services_.aryItems.removeAll();
    }
}
