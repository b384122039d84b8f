#include "prefs/panes/RBMetadataPrefViewCtl.h"

#include "Shared/PreferenceKeys.h"
#include "platform/store/ColorArchive.h"
#include "platform/store/UserDefaults.h"
#include "platform/threads/NotificationCenter.h"
#include "platform/widgets/SymbolicIcon.h"
#include "prefs/panes/TaggedItems.h"
#include "render/MetadataText.h"
#include "ui_RBMetadataPrefViewCtl.h"

using namespace Qt::StringLiterals;

RBMetadataPrefViewCtl::RBMetadataPrefViewCtl(UserDefaults &defaults, NotificationCenter &notifications) :
    defaults_(defaults), notifications_(notifications)
{
}

RBMetadataPrefViewCtl::~RBMetadataPrefViewCtl() = default;

QString RBMetadataPrefViewCtl::identifier() const
{
    return u"MetadataText"_s;
}

QIcon RBMetadataPrefViewCtl::toolbarItemImage() const
{
    return symbolicIcon(u"metadataEdit"_s);
}

QString RBMetadataPrefViewCtl::toolbarItemLabel() const
{
    //% "Metadata"
    return qtTrId("Metadata");
}

void RBMetadataPrefViewCtl::loadView(QWidget &view)
{
    ui_ = std::make_unique<Ui::RBMetadataPrefViewCtl>();
    ui_->setupUi(&view);
    for (const MetadataLine &line : metadataLines()) {
        checkBoxes_.emplace_back(view.findChild<QCheckBox *>(QLatin1StringView(line.checkBox)), line);
    }
    QObject::connect(ui_->btnCheckAll, &QPushButton::clicked, &view, [this] { checkAll(); });
    QObject::connect(ui_->btnUncheckAll, &QPushButton::clicked, &view, [this] { uncheckAll(); });
}

void RBMetadataPrefViewCtl::awakeFromNib()
{
    const std::int32_t bits = defaults_.int32Value(PreferenceKeys::metadataText);
    for (const auto &[checkBox, line] : checkBoxes_) {
        checkBox->setChecked(holds(bits, line.item));
    }
    TaggedItems::select(*ui_->pBtnCornor, defaults_.int64Value(PreferenceKeys::gridTextPosition));
    if (defaults_.contains(PreferenceKeys::metadataTextColor)) {
        ui_->colorWellText->setColor(
            ColorArchive::storedColor(defaults_, PreferenceKeys::metadataTextColor, Qt::white));
    }
    ui_->colorWellGridText->setColor(ColorArchive::storedColor(defaults_, PreferenceKeys::gridTextColor, Qt::black));
}

bool RBMetadataPrefViewCtl::commitControls()
{
    std::int32_t bits = 0;
    for (const auto &[checkBox, line] : checkBoxes_) {
        bits += checkBox->checkState() != Qt::Unchecked ? static_cast<std::int32_t>(line.item) : 0;
    }
    defaults_.setInteger(PreferenceKeys::metadataText, bits);
    defaults_.setInteger(PreferenceKeys::gridTextPosition, TaggedItems::selectedTag(*ui_->pBtnCornor));
    defaults_.setText(PreferenceKeys::gridTextColor, ColorArchive::archive(ui_->colorWellGridText->color()));
    defaults_.setText(PreferenceKeys::metadataTextColor, ColorArchive::archive(ui_->colorWellText->color()));
    defaults_.synchronize();
    notifications_.post(PreferenceKeys::metadataTextChanged);
    return true;
}

void RBMetadataPrefViewCtl::checkAll()
{
    checkLines(true);
}

void RBMetadataPrefViewCtl::uncheckAll()
{
    checkLines(false);
}

void RBMetadataPrefViewCtl::checkLines(bool on)
{
    view(); // the boxes are there from here on
    for (const auto &[checkBox, line] : checkBoxes_) {
        if (line.value) {
            checkBox->setChecked(on);
        }
    }
}
