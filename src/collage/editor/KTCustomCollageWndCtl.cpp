#include "collage/editor/KTCustomCollageWndCtl.h"

#include "Shared/NumberText.h"
#include "Shared/PathParts.h"
#include "Shared/PreferenceKeys.h"
#include "collage/DefaultParameters.h"
#include "collage/KTMovieObject.h"
#include "collage/editor/CollageEditorHost.h"
#include "collage/editor/EditorTexts.h"
#include "collage/editor/SliderSelectionItem.h"
#include "platform/Log.h"
#include "platform/desktop/AlertPanel.h"
#include "platform/files/PathText.h"
#include "platform/store/UserDefaults.h"
#include "platform/widgets/FieldEditing.h"
#include "render/CollagePreview.h"
#include "render/MetadataText.h"
#include "ui_KTCustomCollageWndCtl.h"

#include <QScreen>
#include <QSignalBlocker>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize roomAroundSheet(16, 48); // its frame and title, and a little air

} // namespace

KTCustomCollageWndCtl::KTCustomCollageWndCtl(Services services, QWidget *parent) :
    QDialog(parent), services_(services), ui_(std::make_unique<Ui::KTCustomCollageWndCtl>())
{
    ui_->setupUi(this);
    resize(size().boundedTo(screen()->availableSize() - roomAroundSheet));
    prepareControls();
    connectControls();
}

KTCustomCollageWndCtl::~KTCustomCollageWndCtl()
{
    // The controls are destroyed after this object, and would still report the end of typing and drags.
    ui_->startTimeView->setDelegate(nullptr);
    ui_->endTimeView->setDelegate(nullptr);
    ui_->timeRangeSlidView->setDelegate(nullptr);
}

void KTCustomCollageWndCtl::prepareControls()
{
    controls_ = std::make_unique<CollageControls>(*this, static_cast<FieldEditingDelegate &>(*this),
                                                  CollageControls::Changes{
                                                      .slider = [this](const auto &number) { sliderDown(number); },
                                                      .color = [this](const auto &color) { changeColor(color); },
                                                  });
    for (SWTimeEditView *view : {ui_->startTimeView, ui_->endTimeView}) {
        view->setDelegate(this);
        view->setAlertPanel(&services_.alert);
        view->setMaximumWidth(view->minimumSizeHint().width()); // what is left is the slider's
    }
    ui_->timeRangeSlidView->setDelegate(this);
    ui_->thumbPreview->setMetadataText([&defaults = services_.defaults](const KTMovieObject &object) {
        return getMetaStrWithObject(object, defaults.int32Value(PreferenceKeys::metadataText));
    });
    ui_->btnPrev->setShortcut(Qt::ALT | Qt::Key_Left);
    ui_->btnNext->setShortcut(Qt::ALT | Qt::Key_Right);
}

void KTCustomCollageWndCtl::connectControls()
{
    connect(ui_->chkAuto, &QCheckBox::toggled, this, &KTCustomCollageWndCtl::autoHeightDown);
    for (QCheckBox *box : {ui_->chkAuto, ui_->chkSetAsDefault, ui_->chkApplyToAll}) { // after autoHeightDown
        connect(box, &QCheckBox::toggled, this, &KTCustomCollageWndCtl::tellOfDone);
    }
    connect(ui_->btnReset, &QPushButton::clicked, this, &KTCustomCollageWndCtl::resetDown);
    connect(ui_->btnCancel, &QPushButton::clicked, this, &KTCustomCollageWndCtl::cancelDown);
    connect(ui_->btnDone, &QPushButton::clicked, this, &KTCustomCollageWndCtl::doneDown);
    connect(ui_->btnPrev, &QPushButton::clicked, this, &KTCustomCollageWndCtl::prevDown);
    connect(ui_->btnNext, &QPushButton::clicked, this, &KTCustomCollageWndCtl::nextDown);
    metadataObservation_ = services_.notifications.observe(PreferenceKeys::metadataTextChanged, [this] {
        ui_->thumbPreview->metadataTextChanged();
        tellOfDone();
    });
}

QPushButton &KTCustomCollageWndCtl::btnPrev()
{
    return *ui_->btnPrev;
}

QPushButton &KTCustomCollageWndCtl::btnNext()
{
    return *ui_->btnNext;
}

// Between the controls and the movie

void KTCustomCollageWndCtl::flushWithKTObject(std::shared_ptr<KTMovieObject> object)
{
    releaseHandles(); // what is still held or typed belongs to the movie before
    abandonEditing();
    movie_ = std::move(object);
    const CollageSettings settings = movie_->settings();
    ui_->lblTitle->setText(PathText::forDisplay(GlobalFun::lastPathComponent(movie_->filePath)));
    fillRange(settings);
    controls_->fill(settings);
    autoHeightDown();
    ui_->chkApplyToAll->setChecked(false);
    ui_->chkSetAsDefault->setChecked(false);
    abandonEditing(); // a field that has the focus goes back to this movie's value when it is refused
    showPlace();
    redrawPreview();
}

void KTCustomCollageWndCtl::showPlace()
{
    const auto movies = services_.host.aryItems();
    const auto place = std::ranges::find(movies, movie_) - movies.begin();
    ui_->lblPlace->setText(EditorTexts::placeInList(static_cast<int>(place) + 1, static_cast<int>(movies.size())));
}

/// Done stores what stands in the controls, which may be other than what the movie has now.
void KTCustomCollageWndCtl::tellOfDone()
{
    const CollageSettings kept = settingsFromForm(form(), *movie_);
    ui_->lblCollageSize->setText(EditorTexts::collageSize(collageLayout(kept, ui_->thumbPreview->facts())));
    const CollageSettings live = movie_->settings();
    QStringList notes;
    if (kept.startPoint != live.startPoint || kept.endPoint != live.endPoint) {
        notes << EditorTexts::rangeOfDone(kept.startPoint, kept.endPoint);
    }
    if (ui_->chkApplyToAll->isChecked() || ui_->chkSetAsDefault->isChecked()) {
        notes << EditorTexts::waitsForDone();
    }
    ui_->lblNote->setText(notes.join(u" · "_s));
}

void KTCustomCollageWndCtl::releaseHandles()
{
    ui_->timeRangeSlidView->release();
    controls_->releaseSliders();
}

void KTCustomCollageWndCtl::fillRange(const CollageSettings &settings)
{
    SplitSliderView &slider = *ui_->timeRangeSlidView;
    slider.setDMinValue(0.0);
    slider.setDLength(movie_->duration);
    slider.setSelection(settings.startPoint, settings.endPoint - settings.startPoint);
    ui_->startTimeView->flushWithSeconds(settings.startPoint);
    ui_->endTimeView->flushWithSeconds(settings.endPoint);
}

CollageForm KTCustomCollageWndCtl::form() const
{
    const SliderSelectionItem &selection = ui_->timeRangeSlidView->selectionItem();
    CollageForm form;
    form.dStart = selection.dStart;
    form.dLength = selection.dLength;
    controls_->readInto(form);
    return form;
}

void KTCustomCollageWndCtl::serilizedToKTObject(KTMovieObject &object) const
{
    object.setSettings(settingsFromForm(form(), object));
    object.setImgPreview(fittedForList(ui_->thumbPreview->imageWithSubviews()));
}

void KTCustomCollageWndCtl::serilizedToAll() const
{
    const auto movies = services_.host.aryItems();
    const CollageForm values = form();
    for (const auto &each : movies) {
        each->setSettings(settingsFromForm(values, *each));
    }
    // The preview shows the edited movie, which is one of the list and has the new settings now.
    const QImage picture = fittedForList(ui_->thumbPreview->imageWithSubviews());
    for (const auto &each : movies) {
        each->setImgPreview(picture);
    }
}

// Live changes

void KTCustomCollageWndCtl::edit(const std::function<void(CollageSettings &)> &change)
{
    CollageSettings settings = movie_->settings();
    change(settings);
    movie_->setSettings(settings);
}

void KTCustomCollageWndCtl::redrawPreview()
{
    ui_->thumbPreview->flushWithMovieObject(movie_);
    tellOfDone();
}

void KTCustomCollageWndCtl::changeColor(const CollageControls::Color &color)
{
    qCDebug(lcTessarine) << "color changed...";
    edit([&](CollageSettings &settings) { settings.*color.row.member = color.well->color(); });
    redrawPreview();
}

void KTCustomCollageWndCtl::sliderDown(const CollageControls::Number &number)
{
    const double value = number.slider->doubleValue();
    edit([&](CollageSettings &settings) { number.row.put(settings, value); });
    CollageControls::show(*number.field, value);
    redrawPreview();
}

void KTCustomCollageWndCtl::autoHeightDown()
{
    const bool automatic = ui_->chkAuto->isChecked();
    ui_->lblGridHeight->setReadOnly(automatic);
    ui_->lblGridHeight->setEnabled(!automatic);
    if (automatic) {
        CollageControls::show(*ui_->lblGridHeight,
                              automaticGridHeight(*movie_, CollageControls::valueIn(*ui_->lblGridWidth)));
    }
    edit([automatic](CollageSettings &settings) { settings.autoHeight = automatic; });
}

void KTCustomCollageWndCtl::controlTextDidChange(QLineEdit &field)
{
    qCDebug(lcTessarine) << "ctl text did changed...";
    const CollageControls::Number *number = controls_->numberOf(field);
    const std::int32_t value = CollageControls::valueIn(field);
    if (!number || value < number->row.shownFrom) {
        tellOfDone();
        return;
    }
    edit([&](CollageSettings &settings) {
        number->row.put(settings, value);
        if (number->row.is(&CollageSettings::gridWidth) && settings.autoHeight) {
            settings.gridHeight = automaticGridHeight(*movie_, value);
            CollageControls::show(*ui_->lblGridHeight, settings.gridHeight);
        }
    });
    if (number->slider) {
        number->slider->setDoubleValue(value);
    }
    redrawPreview();
}

// The clip range

void KTCustomCollageWndCtl::refreshSplitTimeRange()
{
    const SliderSelectionItem &selection = ui_->timeRangeSlidView->selectionItem();
    const double end = selection.dStart + selection.dLength;
    edit([&](CollageSettings &settings) {
        settings.startPoint = selection.dStart;
        settings.endPoint = end;
    });
    ui_->startTimeView->flushWithSeconds(selection.dStart);
    ui_->endTimeView->flushWithSeconds(end);
    tellOfDone();
}

void KTCustomCollageWndCtl::splitSliderViewBeginDragClip(SplitSliderView & /*slider*/, bool /*bLeftClip*/)
{
    refreshSplitTimeRange();
}

void KTCustomCollageWndCtl::splitSliderViewDragClipTo(SplitSliderView & /*slider*/, bool /*bLeftClip*/)
{
    refreshSplitTimeRange();
}

void KTCustomCollageWndCtl::splitSliderViewEndDragClip(SplitSliderView & /*slider*/, bool /*bLeftClip*/)
{
    refreshSplitTimeRange();
}

bool KTCustomCollageWndCtl::isValid(SWTimeEditView &view, double seconds)
{
    if (&view == ui_->startTimeView) {
        return 0.0 <= seconds && seconds <= ui_->endTimeView->secondsValue();
    }
    return seconds <= movie_->duration && ui_->startTimeView->secondsValue() <= seconds;
}

void KTCustomCollageWndCtl::didChangeValue(SWTimeEditView &view, double seconds)
{
    const bool isStart = &view == ui_->startTimeView;
    SliderSelectionItem selection = ui_->timeRangeSlidView->selectionItem();
    // A new start moves the whole selection; the end field follows at the next write from the slider.
    (isStart ? selection.dStart : selection.dLength) = isStart ? seconds : seconds - selection.dStart;
    ui_->timeRangeSlidView->setSelection(selection.dStart, selection.dLength);
    edit([&](CollageSettings &settings) { (isStart ? settings.startPoint : settings.endPoint) = seconds; });
    tellOfDone();
}

// Fields and buttons

bool KTCustomCollageWndCtl::controlTextShouldEndEditing(QLineEdit &field)
{
    const CollageControls::Number *number = controls_->numberOf(field);
    if (number && CollageControls::valueIn(field) >= number->row.acceptedFrom) {
        return true;
    }
    QString title;
    if (number && number->row.isTileSide()) {
        title = u"The Grid Size must be bigger than 30 * 30"_s;
    } else if (number) {
        //% "This number is too small: rows and columns begin at 1, gaps, margin and frames at 0."
        title = qtTrId("WrongNumberInput");
    }
    //% "OK"
    services_.alert.show(title, {}, {qtTrId("OK")}, [](int) {});
    return false;
}

bool KTCustomCollageWndCtl::endEditing()
{
    return controls_->endEditing() && ui_->startTimeView->endEditing() && ui_->endTimeView->endEditing();
}

void KTCustomCollageWndCtl::abandonEditing()
{
    controls_->abandonEditing();
    ui_->startTimeView->abandonEditing();
    ui_->endTimeView->abandonEditing();
}

void KTCustomCollageWndCtl::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    ui_->lblGridRowNum->setFocus();
    ui_->lblGridRowNum->selectAll();
}

void KTCustomCollageWndCtl::reject()
{
    cancelDown();
}

void KTCustomCollageWndCtl::cancelDown()
{
    abandonEditing();
    QDialog::reject();
}

void KTCustomCollageWndCtl::doneDown()
{
    if (!endEditing()) {
        return;
    }
    if (ui_->chkSetAsDefault->isChecked()) {
        DefaultParameters::store(services_.defaults, form());
    }
    if (ui_->chkApplyToAll->isChecked()) {
        serilizedToAll();
    } else {
        serilizedToKTObject(*movie_);
    }
    services_.host.reloadData();
    accept();
}

void KTCustomCollageWndCtl::resetDown()
{
    const bool appliesToAll = ui_->chkApplyToAll->isChecked();
    const bool setsDefault = ui_->chkSetAsDefault->isChecked();
    movie_->setSettings(DefaultParameters::settingsOfNewMovie(services_.defaults, *movie_));
    flushWithKTObject(movie_);
    ui_->chkApplyToAll->setChecked(appliesToAll);
    ui_->chkSetAsDefault->setChecked(setsDefault);
}

void KTCustomCollageWndCtl::prevDown()
{
    if (!endEditing()) {
        return;
    }
    serilizedToKTObject(*movie_);
    services_.host.selectPrevMovie();
}

void KTCustomCollageWndCtl::nextDown()
{
    if (!endEditing()) {
        return;
    }
    serilizedToKTObject(*movie_);
    services_.host.selectNextMovie();
}
