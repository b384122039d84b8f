#include "prefs/panes/RBMetadataPrefViewCtl.h"

#include "Shared/PreferenceKeys.h"
#include "platform/store/StoredColor.h"
#include "platform/threads/NotificationCenter.h"
#include "platform/widgets/SymbolicIcon.h"
#include "prefs/panes/TaggedItems.h"
#include "ui_RBMetadataPrefViewCtl.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// The check box of each bit of the stored number, from the lowest.
std::array<QCheckBox *, 10> checkBoxes(const Ui::RBMetadataPrefViewCtl &ui)
{
    return {ui.chkTimestamp, ui.chkMilisec, ui.chkFilename, ui.chkFilesize,  ui.chkResolution,
            ui.chkDuration,  ui.chkDate,    ui.chkFPS,      ui.chkCodecname, ui.chkBitrate};
}

constexpr std::size_t firstLine = 2; // the boxes before it are about the time stamps

} // namespace

RBMetadataPrefViewCtl::RBMetadataPrefViewCtl(UserDefaults &store, NotificationCenter &center) :
    defaults(store), notifications(center)
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
    ui = std::make_unique<Ui::RBMetadataPrefViewCtl>();
    ui->setupUi(&view);
    QObject::connect(ui->btnCheckAll, &QPushButton::clicked, &view, [this] { checkAll(); });
    QObject::connect(ui->btnUncheckAll, &QPushButton::clicked, &view, [this] { uncheckAll(); });
}

void RBMetadataPrefViewCtl::awakeFromNib()
{
    auto bits = static_cast<unsigned>(defaults.int32Value(PreferenceKeys::metadataText));
    for (QCheckBox *checkBox : checkBoxes(*ui)) {
        checkBox->setChecked((bits & 1U) != 0);
        bits >>= 1U;
    }
    TaggedItems::select(*ui->pBtnCornor, defaults.int64Value(PreferenceKeys::gridTextPosition));
    if (defaults.contains(PreferenceKeys::metadataTextColor)) {
        ui->colorWellText->setColor(storedColor(defaults, PreferenceKeys::metadataTextColor, Qt::white));
    }
    ui->colorWellGridText->setColor(storedColor(defaults, PreferenceKeys::gridTextColor, Qt::black));
}

bool RBMetadataPrefViewCtl::commitControls()
{
    unsigned bits = 0;
    unsigned bit = 1;
    for (const QCheckBox *checkBox : checkBoxes(*ui)) {
        bits |= checkBox->checkState() != Qt::Unchecked ? bit : 0U;
        bit <<= 1U;
    }
    defaults.setInteger(PreferenceKeys::metadataText, bits);
    defaults.setInteger(PreferenceKeys::gridTextPosition, TaggedItems::selectedTag(*ui->pBtnCornor));
    defaults.setText(PreferenceKeys::gridTextColor, ColorArchive::archive(ui->colorWellGridText->color()));
    defaults.setText(PreferenceKeys::metadataTextColor, ColorArchive::archive(ui->colorWellText->color()));
    defaults.synchronize();
    notifications.post(PreferenceKeys::metadataTextChanged);
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
    const auto boxes = checkBoxes(*ui);
    for (std::size_t index = firstLine; index < boxes.size(); ++index) {
        boxes.at(index)->setChecked(on);
    }
}
