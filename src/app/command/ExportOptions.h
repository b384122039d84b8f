#pragma once

#include "app/command/SettingOption.h"
#include "platform/Result.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// What the command line asks for. A value.
struct ExportOptions {
    enum class Action { OpenWindow, Export, ShowHelp, ShowVersion };

    Action action = Action::OpenWindow;
    QStringList paths;
    std::optional<QString> outputFolder;
    bool beside = false;
    bool quiet = false;
    std::optional<double> start; ///< seconds
    std::optional<double> end;
    std::vector<SettingOption> settings; ///< to lie over the stored ones, later entries over earlier ones

    /// Reads the arguments, the program's name first; paths as PathText. Nothing on the disk is looked at. A failure is
    /// a usage that makes no sense.
    static Result<ExportOptions> parse(const QStringList &arguments);

    /// The text of --help.
    static QString help();
};
