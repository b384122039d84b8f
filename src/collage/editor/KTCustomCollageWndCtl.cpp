#include "collage/editor/KTCustomCollageWndCtl.h"

#include "Shared/NumberText.h"
#include "Shared/PathParts.h"
#include "Shared/PreferenceKeys.h"
#include "collage/DefaultParameters.h"
#include "collage/KTMovieObject.h"
#include "collage/editor/CollageEditorHost.h"
#include "collage/editor/SliderSelectionItem.h"
#include "platform/Log.h"
#include "platform/desktop/AlertPanel.h"
#include "platform/files/PathText.h"
#include "platform/widgets/FieldEditing.h"
#include "render/CollagePreview.h"
#include "ui_KTCustomCollageWndCtl.h"

#include <QScreen>
#include <QSignalBlocker>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr double usualMargin = 200.0;
constexpr double usualFrame = 50.0;
constexpr QSize roomAroundSheet(16, 48); // its frame and title, and a little air

struct NumberField {
    QLineEdit *Ui::KTCustomCollageWndCtl::*field;
    CollageNumber number;
};

using Controls = Ui::KTCustomCollageWndCtl;
constexpr std::array<NumberField, 8> numberFields{{
    {&Controls::lblGridRowNum, CollageNumber::Rows},
    {&Controls::lblGridColumeNum, CollageNumber::Columes},
    {&Controls::lblGridWidth, CollageNumber::GridWidth},
    {&Controls::lblGridHeight, CollageNumber::GridHeight},
    {&Controls::lblGridThickness, CollageNumber::GridThickness},
    {&Controls::lblHorizontalGaps, CollageNumber::HorizontalGaps},
    {&Controls::lblVerticalGaps, CollageNumber::VerticalGaps},
    {&Controls::lblBorderWidth, CollageNumber::BorderWidth},
}};

std::int32_t integerValue(const QLineEdit *field)
{
    return GlobalFun::leadingInt32(field->text());
}

void showNumber(QLineEdit *field, double value)
{
    field->setText(QString::number(GlobalFun::truncatedToInt32(value)));
}

/// For the list, which shows pictures small and may hold thousands of them.
QImage fittedForList(const QImage &image)
{
    const QSize room = listPreviewSize * image.devicePixelRatio();
    const bool isSmall = image.width() <= room.width() && image.height() <= room.height();
    return isSmall ? image : image.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace

KTCustomCollageWndCtl::KTCustomCollageWndCtl(Services editorServices, QWidget *parent) :
    QDialog(parent), services(std::move(editorServices)), ui(std::make_unique<Ui::KTCustomCollageWndCtl>())
{
    ui->setupUi(this);
    resize(size().boundedTo(screen()->availableSize() - roomAroundSheet));
    prepareControls();
    connectControls();
}

KTCustomCollageWndCtl::~KTCustomCollageWndCtl()
{
    // The controls lose focus and drags when this is no editor any more.
    ui->startTimeView->setDelegate(nullptr);
    ui->endTimeView->setDelegate(nullptr);
    ui->timeRangeSlidView->setDelegate(nullptr);
}

void KTCustomCollageWndCtl::prepareControls()
{
    for (const NumberField &entry : numberFields) {
        fieldEditings.push_back(
            std::make_unique<FieldEditing>(*(ui.get()->*entry.field), static_cast<FieldEditingDelegate &>(*this)));
    }
    for (SWTimeEditView *view : {ui->startTimeView, ui->endTimeView}) {
        view->setDelegate(this);
        view->setAlertPanel(&services.alert);
        view->setMaximumWidth(view->minimumSizeHint().width()); // what is left is the slider's
    }
    ui->timeRangeSlidView->setDelegate(this);
    ui->thumbPreview->setMetadataText(services.metadataText);
    ui->slidBorderWidth->setUsualMaximum(usualMargin);
    ui->slidGridThickness->setUsualMaximum(usualFrame);
    ui->btnPrev->setShortcut(Qt::ALT | Qt::Key_Left);
    ui->btnNext->setShortcut(Qt::ALT | Qt::Key_Right);
}

void KTCustomCollageWndCtl::connectControls()
{
    for (FractionSlider *slider : {ui->slidBorderWidth, ui->slidGridThickness}) {
        connect(slider, &QSlider::valueChanged, this, [this, slider] { sliderDown(*slider); });
    }
    for (ColorWell *well : {ui->bgColorWell, ui->gridBorderColorWell}) {
        connect(well, &ColorWell::colorChosen, this, [this, well] { changeColor(*well); });
    }
    connect(ui->chkAuto, &QCheckBox::toggled, this, &KTCustomCollageWndCtl::autoHeightDown);
    connect(ui->btnCancel, &QPushButton::clicked, this, &KTCustomCollageWndCtl::cancelDown);
    connect(ui->btnDone, &QPushButton::clicked, this, &KTCustomCollageWndCtl::doneDown);
    connect(ui->btnPrev, &QPushButton::clicked, this, &KTCustomCollageWndCtl::prevDown);
    connect(ui->btnNext, &QPushButton::clicked, this, &KTCustomCollageWndCtl::nextDown);
    metadataObservation = services.notifications.observe(PreferenceKeys::metadataTextChanged,
                                                         [this] { ui->thumbPreview->metadataTextChanged(); });
}

QPushButton &KTCustomCollageWndCtl::btnPrev()
{
    return *ui->btnPrev;
}

QPushButton &KTCustomCollageWndCtl::btnNext()
{
    return *ui->btnNext;
}

// Between the controls and the movie

void KTCustomCollageWndCtl::flushWithKTObject(std::shared_ptr<KTMovieObject> object)
{
    releaseHandles(); // what is still held or typed belongs to the movie before
    abandonEditing();
    movie = std::move(object);
    const CollageSettings settings = movie->settings();
    ui->lblTitle->setText(PathText::forDisplay(GlobalFun::lastPathComponent(movie->filePath)));
    fillRange(settings);
    ui->bgColorWell->setColor(settings.backgroundColor);
    ui->gridBorderColorWell->setColor(settings.gridBorderColor);
    fillNumbers(settings);
    {
        const QSignalBlocker quiet(ui->chkAuto);
        ui->chkAuto->setChecked(settings.autoHeight);
    }
    ui->chkShadowed->setChecked(settings.gridShadowed);
    autoHeightDown();
    ui->chkApplyToAll->setChecked(false);
    ui->chkSetAsDefault->setChecked(false);
    abandonEditing(); // a field that has the focus goes back to this movie's value when it is refused
    redrawPreview();
}

void KTCustomCollageWndCtl::releaseHandles()
{
    ui->timeRangeSlidView->release();
    ui->slidBorderWidth->release();
    ui->slidGridThickness->release();
}

void KTCustomCollageWndCtl::fillRange(const CollageSettings &settings)
{
    SplitSliderView &slider = *ui->timeRangeSlidView;
    slider.setDMinValue(0.0);
    slider.setDLength(movie->duration);
    slider.setSelection(settings.startPoint, settings.endPoint - settings.startPoint);
    ui->startTimeView->flushWithSeconds(settings.startPoint);
    ui->endTimeView->flushWithSeconds(settings.endPoint);
}

void KTCustomCollageWndCtl::fillNumbers(const CollageSettings &settings)
{
    showNumber(ui->lblGridRowNum, settings.rowNumber);
    showNumber(ui->lblGridColumeNum, settings.columeNumber);
    showNumber(ui->lblGridWidth, settings.gridWidth);
    showNumber(ui->lblGridHeight, settings.gridHeight);
    ui->slidGridThickness->setDoubleValue(settings.gridBorderWidth);
    showNumber(ui->lblGridThickness, settings.gridBorderWidth);
    showNumber(ui->lblHorizontalGaps, settings.columeSpace);
    showNumber(ui->lblVerticalGaps, settings.rowSpace);
    ui->slidBorderWidth->setDoubleValue(GlobalFun::truncatedToInt32(settings.borderWidth));
    showNumber(ui->lblBorderWidth, settings.borderWidth);
}

CollageForm KTCustomCollageWndCtl::form() const
{
    const SliderSelectionItem &selection = ui->timeRangeSlidView->selectionItem();
    CollageForm form;
    form.dStart = selection.dStart;
    form.dLength = selection.dLength;
    form.backgroundColor = ui->bgColorWell->color();
    form.rowNumber = integerValue(ui->lblGridRowNum);
    form.columeNumber = integerValue(ui->lblGridColumeNum);
    form.gridBorderColor = ui->gridBorderColorWell->color();
    form.gridBorderWidth = integerValue(ui->lblGridThickness);
    form.rowSpace = integerValue(ui->lblVerticalGaps);
    form.columeSpace = integerValue(ui->lblHorizontalGaps);
    form.slidBorderWidth = GlobalFun::truncatedToInt32(ui->slidBorderWidth->doubleValue());
    form.lblBorderWidth = integerValue(ui->lblBorderWidth);
    form.gridShadowed = ui->chkShadowed->isChecked();
    form.autoHeight = ui->chkAuto->isChecked();
    form.gridWidth = integerValue(ui->lblGridWidth);
    form.gridHeight = integerValue(ui->lblGridHeight);
    return form;
}

void KTCustomCollageWndCtl::serilizedToKTObject(KTMovieObject &object) const
{
    object.setSettings(settingsFromForm(form(), object));
    object.setImgPreview(fittedForList(ui->thumbPreview->imageWithSubviews()));
}

void KTCustomCollageWndCtl::serilizedToAll() const
{
    const auto movies = services.host.aryItems();
    const CollageForm values = form();
    for (const auto &each : movies) {
        each->setSettings(settingsFromForm(values, *each));
    }
    // The view draws what the edited movie has now, wherever that stands in the list.
    const QImage picture = fittedForList(ui->thumbPreview->imageWithSubviews());
    for (const auto &each : movies) {
        each->setImgPreview(picture);
    }
}

// Live changes

void KTCustomCollageWndCtl::edit(const std::function<void(CollageSettings &)> &change)
{
    CollageSettings settings = movie->settings();
    change(settings);
    movie->setSettings(settings);
}

void KTCustomCollageWndCtl::redrawPreview()
{
    ui->thumbPreview->flushWithMovieObject(movie);
}

void KTCustomCollageWndCtl::changeColor(ColorWell &well)
{
    qCDebug(lcTessarine) << "color changed...";
    edit([&](CollageSettings &settings) {
        (&well == ui->bgColorWell ? settings.backgroundColor : settings.gridBorderColor) = well.color();
    });
    redrawPreview();
}

void KTCustomCollageWndCtl::sliderDown(FractionSlider &slider)
{
    const bool isMargin = &slider == ui->slidBorderWidth;
    const double value = slider.doubleValue();
    edit([&](CollageSettings &settings) { (isMargin ? settings.borderWidth : settings.gridBorderWidth) = value; });
    showNumber(isMargin ? ui->lblBorderWidth : ui->lblGridThickness, value);
    redrawPreview();
}

void KTCustomCollageWndCtl::autoHeightDown()
{
    const bool automatic = ui->chkAuto->isChecked();
    ui->lblGridHeight->setReadOnly(automatic);
    ui->lblGridHeight->setEnabled(!automatic);
    if (automatic) {
        showNumber(ui->lblGridHeight, automaticGridHeight(*movie, integerValue(ui->lblGridWidth)));
    }
    edit([automatic](CollageSettings &settings) { settings.autoHeight = automatic; });
}

void KTCustomCollageWndCtl::controlTextDidChange(QLineEdit &field)
{
    qCDebug(lcTessarine) << "ctl text did changed...";
    const std::optional<CollageNumber> number = numberOf(field);
    const std::int32_t value = integerValue(&field);
    if (!number || !CollageNumbers::isShown(*number, value)) {
        return;
    }
    edit([&](CollageSettings &settings) {
        CollageNumbers::write(settings, *number, value);
        if (*number == CollageNumber::GridWidth && settings.autoHeight) {
            settings.gridHeight = automaticGridHeight(*movie, value);
            showNumber(ui->lblGridHeight, settings.gridHeight);
        }
    });
    if (*number == CollageNumber::GridThickness) {
        ui->slidGridThickness->setDoubleValue(value);
    } else if (*number == CollageNumber::BorderWidth) {
        ui->slidBorderWidth->setDoubleValue(value);
    }
    redrawPreview();
}

// The clip range

void KTCustomCollageWndCtl::refreshSplitTimeRange()
{
    const SliderSelectionItem &selection = ui->timeRangeSlidView->selectionItem();
    const double end = selection.dStart + selection.dLength;
    edit([&](CollageSettings &settings) {
        settings.startPoint = selection.dStart;
        settings.endPoint = end;
    });
    ui->startTimeView->flushWithSeconds(selection.dStart);
    ui->endTimeView->flushWithSeconds(end);
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
    if (&view == ui->startTimeView) {
        return 0.0 <= seconds && seconds <= ui->endTimeView->secondsValue();
    }
    return seconds <= movie->duration && ui->startTimeView->secondsValue() <= seconds;
}

void KTCustomCollageWndCtl::didChangeValue(SWTimeEditView &view, double seconds)
{
    const bool isStart = &view == ui->startTimeView;
    SliderSelectionItem selection = ui->timeRangeSlidView->selectionItem();
    // A new start moves the whole selection; the end field follows at the next write from the slider.
    (isStart ? selection.dStart : selection.dLength) = isStart ? seconds : seconds - selection.dStart;
    ui->timeRangeSlidView->setSelection(selection.dStart, selection.dLength);
    edit([&](CollageSettings &settings) { (isStart ? settings.startPoint : settings.endPoint) = seconds; });
}

// Fields and buttons

std::optional<CollageNumber> KTCustomCollageWndCtl::numberOf(const QLineEdit &field) const
{
    const auto *entry = std::ranges::find_if(
        numberFields, [&](const NumberField &candidate) { return ui.get()->*candidate.field == &field; });
    return entry == numberFields.end() ? std::nullopt : std::optional(entry->number);
}

bool KTCustomCollageWndCtl::controlTextShouldEndEditing(QLineEdit &field)
{
    const std::optional<CollageNumber> number = numberOf(field);
    if (number && CollageNumbers::isAccepted(*number, integerValue(&field))) {
        return true;
    }
    QString title;
    if (number && CollageNumbers::isGridSize(*number)) {
        title = u"The Grid Size must be bigger than 30 * 30"_s;
    } else if (number) {
        //% "This number is too small: rows and columns begin at 1, gaps, margin and frames at 0."
        title = qtTrId("WrongNumberInput");
    }
    //% "OK"
    services.alert.show(title, {}, {qtTrId("OK")}, [](int) {});
    return false;
}

bool KTCustomCollageWndCtl::endEditing()
{
    return std::ranges::all_of(fieldEditings, [](const auto &editing) { return editing->endEditing(); }) &&
           ui->startTimeView->endEditing() && ui->endTimeView->endEditing();
}

void KTCustomCollageWndCtl::abandonEditing()
{
    std::ranges::for_each(fieldEditings, [](const auto &editing) { editing->abandonEditing(); });
    ui->startTimeView->abandonEditing();
    ui->endTimeView->abandonEditing();
}

void KTCustomCollageWndCtl::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    ui->lblGridRowNum->setFocus();
    ui->lblGridRowNum->selectAll();
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
    if (ui->chkSetAsDefault->isChecked()) {
        DefaultParameters::store(services.defaults, form());
    }
    if (ui->chkApplyToAll->isChecked()) {
        serilizedToAll();
    } else {
        serilizedToKTObject(*movie);
    }
    services.host.reloadData();
    accept();
}

void KTCustomCollageWndCtl::prevDown()
{
    if (!endEditing()) {
        return;
    }
    serilizedToKTObject(*movie);
    services.host.selectPrevMovie();
}

void KTCustomCollageWndCtl::nextDown()
{
    if (!endEditing()) {
        return;
    }
    serilizedToKTObject(*movie);
    services.host.selectNextMovie();
}
