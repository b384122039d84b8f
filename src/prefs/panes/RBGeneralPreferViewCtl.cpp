#include "prefs/panes/RBGeneralPreferViewCtl.h"

#include "Shared/PreferenceKeys.h"
#include "platform/store/UserDefaults.h"
#include "platform/widgets/SymbolicIcon.h"
#include "prefs/panes/TaggedItems.h"
#include "render/ImageFormats.h"
#include "ui_RBGeneralPreferViewCtl.h"

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

auto checkBoxes(const Ui::RBGeneralPreferViewCtl &ui)
{
    return std::array{
        std::pair(ui.revealFinder, PreferenceKeys::revealInFinder),
        std::pair(ui.chkOpenAfter, PreferenceKeys::openAfterFinish),
        std::pair(ui.chkRemoveAfter, PreferenceKeys::clearAfterFinish),
    };
}

} // namespace

RBGeneralPreferViewCtl::RBGeneralPreferViewCtl(UserDefaults &store) : defaults(store) {}

RBGeneralPreferViewCtl::~RBGeneralPreferViewCtl() = default;

QString RBGeneralPreferViewCtl::identifier() const
{
    return u"GeneralSetting"_s;
}

QIcon RBGeneralPreferViewCtl::toolbarItemImage() const
{
    return symbolicIcon(u"Run-64"_s);
}

QString RBGeneralPreferViewCtl::toolbarItemLabel() const
{
    //% "General"
    return qtTrId("General");
}

void RBGeneralPreferViewCtl::loadView(QWidget &view)
{
    ui = std::make_unique<Ui::RBGeneralPreferViewCtl>();
    ui->setupUi(&view);
    for (const ImageFormat &format : imageFormats) {
        ui->pBtnFmts->addItem(format.title.toString());
    }
}

void RBGeneralPreferViewCtl::awakeFromNib()
{
    for (const auto &[checkBox, key] : checkBoxes(*ui)) {
        checkBox->setChecked(defaults.boolValue(key));
    }
    TaggedItems::select(*ui->pBtnFmts, defaults.int64Value(PreferenceKeys::outputFormat));
}

bool RBGeneralPreferViewCtl::commitControls()
{
    for (const auto &[checkBox, key] : checkBoxes(*ui)) {
        defaults.setBool(key, checkBox->isChecked());
    }
    defaults.setInteger(PreferenceKeys::outputFormat, TaggedItems::selectedTag(*ui->pBtnFmts));
    defaults.synchronize();
    return true;
}
