#include "collage/editor/KTThumbnailPreview.h"

#include "collage/KTMovieObject.h"
#include "render/CollagePreview.h"

#include <QPainter>

#include <utility>

KTThumbnailPreview::KTThumbnailPreview(QWidget *parent) : QWidget(parent)
{
    //% "Preview of the collage"
    setAccessibleName(qtTrId("preview_name"));
}

void KTThumbnailPreview::setMetadataText(MetadataText text)
{
    metadataText_ = std::move(text);
    metadataTextChanged();
}

void KTThumbnailPreview::metadataTextChanged()
{
    factsAreKnown_ = false;
    update();
}

void KTThumbnailPreview::flushWithMovieObject(std::shared_ptr<KTMovieObject> object)
{
    if (object != movie_) {
        factsAreKnown_ = false;
    }
    movie_ = std::move(object);
    update();
}

QImage KTThumbnailPreview::imageWithSubviews()
{
    const qreal ratio = devicePixelRatioF();
    QImage image((QSizeF(size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    render(&image, {}, {}, DrawChildren);
    return image;
}

QSize KTThumbnailPreview::sizeHint() const
{
    return listPreviewSize;
}

QSize KTThumbnailPreview::minimumSizeHint() const
{
    return listPreviewSize / 2;
}

void KTThumbnailPreview::paintEvent(QPaintEvent * /*event*/)
{
    if (!movie_) {
        return;
    }
    QPainter painter(this);
    drawCollagePreview(painter, rect(), movie_->settings(), facts(), holderForScreen());
}

void KTThumbnailPreview::showEvent(QShowEvent *event)
{
    factsAreKnown_ = false; // the choice of facts may have changed in the preferences meanwhile
    QWidget::showEvent(event);
}

const QImage &KTThumbnailPreview::holderForScreen()
{
    if (imgHolder.isNull() || imgHolder.devicePixelRatio() != devicePixelRatioF()) {
        imgHolder = previewPlaceholder(devicePixelRatioF());
    }
    return imgHolder;
}

const QString &KTThumbnailPreview::facts()
{
    if (!factsAreKnown_) {
        knownFacts_ = metadataText_ ? metadataText_(*movie_) : QString();
        factsAreKnown_ = true;
    }
    return knownFacts_;
}
