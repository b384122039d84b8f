#include "app/command/ExportCommand.h"

#include "Shared/FileHelper.h"
#include "Shared/FolderMaking.h"
#include "Shared/PreferenceKeys.h"
#include "app/command/CommandLineMovies.h"
#include "app/command/Console.h"
#include "app/loading/MovieCandidates.h"
#include "online/SupportedFormats.h"
#include "online/VXConfigManager.h"
#include "platform/desktop/AlertPanel.h"
#include "platform/desktop/Workspace.h"
#include "platform/store/UserDefaults.h"
#include "prefs/DefaultsSeed.h"
#include "render/ExportJob.h"
#include "render/OutputFile.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Nobody to ask: the question becomes an error line, and the default answer is taken.
class AlertLine final : public AlertPanel {
public:
    AlertLine(Console &lines, bool &failed) : console(lines), someFailed(failed) {}

    int run(const QString & /*title*/, const QString &message, const QStringList & /*buttons*/) override
    {
        console.printMessage(message);
        someFailed = true;
        return 0;
    }

private:
    Console &console;
    bool &someFailed;
};

/// No desktop: a script that makes a thousand images does not want them opened.
class NoDesktop final : public Workspace {
public:
    void openFile(const QString & /*path*/) override {}
    void revealFile(const QString & /*path*/) override {}
};

constexpr std::array afterExportKeys{PreferenceKeys::openAfterFinish, PreferenceKeys::revealInFinder,
                                     PreferenceKeys::clearAfterFinish};

} // namespace

ExportCommand::ExportCommand(ExportOptions exportOptions, Services exportServices) :
    options(std::move(exportOptions)), services(std::move(exportServices))
{
}

ExportCommand::Status ExportCommand::run()
{
    layOptionsOverDefaults();
    const QStringList candidates = findCandidates();
    if (!candidates.isEmpty() && prepareGivenFolder()) {
        CommandLineMovies movies(
            candidates, MovieLoader(services.defaults), {options.start, options.end},
            [this](const QString &path, const QString &reason) { report(path, reason); }, services.cancelled);
        AlertLine alert(services.console, someFailed);
        NoDesktop workspace;
        ExportJob({movies, services.grabber, services.defaults, alert, workspace, *this,
                   [this] { return outputFolder(); }, services.cancelled})
            .run();
    }
    if (services.cancelled) {
        return Interrupted;
    }
    return someFailed ? SomeFailed : AllWritten;
}

void ExportCommand::layOptionsOverDefaults()
{
    // The window never takes this over from an earlier run either.
    services.defaults.setVolatile(PreferenceKeys::sameAsOrigin, false);
    for (const SettingOption &setting : options.settings) {
        services.defaults.setVolatile(setting.key, setting.value);
        if (setting.key == PreferenceKeys::outputFolder && !options.outputFolder) {
            options.outputFolder = setting.value.toString();
        }
    }
    if (options.beside) {
        services.defaults.setVolatile(PreferenceKeys::sameAsOrigin, true);
    }
    for (const QLatin1StringView key : afterExportKeys) {
        services.defaults.setVolatile(key, false);
    }
}

QStringList ExportCommand::findCandidates()
{
    MovieCandidates::Events events;
    events.unreadable = [this](const QString &path, const QString &error) { report(path, error); };
    events.linkedTooOften = [this](const QString &path) {
        services.console.printMessage(path, u"is not searched again, too many links lead to it"_s);
    };
    events.vobRefused = [this](const QString &path) {
        report(path, u"single .vob files are taken only with --set AppSupportVob=true"_s);
    };
    events.folder = [this](const QString &path, qsizetype movies) {
        if (movies == 0 && !services.cancelled) {
            report(path, u"no movies in this folder"_s);
        }
    };
    const QStringList formats = GlobalFun::getSupportedFmts(VXConfigManager(services.defaults));
    return MovieCandidates::expand(options.paths, formats, services.defaults.boolValue(PreferenceKeys::appSupportVob),
                                   events, services.cancelled);
}

bool ExportCommand::prepareGivenFolder()
{
    if (!options.outputFolder) {
        return true; // made when the first image is there to be written
    }
    if (GlobalFun::MakeSureFolderExsist(*options.outputFolder) && OutputFile::isWritableFolder(*options.outputFolder)) {
        return true;
    }
    report(*options.outputFolder, u"images cannot be written into this folder"_s);
    return false;
}

QString ExportCommand::outputFolder() const
{
    if (options.outputFolder) {
        return *options.outputFolder;
    }
    QString chosen = services.defaults.textValue(PreferenceKeys::outputFolder);
    if (!chosen.isEmpty() && FileHelper::directoryExistsWithPath(chosen)) {
        return chosen;
    }
    // A chosen folder that is gone, on a disk that is not plugged in perhaps, is not made again somewhere else.
    QString fallback = DefaultsSeed::outputFolderUnder(services.home);
    GlobalFun::MakeSureFolderExsist(fallback);
    return fallback;
}

void ExportCommand::report(const QString &path, const QString &reason)
{
    services.console.printMessage(path, reason);
    someFailed = true;
}

void ExportCommand::updateProgress(const ExportProgress &progress)
{
    services.console.showProgress(progress);
}

void ExportCommand::imageWritten(const QString & /*moviePath*/, const QString &imagePath)
{
    if (!services.console.printResult(imagePath)) {
        const std::error_code error(errno, std::generic_category());
        report(imagePath, u"is written, but cannot be told: "_s + QString::fromStdString(error.message()));
    }
}

void ExportCommand::movieFailed(const QString &moviePath, const QString &reason)
{
    report(moviePath, reason);
}

void ExportCommand::framesMissing(const QString &moviePath, std::int64_t missing, std::int64_t tileCount)
{
    services.console.printMessage(moviePath, u"%1 of %2 frames could not be grabbed"_s.arg(missing).arg(tileCount));
}
