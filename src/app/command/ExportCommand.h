#pragma once

#include "app/command/ExportOptions.h"
#include "platform/threads/CancelFlag.h"
#include "render/ExportObserver.h"

class Console;
class FrameGrabber;
class UserDefaults;

/// `tessarine --export`: makes collages without a window, on the calling thread. Made and run once.
/// Needs a QGuiApplication.
class ExportCommand final : private ExportObserver {
public:
    /// Exit statuses.
    enum Status { AllWritten = 0, SomeFailed = 1, WrongUsage = 2, Interrupted = 130 };

    struct Services {
        UserDefaults &defaults; ///< seeded; options are laid over it for this run
        FrameGrabber &grabber;
        Console &console;
        QString home;                ///< where the default output folder lies
        const CancelFlag &cancelled; ///< set when the user interrupts
    };

    ExportCommand(ExportOptions options, Services services);

    Status run();

private:
    void layOptionsOverDefaults();
    QStringList findCandidates();
    QString outputFolder() const;
    bool prepareGivenFolder();
    void report(const QString &path, const QString &reason);

    void updateProgress(const ExportProgress &progress) override;
    void movieEnded(const ExportResult &result) override;
    void exportEnded() override {}

    ExportOptions options_;
    Services services_;
    bool someFailed_ = false;
    bool isRangeWrong_ = false;
};
