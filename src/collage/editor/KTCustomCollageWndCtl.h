#pragma once

#include "collage/editor/CollageControls.h"
#include "collage/editor/SWTimeEditViewDelegate.h"
#include "collage/editor/SliderViewDelegate.h"
#include "platform/threads/NotificationCenter.h"
#include "platform/widgets/FieldEditingDelegate.h"

#include <QDialog>

#include <functional>
#include <memory>

class AlertPanel;
class CollageEditorHost;
class KTMovieObject;
class QLineEdit;
class QPushButton;
class UserDefaults;

namespace Ui {
class KTCustomCollageWndCtl;
}

/// The collage editor: a sheet over the main window in which the collage of one movie, or of all, is shaped with a live
/// preview. It connects its controls to the movie's settings; what numbers are allowed and what they mean is the
/// business of CollageFields and CollageForm. The main window keeps one; main thread.
class KTCustomCollageWndCtl final : public QDialog,
                                    private FieldEditingDelegate,
                                    private SWTimeEditViewDelegate,
                                    private SliderViewDelegate {
    Q_OBJECT

public:
    /// All of it must outlive this.
    struct Services {
        UserDefaults &defaults;
        NotificationCenter &notifications;
        AlertPanel &alert;
        CollageEditorHost &host;
    };

    explicit KTCustomCollageWndCtl(Services services, QWidget *parent = nullptr);
    ~KTCustomCollageWndCtl() override;

    /// The movie being edited; null before the first one.
    std::shared_ptr<KTMovieObject> movieObj() const { return movie_; }
    QPushButton &btnPrev();
    QPushButton &btnNext();

    /// Makes the movie the edited one and fills every control from it.
    void flushWithKTObject(std::shared_ptr<KTMovieObject> object);
    /// Writes what the controls say into this movie, and then the preview's picture.
    void serilizedToKTObject(KTMovieObject &object) const;

    /// Closes the sheet. What has been changed live stays.
    void cancelDown();
    /// Writes the edited movie, or all of them, and the defaults if asked for; then closes the sheet. Like the two
    /// below, it does nothing while a field holds what cannot stay.
    void doneDown();
    void prevDown();
    void nextDown();
    /// Gives the movie the settings of a newly added one, as a live change.
    void resetDown();

    void reject() override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void prepareControls();
    void connectControls();
    void fillRange(const CollageSettings &settings);
    CollageForm form() const;
    /// The same for every movie of the list; one picture serves all.
    void serilizedToAll() const;

    void changeColor(const CollageControls::Color &color);
    void sliderDown(const CollageControls::Number &number);
    void autoHeightDown();
    void refreshSplitTimeRange();
    /// Lets the change into the settings of the edited movie.
    void edit(const std::function<void(CollageSettings &)> &change);
    void redrawPreview();
    void showPlace();
    void tellOfDone();

    bool endEditing();
    void abandonEditing();
    void releaseHandles();

    void controlTextDidChange(QLineEdit &field) override;
    bool controlTextShouldEndEditing(QLineEdit &field) override;
    bool isValid(SWTimeEditView &view, double seconds) override;
    void didChangeValue(SWTimeEditView &view, double seconds) override;
    void splitSliderViewBeginDragClip(SplitSliderView &slider, bool bLeftClip) override;
    void splitSliderViewDragClipTo(SplitSliderView &slider, bool bLeftClip) override;
    void splitSliderViewEndDragClip(SplitSliderView &slider, bool bLeftClip) override;

    using SliderViewDelegate::didChangeValue; // the knob: there is none here

    Services services_;
    std::unique_ptr<Ui::KTCustomCollageWndCtl> ui_;
    std::unique_ptr<CollageControls> controls_;
    std::shared_ptr<KTMovieObject> movie_;
    NotificationCenter::Observation metadataObservation_;
};
