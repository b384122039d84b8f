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
    for (const MetadataLine &line : metadataLines()) {
        checkBoxes.emplace_back(view.findChild<QCheckBox *>(QLatin1StringView(line.checkBox)), line);
    }
    QObject::connect(ui->btnCheckAll, &QPushButton::clicked, &view, [this] { checkAll(); });
    QObject::connect(ui->btnUncheckAll, &QPushButton::clicked, &view, [this] { uncheckAll(); });
}

void RBMetadataPrefViewCtl::awakeFromNib()
{
    const std::int32_t bits = defaults.int32Value(PreferenceKeys::metadataText);
    for (const auto &[checkBox, line] : checkBoxes) {
        checkBox->setChecked(holds(bits, line.item));
    }
    TaggedItems::select(*ui->pBtnCornor, defaults.int64Value(PreferenceKeys::gridTextPosition));
    if (defaults.contains(PreferenceKeys::metadataTextColor)) {
        ui->colorWellText->setColor(ColorArchive::storedColor(defaults, PreferenceKeys::metadataTextColor, Qt::white));
    }
    ui->colorWellGridText->setColor(ColorArchive::storedColor(defaults, PreferenceKeys::gridTextColor, Qt::black));
}

bool RBMetadataPrefViewCtl::commitControls()
{
    std::int32_t bits = 0;
    for (const auto &[checkBox, line] : checkBoxes) {
        bits += checkBox->checkState() != Qt::Unchecked ? static_cast<std::int32_t>(line.item) : 0;
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
    for (const auto &[checkBox, line] : checkBoxes) {
        if (line.value) {
            checkBox->setChecked(on);
        }
    }
}
