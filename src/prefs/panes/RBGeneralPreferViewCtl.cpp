#include "prefs/panes/RBGeneralPreferViewCtl.h"

#include "Shared/FrameSource.h"
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
        std::pair(ui.displayAspect, PreferenceKeys::displayAspect),
        std::pair(ui.deinterlace, PreferenceKeys::deinterlace),
        std::pair(ui.toneMap, PreferenceKeys::toneMap),
        std::pair(ui.skipBlank, PreferenceKeys::skipBlank),
    };
}

/// In the order of the numbers of FrameSource.
QStringList frameSourceTitles()
{
    //% "As the ffmpeg tool gives them"
    const QString tool = qtTrId("general_frames_tool");
    //% "The same pictures, faster"
    const QString exact = qtTrId("general_frames_exact");
    //% "Nearest key frames, fastest"
    const QString key = qtTrId("general_frames_key");
    return {tool, exact, key};
}

} // namespace

RBGeneralPreferViewCtl::RBGeneralPreferViewCtl(UserDefaults &defaults) : defaults_(defaults) {}

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
    ui_ = std::make_unique<Ui::RBGeneralPreferViewCtl>();
    ui_->setupUi(&view);
    for (const ImageFormat &format : imageFormats) {
        ui_->pBtnFmts->addItem(format.title.toString());
    }
    ui_->frameSource->addItems(frameSourceTitles());
}

void RBGeneralPreferViewCtl::awakeFromNib()
{
    for (const auto &[checkBox, key] : checkBoxes(*ui_)) {
        checkBox->setChecked(defaults_.boolValue(key));
    }
    TaggedItems::select(*ui_->pBtnFmts, defaults_.int64Value(PreferenceKeys::outputFormat));
    TaggedItems::select(*ui_->frameSource,
                        static_cast<std::int64_t>(frameSourceOf(defaults_.int64Value(PreferenceKeys::frameSource))));
}

bool RBGeneralPreferViewCtl::commitControls()
{
    for (const auto &[checkBox, key] : checkBoxes(*ui_)) {
        defaults_.setBool(key, checkBox->isChecked());
    }
    defaults_.setInteger(PreferenceKeys::outputFormat, TaggedItems::selectedTag(*ui_->pBtnFmts));
    defaults_.setInteger(PreferenceKeys::frameSource, TaggedItems::selectedTag(*ui_->frameSource));
    defaults_.synchronize();
    return true;
}
