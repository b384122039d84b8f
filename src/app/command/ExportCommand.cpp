#include "app/command/ExportCommand.h"

#include "Shared/FolderMaking.h"
#include "Shared/PreferenceKeys.h"
#include "app/command/CommandLineMovies.h"
#include "app/command/Console.h"
#include "app/loading/MovieCandidates.h"
#include "online/SupportedFormats.h"
#include "online/VXConfigManager.h"
#include "platform/desktop/AlertPanel.h"
#include "platform/desktop/Workspace.h"
#include "platform/files/FileSystem.h"
#include "platform/store/UserDefaults.h"
#include "prefs/DefaultsSeed.h"
#include "render/ExportJob.h"
#include "render/OutputFile.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Asks nobody: gives the default answer. The movie's result says what the question was about.
class NobodyToAsk final : public AlertPanel {
public:
    int run(const QString & /*title*/, const QString & /*message*/, const QStringList & /*buttons*/) override
    {
        return 0;
    }
};

/// Opens nothing: a script may make a thousand images.
class NoDesktop final : public Workspace {
public:
    void openFile(const QString & /*path*/) override {}
    void revealFile(const QString & /*path*/) override {}
};

constexpr std::array afterExportKeys{PreferenceKeys::openAfterFinish, PreferenceKeys::revealInFinder,
                                     PreferenceKeys::clearAfterFinish};

} // namespace

ExportCommand::ExportCommand(ExportOptions options, Services services) :
    options_(std::move(options)), services_(std::move(services))
{
}

ExportCommand::Status ExportCommand::run()
{
    layOptionsOverDefaults();
    const QStringList candidates = findCandidates();
    if (!candidates.isEmpty() && prepareGivenFolder()) {
        const int count = static_cast<int>(candidates.size());
        CommandLineMovies::Events events;
        events.loading = [this, count](const QString &path, int index) {
            updateProgress({path, index, count, 0, 0, {}, {}});
        };
        events.unreadable = [this](const QString &path, const QString &reason) { report(path, reason); };
        CommandLineMovies movies(candidates, MovieLoader(services_.defaults), {options_.start, options_.end},
                                 std::move(events), services_.cancelled);
        NobodyToAsk alert;
        NoDesktop workspace;
        ExportJob({.aryItems = movies,
                   .grabber = services_.grabber,
                   .defaults = services_.defaults,
                   .alert = alert,
                   .workspace = workspace,
                   .observer = *this,
                   .outputFolder = [this] { return outputFolder(); },
                   .bExportCanceled = services_.cancelled})
            .run();
    }
    if (services_.cancelled) {
        return Interrupted;
    }
    if (isRangeWrong_) {
        return WrongUsage;
    }
    return someFailed_ ? SomeFailed : AllWritten;
}

void ExportCommand::layOptionsOverDefaults()
{
    // As in the window, which begins with this off at every start.
    services_.defaults.setVolatile(PreferenceKeys::sameAsOrigin, false);
    for (const SettingOption &setting : options_.settings) {
        services_.defaults.setVolatile(setting.key, setting.value);
        if (setting.key == PreferenceKeys::outputFolder && !options_.outputFolder) {
            options_.outputFolder = setting.value.toString();
        }
    }
    if (options_.beside) {
        services_.defaults.setVolatile(PreferenceKeys::sameAsOrigin, true);
    }
    for (const QLatin1StringView key : afterExportKeys) {
        services_.defaults.setVolatile(key, false);
    }
}

QStringList ExportCommand::findCandidates()
{
    MovieCandidates::Events events;
    events.unreadable = [this](const QString &path, const QString &error) { report(path, error); };
    events.linkedTooOften = [this](const QString &path) {
        services_.console.printMessage(path, u"is not searched again, too many links lead to it"_s);
    };
    events.vobRefused = [this](const QString &path) {
        report(path, u"single .vob files are taken only with --set AppSupportVob=true"_s);
    };
    events.emptyFolder = [this](const QString &path) {
        if (!services_.cancelled) {
            report(path, u"no movies in this folder"_s);
        }
    };
    const QStringList formats = GlobalFun::getSupportedFmts(VXConfigManager(services_.defaults));
    return MovieCandidates::expand(options_.paths, formats, services_.defaults.boolValue(PreferenceKeys::appSupportVob),
                                   events, services_.cancelled);
}

bool ExportCommand::prepareGivenFolder()
{
    if (!options_.outputFolder) {
        return true; // made when the first image is there to be written
    }
    if (GlobalFun::MakeSureFolderExsist(*options_.outputFolder) &&
        OutputFile::isWritableFolder(*options_.outputFolder)) {
        return true;
    }
    report(*options_.outputFolder, u"images cannot be written into this folder"_s);
    return false;
}

QString ExportCommand::outputFolder() const
{
    if (options_.outputFolder) {
        return *options_.outputFolder;
    }
    QString chosen = services_.defaults.textValue(PreferenceKeys::outputFolder);
    if (FileSystem::isFolder(chosen)) {
        return chosen;
    }
    // A folder that the user has chosen and that is gone may be on a disk that is not plugged in: it is not made anew.
    QString fallback = DefaultsSeed::outputFolderUnder(services_.home);
    GlobalFun::MakeSureFolderExsist(fallback);
    return fallback;
}

void ExportCommand::report(const QString &path, const QString &reason)
{
    services_.console.printMessage(path, reason);
    someFailed_ = true;
}

void ExportCommand::updateProgress(const ExportProgress &progress)
{
    services_.console.showProgress(progress);
}

void ExportCommand::movieEnded(const ExportResult &result)
{
    if (!result.imagePath.isEmpty()) {
        const auto told = services_.console.printResult(result.imagePath);
        if (!told) {
            report(result.imagePath, u"is written, but cannot be told: "_s + inWords(told.error()));
        }
    }
    if (!result.reason.isEmpty()) {
        report(result.filePath, result.reason);
    }
    isRangeWrong_ = isRangeWrong_ || (result.isRangeOutside && (options_.start || options_.end));
}
