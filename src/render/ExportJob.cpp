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
#include "render/CollagePainter.h"
#include "render/ExportObserver.h"
#include "render/ImageEncoder.h"
#include "render/MetadataText.h"
#include "render/MovieSource.h"
#include "render/OutputFile.h"
#include "render/TileSource.h"

#include <new>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Grabs each tile's frame of one movie and reports it.
class GrabbedTiles final : public TileSource {
public:
    GrabbedTiles(const ExportServices &exportServices, ExportProgress first) :
        services(exportServices), report(std::move(first))
    {
    }

    QImage picture(std::int64_t tile, double seconds) override
    {
        const GrabbedFrame frame = services.grabber.createThumbnail(report.filePath, seconds, services.bExportCanceled);
        if (!services.bExportCanceled) {
            missing += frame.isNew && !frame.picture.isNull() ? 0 : 1;
            report.tile = tile + 1;
            report.picture = frame.picture;
            services.observer.updateProgress(report);
        }
        return frame.picture;
    }

    std::int64_t missingFrames() const { return missing; }

private:
    const ExportServices &services;
    ExportProgress report;
    std::int64_t missing = 0;
};

QString impossibleCanvas(const CollageLayout &layout)
{
    const QSizeF size = layout.canvasSize();
    return u"a collage of %1 × %2 pixels cannot be made"_s.arg(size.width(), 0, 'f', 0).arg(size.height(), 0, 'f', 0);
}

} // namespace

ExportJob::ExportJob(ExportServices exportServices) :
    services(std::move(exportServices)), styles(CollageTextStyles::fromDefaults(services.defaults))
{
}

void ExportJob::run()
{
    if (progress != State::Ready) {
        return;
    }
    progress = State::Running;
    for (int index = 0; index < services.aryItems.count() && !services.bExportCanceled; ++index) {
        if (const auto movie = services.aryItems.movieAt(index)) {
            exportOrFail(*movie, index);
        }
    }
    progress = State::Finished;
    services.observer.exportEnded();
}

/// Memory that runs out costs this movie only.
void ExportJob::exportOrFail(const KTMovieObject &movie, int index)
{
    try {
        exportMovie(movie, index);
    } catch (const std::bad_alloc &) {
        fail(movie, u"there is not enough memory for the collage"_s);
    }
}

void ExportJob::exportMovie(const KTMovieObject &movie, int index)
{
    const QImage canvas = render(movie, index);
    if (services.bExportCanceled) {
        return;
    }
    const std::int64_t format = services.defaults.int64Value(PreferenceKeys::outputFormat);
    const std::optional<QString> extension = OutputFile::extensionForFormat(format);
    if (!extension) {
        fail(movie, u"no image format has the number %1"_s.arg(format));
        return;
    }
    QString path = OutputFile::freePath(folderFor(movie), movie.filePath, *extension);
    const QString folder = GlobalFun::deletingLastPathComponent(path);
    if (!OutputFile::isWritableFolder(folder)) {
        const QString message = u"The output path %1 is not writable,Please set up the priviledge at the Finder"_s;
        if (services.alert.run(u"Alert!"_s, message.arg(PathText::forDisplay(folder)), {u"Continue"_s}) == 0) {
            return;
        }
    }
    path = write(movie, canvas, *extension, path);
    if (path.isEmpty()) {
        return;
    }
    // They run after a failed write too: the user has waited for this movie and sees what became of it.
    runAfterExportActions(path);
}

QImage ExportJob::render(const KTMovieObject &movie, int index)
{
    const CollageTextItems items = CollageTextItems::fromDefaults(services.defaults);
    const CollagePainter painter(movie.settings(), styles, items, getMetaStrWithObject(movie, items.metadataBits));
    QImage canvas = painter.makeCanvas();
    if (canvas.isNull()) {
        fail(movie, impossibleCanvas(painter.layout()));
        return canvas;
    }
    const std::int64_t tiles = painter.layout().tileCount();
    GrabbedTiles source(services, {movie.filePath, index, services.aryItems.count(), 0, tiles, {}});
    if (painter.paint(canvas, source, services.bExportCanceled) && source.missingFrames() > 0) {
        services.observer.framesMissing(movie.filePath, source.missingFrames(), tiles);
    }
    return canvas;
}

QString ExportJob::folderFor(const KTMovieObject &movie) const
{
    return services.defaults.boolValue(PreferenceKeys::sameAsOrigin)
               ? GlobalFun::deletingLastPathComponent(movie.filePath)
               : services.outputFolder();
}

QString ExportJob::write(const KTMovieObject &movie, const QImage &canvas, const QString &extension, QString path)
{
    qCInfo(lcTessarine).noquote() << "image write to path :" << PathText::forDisplay(path);
    if (canvas.isNull()) {
        return path; // has been reported
    }
    if (const QString folder = GlobalFun::deletingLastPathComponent(path); folder != tidyFolder) {
        NewFile::removeLeftovers(folder);
        tidyFolder = folder;
    }
    NewFile file(path, services.bExportCanceled);
    const bool encoded = !file.error() && GlobalFun::writeRepresentationOfType(canvas, extension, file);
    if (file.error() == std::errc::operation_canceled) {
        return {};
    }
    if (!encoded && !file.error()) {
        fail(movie, u"the image cannot be encoded as "_s + extension);
        return path;
    }
    std::error_code error = file.publishAs(path);
    while (error == std::errc::file_exists) { // somebody took the name since it was chosen
        path = OutputFile::freePath(GlobalFun::deletingLastPathComponent(path), movie.filePath, extension);
        error = file.publishAs(path);
    }
    if (error) {
        fail(movie, PathText::forDisplay(path) + u": "_s + QString::fromStdString(error.message()));
    } else {
        services.observer.imageWritten(movie.filePath, path);
    }
    return path;
}

void ExportJob::fail(const KTMovieObject &movie, const QString &reason)
{
    qCInfo(lcTessarine).noquote() << "no image of" << PathText::forDisplay(movie.filePath) << ":" << reason;
    services.observer.movieFailed(movie.filePath, reason);
}

void ExportJob::runAfterExportActions(const QString &path)
{
    if (services.defaults.boolValue(PreferenceKeys::openAfterFinish)) {
        services.workspace.openFile(path);
    }
    if (services.defaults.boolValue(PreferenceKeys::revealInFinder)) {
        services.workspace.revealFile(path);
    }
    if (services.defaults.boolValue(PreferenceKeys::clearAfterFinish)) {
        services.aryItems.removeAll();
    }
}
