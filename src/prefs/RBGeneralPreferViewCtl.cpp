#include "prefs/RBGeneralPreferViewCtl.h"

#include "platform/PreferenceKeys.h"
#include "platform/SymbolicIcon.h"
#include "platform/UserDefaults.h"
#include "prefs/TaggedItems.h"
#include "ui_RBGeneralPreferViewCtl.h"

#include <array>
#include <utility>

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
    return QStringLiteral("GeneralSetting");
}

QIcon RBGeneralPreferViewCtl::toolbarItemImage() const
{
    return symbolicIcon(QStringLiteral("Run-64"));
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
