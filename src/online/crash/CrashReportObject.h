#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>

class Bundle;

/// What is kept of a crash: of which program on which system, when, and where in the program. A value that knows its
/// file form, a JSON object; text that is null, a date that is invalid and a stack that is empty are absent from it.
/// The program does not use this class to write a report: in a crash, CrashRecorder writes it without the heap. What
/// the program does not call belongs to the vocabulary.
struct CrashReportObject {
    CrashReportObject() = default;
    /// The record of this program on this system with a null date and no stack yet; writes the GUID to the log. `guid`
    /// may be null, for a run that stores nothing.
    CrashReportObject(const Bundle &bundle, const QString &guid);
    /// The same with the crash's date and stack, a text for each frame.
    static CrashReportObject initWithCrashDate(const QDateTime &date, const QStringList &stack, const Bundle &bundle,
                                               const QString &guid);
    /// Reads a record back. Nothing when there is no regular file at the path, or one that is no record: the file may
    /// hold anything, and a long one is not read at all.
    static std::optional<CrashReportObject> initWithContentsOfFile(const QString &path);

    /// Ends by the object's closing brace on a line of its own.
    QByteArray fileForm() const;
    /// Writes the file form in place of what is at the path, where there is the old file or the new one at any time;
    /// false when that failed.
    bool writeToFile(const QString &path) const;
    /// The stack as text, a line for each frame.
    QString description() const;

    bool operator==(const CrashReportObject &) const = default;

    QString osName;
    QString deviceModel;
    QString deviceUniqueIdentifier;
    QString osVersion;
    QString version; ///< always absent: the bundle has no such key, and readers rely on that
    QString identifier;
    QDateTime date; ///< UTC, to the millisecond
    QStringList stackArray;
};
