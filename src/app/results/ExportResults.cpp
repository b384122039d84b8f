#include "app/results/ExportResults.h"

#include "app/results/ExportDetails.h"
#include "app/results/StatusLine.h"
#include "platform/MakeForQt.h"
#include "platform/desktop/Desktop.h"
#include "platform/desktop/Workspace.h"
#include "platform/files/FileSystem.h"

#include <QApplication>
#include <QBuffer>
#include <QImageReader>

#include <utility>

namespace {

constexpr QSize notifiedSize(512, 512);

/// The image file as a picture for a message of the desktop.
QImage pictureOf(const QString &path)
{
    QBuffer bytes;
    bytes.setData(FileSystem::contentsOf(path).value_or(QByteArray()));
    QImageReader reader(&bytes);
    if (reader.size().isValid()) {
        reader.setScaledSize(reader.size().scaled(notifiedSize, Qt::KeepAspectRatio));
    }
    return reader.read();
}

} // namespace

ExportResults::ExportResults(Services services, QWidget &window) : services_(std::move(services)), window_(window)
{
    //% "Show in Folder"
    showInFolder_.setText(qtTrId("result_show_in_folder"));
    //% "Details…"
    details_.setText(qtTrId("result_details"));
    connect(&showInFolder_, &QAction::triggered, this, &ExportResults::showInFolder);
    connect(&details_, &QAction::triggered, this, &ExportResults::showDetails);
}

void ExportResults::tell(ExportReport report)
{
    report_ = std::move(report);
    QList<QAction *> offers;
    if (!report_.firstImage().isEmpty()) {
        offers << &showInFolder_;
    }
    if (!report_.results.empty()) {
        offers << &details_;
    }
    services_.statusLine.tell(report_.summary(), report_.troubles());
    services_.statusLine.offer(offers);
    if (QApplication::activeWindow() == nullptr && services_.desktop.notify) {
        notify();
    }
}

void ExportResults::notify() const
{
    const QString image = report_.firstImage();
    services_.desktop.notify(window_.windowTitle(), report_.summary(), image.isEmpty() ? QImage() : pictureOf(image));
}

void ExportResults::showInFolder()
{
    services_.desktop.workspace.revealFile(report_.firstImage());
}

void ExportResults::showDetails()
{
    auto *details = makeForQt<ExportDetails>(report_, &window_);
    connect(details, &ExportDetails::retry, this, [this] { services_.exportAgain(report_.toRetry()); });
    details->open();
}
