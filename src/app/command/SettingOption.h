#pragma once

#include <QString>
#include <QVariant>

/// One "KEY=VALUE" of the command line, as a value for the user defaults store.
struct SettingOption {
    QString key;
    QVariant value;

    /// Reads "KEY=VALUE". On failure the result has no key and `problem` says why, for the user.
    static SettingOption parse(const QString &text, QString &problem);
};
