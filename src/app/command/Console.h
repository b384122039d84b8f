#pragma once

#include "app/loading/RemainingTime.h"
#include "platform/Result.h"

#include <QString>

#include <cstdio>

struct ExportProgress;

/// The command line's voice: results on one stream; errors and progress on the other, where the progress is a bar if
/// it is a terminal and otherwise one line per movie. Belongs to one thread.
class Console {
public:
    /// The streams must outlive it and stay the caller's.
    Console(std::FILE *results, std::FILE *messages, bool quiet);
    /// Takes the bar off the screen.
    ~Console();
    Console(const Console &) = delete;
    Console &operator=(const Console &) = delete;

    /// One path on a line of its own: its bytes as they are, or, on a terminal that cannot show them, quoted for a
    /// shell. A failure when writing failed; a reader that has closed the pipe is no error.
    Result<void, std::error_code> printResult(const QString &path);
    /// One line for the user.
    void printMessage(const QString &text);
    /// A line about one file: its path and what is the matter.
    void printMessage(const QString &path, const QString &reason);

    void showProgress(const ExportProgress &progress);

private:
    void showBar(const ExportProgress &progress);
    void printProgress(const QString &text);
    void clearBar();

    std::FILE *results_;
    std::FILE *messages_;
    bool quiet_;
    bool isTerminal_;
    bool barShown_ = false;
    int lastMovie_ = -1;
    int lastMovieWaitedFor_ = -1;
    RemainingTime estimate_;
};
