#include "app/window/VXLoadingWndCtl.h"

#include "platform/files/PathText.h"
#include "platform/threads/NotificationCenter.h"
#include "ui_VXLoadingWndCtl.h"

#include <QCloseEvent>

#include <algorithm>

namespace {

constexpr int margin = 15;
constexpr int spacing = 12;
constexpr int aboveContainer = 35; // from the picture's top
constexpr QSize leastButton(80, 32);

void showShare(QProgressBar &bar, double progress)
{
    const double share = progress > 0.0 ? std::min(progress, 1.0) : 0.0;
    bar.setValue(qRound(share * bar.maximum()));
}

} // namespace

VXLoadingWndCtl::VXLoadingWndCtl(NotificationCenter &center, QWidget *parent) :
    QDialog(parent), center_(center), ui_(std::make_unique<Ui::VXLoadingWndCtl>())
{
    ui_->setupUi(this);
    connect(ui_->btnCancel, &QPushButton::clicked, this, &VXLoadingWndCtl::cancelDown);
    setModel(0);
}

VXLoadingWndCtl::~VXLoadingWndCtl() = default;

void VXLoadingWndCtl::setModel(int model)
{
    layoutModel_ = model;
    //% "Loading Movies"
    const QString loadingTitle = qtTrId("progress_title_loading");
    //% "Making Collages"
    const QString exportTitle = qtTrId("progress_title_export");
    setWindowTitle(model == 0 ? loadingTitle : exportTitle);
    layOut();
}

/// The container is as high as its font needs, and the picture is higher by so much that the container is in its
/// middle. Only the container's left edge moves when the model changes.
void VXLoadingWndCtl::layOut()
{
    QWidget *box = ui_->boxContainer;
    ui_->prgOverall->setVisible(layoutModel_ != 0); // first: the container is higher with it
    ui_->lblOverall->setVisible(layoutModel_ != 0);
    ui_->lblOverall->setMinimumHeight(ui_->lblOverall->fontMetrics().height()); // has no text yet
    const int boxHeight = std::max(box->minimumHeight(), box->sizeHint().height());
    QRect image = ui_->imageView->geometry();
    image.setHeight(boxHeight + 2 * aboveContainer);
    const QSize button = ui_->btnCancel->sizeHint().expandedTo(leastButton);
    const int buttonTop = image.y() + image.height() + spacing;
    setFixedSize(width(), buttonTop + button.height() + margin);

    ui_->imageView->setGeometry(image);
    ui_->imageView->setVisible(layoutModel_ != 0);
    ui_->btnCancel->setGeometry({QPoint(width() - margin - button.width(), buttonTop), button});
    if (layoutModel_ == 0) {
        box->setGeometry(margin, box->y(), width() - 2 * margin, boxHeight);
    } else {
        box->setGeometry(image.x() + image.width() + margin, image.y() + aboveContainer,
                         width() - image.width() - 3 * margin, boxHeight);
    }
}

void VXLoadingWndCtl::startLoading(const QString &text, QWidget *parent)
{
    if (parent != parentWidget()) {
        setParent(parent, windowFlags());
    }
    ui_->lblPrgTip->setText(text);
    ui_->lblSaveProgress->clear();
    setRemaining({});
    setOverall(0.0, {});
    ui_->prgSaving->setValue(0);
    open();
}

void VXLoadingWndCtl::updateProgress(double progress, const QString &main, const QString &ing, const QImage &image)
{
    ui_->lblPrgTip->setText(main);
    ui_->lblSaveProgress->setText(PathText::forDisplay(ing));
    showShare(*ui_->prgSaving, progress);
    if (!image.isNull()) {
        showImage(image);
    }
}

void VXLoadingWndCtl::showImage(const QImage &image)
{
    const qreal ratio = devicePixelRatioF();
    const QSize room = (QSizeF(ui_->imageView->contentsRect().size()) * ratio).toSize();
    QImage fitted = image.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    fitted.setDevicePixelRatio(ratio);
    ui_->imageView->setPixmap(QPixmap::fromImage(fitted));
}

void VXLoadingWndCtl::setRemaining(const QString &text)
{
    ui_->lblRemaining->setText(text);
    ui_->lblRemaining->setVisible(!text.isEmpty());
}

void VXLoadingWndCtl::setOverall(double progress, const QString &text)
{
    showShare(*ui_->prgOverall, progress);
    ui_->lblOverall->setText(text);
}

void VXLoadingWndCtl::endLoading()
{
    ui_->lblSaveProgress->clear();
    setRemaining({});
    setOverall(0.0, {});
    ui_->prgSaving->setValue(0);
    hide();
}

void VXLoadingWndCtl::cancelDown()
{
    center_.post(canceledNotification);
}

void VXLoadingWndCtl::reject()
{
    cancelDown();
}

void VXLoadingWndCtl::closeEvent(QCloseEvent *event)
{
    event->setAccepted(!isVisible());
    if (isVisible()) {
        cancelDown();
    }
}

void VXLoadingWndCtl::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        layOut();
    }
}
