#pragma once

#include <QString>
#include <QVariantMap>

/// What the program says of itself: the values of its Info.plist. A value; copy it freely.
class Bundle {
public:
    /// An unreadable property list gives a bundle without values.
    explicit Bundle(const QByteArray &infoPlist);

    /// The running program's own bundle.
    static Bundle main();

    /// The text under a key such as "CFBundleVersion"; empty when absent.
    QString value(const QString &key) const;
    QString identifier() const;

private:
    QVariantMap values_;
};
