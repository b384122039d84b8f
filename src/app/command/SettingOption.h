#pragma once

#include "platform/Result.h"

#include <QString>
#include <QVariant>

/// One "KEY=VALUE" of the command line, as a value for the user defaults store.
struct SettingOption {
    QString key;
    QVariant value;

    /// Reads "KEY=VALUE".
    static Result<SettingOption> parse(const QString &text);
};
