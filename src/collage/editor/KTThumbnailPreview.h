#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

class KTMovieObject;

/// A reduced picture of the collage that a movie's settings make, redrawn after every change of them. Part of the
/// editor's window; main thread. What the program does not call belongs to the vocabulary.
class KTThumbnailPreview final : public QWidget {
    Q_OBJECT

public:
    /// Gives the block of facts about a movie, for its height.
    using MetadataText = std::function<QString(const KTMovieObject &)>;

    explicit KTThumbnailPreview(QWidget *parent = nullptr);

    /// May read files: it is asked once per movie and time on the screen, not at every redraw.
    void setMetadataText(MetadataText text);
    /// The choice of facts is another one now.
    void metadataTextChanged();

    /// The movie that is drawn; null at first.
    std::shared_ptr<KTMovieObject> ktObject() const { return movie_; }
    /// The block of facts that room is kept for. There must be a movie.
    const QString &facts();
    /// Shows the movie with the settings that it has now.
    void flushWithMovieObject(std::shared_ptr<KTMovieObject> object);

    /// What the view shows as an image, transparent around the collage.
    QImage imageWithSubviews();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    const QImage &holderForScreen();

    std::shared_ptr<KTMovieObject> movie_;
    MetadataText metadataText_;
    QString knownFacts_;
    bool factsAreKnown_ = false;
    QImage imgHolder;
};
