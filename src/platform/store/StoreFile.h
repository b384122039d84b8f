#pragma once

#include <QJsonObject>
#include <QString>

#include <optional>

/// The user defaults' file on disk: a JSON object of keys and values.
///
/// Not QSettings: its file holds texts only, a deeply nested value in the file crashed it, and two processes that write
/// at the same moment can lose a key. Here the file is locked and read again before every change.
namespace StoreFile {

/// Carries out `changes` in one step, on top of what other processes have written meanwhile, and returns all that the
/// file then holds; with no changes it only reads. Keys that are not changed stay as they are, whatever they hold;
/// whole numbers are exact up to 64 bits with a sign, larger ones become the nearest double. Nothing, with a line in
/// the log, when that failed: then the file is as it was.
///
/// A file that is no JSON object, or has a key twice, is first copied aside ("NAME.broken", "NAME.broken(1)", …), and
/// is never written over while that fails. Only its owner may read the file and the copies. Safe on any thread and in
/// several processes at once.
std::optional<QJsonObject> update(const QString &path, const QJsonObject &changes);

} // namespace StoreFile
