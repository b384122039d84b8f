#include "app/window/OutputFolderControls.h"

#include "Shared/FolderMaking.h"
#include "Shared/PreferenceKeys.h"
#include "app/window/SameOrigin.h"
#include "platform/desktop/AlertPanel.h"
#include "platform/desktop/OpenPanel.h"
#include "platform/desktop/Workspace.h"
#include "platform/files/FileSystem.h"
#include "platform/files/PathText.h"
#include "platform/store/UserDefaults.h"
#include "prefs/DefaultsSeed.h"
#include "prefs/TrustedFolders.h"
#include "render/OutputFile.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>

#include <utility>

using namespace Qt::StringLiterals;

OutputFolderControls::OutputFolderControls(Widgets controls, Services controlServices) :
    widgets(controls), services(std::move(controlServices))
{
    connect(widgets.btnBrowser, &QAbstractButton::clicked, this, &OutputFolderControls::browseDown);
    connect(widgets.btnOpen, &QAbstractButton::clicked, this, &OutputFolderControls::openFinderDown);
    connect(widgets.chkSameOrigin, &QCheckBox::toggled, this, &OutputFolderControls::sameOriginDown);
}

void OutputFolderControls::showStoredFolder()
{
    const QString stored = services.defaults.textValue(PreferenceKeys::outputFolder);
    if (FileSystem::isFolder(stored)) {
        show(stored);
    } else {
        showDefaultFolder();
    }
    widgets.chkSameOrigin->setChecked(false); // whatever was chosen last time
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
    show(DefaultsSeed::outputFolderUnder(services.home));
    GlobalFun::MakeSureFolderExsist(outputPath());
    if (!OutputFile::isWritableFolder(outputPath())) {
        //% "No collages can be written into %1. Choose another output folder."
        widgets.lblStatus->setText(qtTrId("status_no_output_folder").arg(PathText::forDisplay(outputPath())));
    }
}

void OutputFolderControls::show(const QString &path)
{
    folder = path;
    widgets.lblOutputPath->setText(PathText::forDisplay(path));
    widgets.lblOutputPath->setToolTip(PathText::forDisplay(path));
    widgets.lblOutputPath->setCursorPosition(0);
}

void OutputFolderControls::browseDown()
{
    OpenPanelRequest request;
    //% "Choose the Output Folder"
    request.title = qtTrId("choose_output_folder");
    request.folder = outputPath();
    request.folders = true;
    services.desktop.openPanel.open(request, [this](const QStringList &paths) {
        if (!paths.isEmpty()) {
            services.trustedFolders.addToBookmarkWithURL(paths.first());
            show(paths.first());
            widgets.lblStatus->clear(); // of the folder before
            services.defaults.setText(PreferenceKeys::outputFolder, paths.first());
            services.defaults.synchronize(); // a crash or another process is to find it
        }
    });
}

void OutputFolderControls::openFinderDown()
{
    services.desktop.workspace.revealFile(outputPath());
}

void OutputFolderControls::sameOriginDown()
{
    const SameOriginRefusals refusals =
        widgets.chkSameOrigin->isChecked() ? findSameOriginRefusals(services.moviePaths(), OutputFile::isWritableFolder)
                                           : SameOriginRefusals();
    if (refusals.isEmpty()) {
        applySameOrigin();
        return;
    }
    const QStringList buttons{u"Authorize"_s, u"Cancel"_s};
    services.desktop.alert.show(u"Warnning!"_s, refusals.message(), buttons, [this, refusals](int answer) {
        if (answer == 0) {
            authorize(refusals.folders);
        } else {
            widgets.chkSameOrigin->setChecked(false); // and so to applySameOrigin()
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
    services.desktop.openPanel.open(request, [this, rest = folders.mid(1)](const QStringList &paths) {
        if (!paths.isEmpty()) { // any folder that the user picks is granted, asked for or not
            services.trustedFolders.addToBookmarkWithURL(paths.first());
        }
        authorize(rest);
    });
}

void OutputFolderControls::applySameOrigin()
{
    const bool isOn = widgets.chkSameOrigin->isChecked();
    for (QWidget *control : {static_cast<QWidget *>(widgets.lblOutputPath), static_cast<QWidget *>(widgets.btnOpen),
                             static_cast<QWidget *>(widgets.btnBrowser)}) {
        control->setEnabled(!isOn);
    }
    services.defaults.setBool(PreferenceKeys::sameAsOrigin, isOn);
    services.defaults.synchronize();
}
