#include "app/window/OutputFolderControls.h"

#include "Shared/FolderMaking.h"
#include "Shared/PreferenceKeys.h"
#include "app/results/StatusLine.h"
#include "app/window/SameOrigin.h"
#include "platform/desktop/AlertPanel.h"
#include "platform/desktop/OpenPanel.h"
#include "platform/desktop/Workspace.h"
#include "platform/files/FileSystem.h"
#include "platform/files/PathText.h"
#include "platform/store/UserDefaults.h"
#include "platform/widgets/ToolTipText.h"
#include "prefs/DefaultsSeed.h"
#include "prefs/TrustedFolders.h"
#include "render/OutputFile.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLineEdit>

#include <utility>

using namespace Qt::StringLiterals;

OutputFolderControls::OutputFolderControls(Widgets widgets, Services services) :
    widgets_(widgets), services_(std::move(services))
{
    connect(widgets_.btnBrowser, &QAbstractButton::clicked, this, &OutputFolderControls::browseDown);
    connect(widgets_.btnOpen, &QAbstractButton::clicked, this, &OutputFolderControls::openFinderDown);
    connect(widgets_.chkSameOrigin, &QCheckBox::toggled, this, &OutputFolderControls::sameOriginDown);
}

void OutputFolderControls::showStoredFolder()
{
    const QString stored = services_.defaults.textValue(PreferenceKeys::outputFolder);
    if (FileSystem::isFolder(stored)) {
        show(stored);
    } else {
        showDefaultFolder();
    }
    widgets_.chkSameOrigin->setChecked(false); // whatever was chosen last time
    sameOriginDown();
}

void OutputFolderControls::appLaunched()
{
    if (!outputPath().isEmpty() && !OutputFile::isWritableFolder(outputPath())) {
        showDefaultFolder();
    }
}

void OutputFolderControls::showDefaultFolder()
{
    show(DefaultsSeed::outputFolderUnder(services_.home));
    GlobalFun::MakeSureFolderExsist(outputPath());
    if (!OutputFile::isWritableFolder(outputPath())) {
        //% "No collages can be written into %1. Choose another output folder."
        widgets_.statusLine->tell(qtTrId("status_no_output_folder").arg(PathText::forDisplay(outputPath())));
    }
}

void OutputFolderControls::show(const QString &path)
{
    folder_ = path;
    widgets_.lblOutputPath->setText(PathText::forDisplay(path));
    widgets_.lblOutputPath->setToolTip(plainToolTip(PathText::forDisplay(path)));
    widgets_.lblOutputPath->setCursorPosition(0);
}

void OutputFolderControls::browseDown()
{
    OpenPanelRequest request;
    //% "Choose the Output Folder"
    request.title = qtTrId("choose_output_folder");
    request.folder = outputPath();
    request.folders = true;
    services_.desktop.openPanel(request, [this](const QStringList &paths) {
        if (!paths.isEmpty()) {
            services_.trustedFolders.addToBookmarkWithURL(paths.first());
            show(paths.first());
            widgets_.statusLine->clear(); // of the folder before
            services_.defaults.setText(PreferenceKeys::outputFolder, paths.first());
            services_.defaults.synchronize(); // a crash or another process is to find it
        }
    });
}

void OutputFolderControls::openFinderDown()
{
    services_.desktop.workspace.revealFile(outputPath());
}

void OutputFolderControls::sameOriginDown()
{
    const SameOriginRefusals refusals =
        widgets_.chkSameOrigin->isChecked()
            ? findSameOriginRefusals(services_.moviePaths(), OutputFile::isWritableFolder)
            : SameOriginRefusals();
    if (refusals.isEmpty()) {
        applySameOrigin();
        return;
    }
    const QStringList buttons{u"Authorize"_s, u"Cancel"_s};
    services_.desktop.alert.show(u"Warnning!"_s, refusals.message(), buttons, [this, refusals](int answer) {
        if (answer == 0) {
            authorize(refusals.folders);
        } else {
            widgets_.chkSameOrigin->setChecked(false); // and so to applySameOrigin()
        }
    });
}

void OutputFolderControls::authorize(const QStringList &folders)
{
    if (folders.isEmpty()) {
        applySameOrigin();
        return;
    }
    OpenPanelRequest request;
    //% "Authorize Access to “%1”"
    request.title = qtTrId("authorize_panel_title").arg(PathText::forDisplay(folders.first()));
    request.prompt = u"Authorize"_s;
    request.folder = folders.first();
    request.folders = true;
    services_.desktop.openPanel(request, [this, rest = folders.mid(1)](const QStringList &paths) {
        if (!paths.isEmpty()) { // any folder that the user picks is granted, asked for or not
            services_.trustedFolders.addToBookmarkWithURL(paths.first());
        }
        authorize(rest);
    });
}

void OutputFolderControls::applySameOrigin()
{
    const bool isOn = widgets_.chkSameOrigin->isChecked();
    for (QWidget *control : {static_cast<QWidget *>(widgets_.lblOutputPath), static_cast<QWidget *>(widgets_.btnOpen),
                             static_cast<QWidget *>(widgets_.btnBrowser)}) {
        control->setEnabled(!isOn);
    }
    services_.defaults.setBool(PreferenceKeys::sameAsOrigin, isOn);
    services_.defaults.synchronize();
}
