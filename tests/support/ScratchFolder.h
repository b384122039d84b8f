#pragma once

#include "platform/files/PathText.h"

#include <QByteArray>
#include <QStringList>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

/// A temporary folder of a test, removed with all that is in it, names included that are no text.
class ScratchFolder {
public:
    ScratchFolder()
    {
        root_ = (std::filesystem::temp_directory_path() / "tessarine-test-XXXXXX").c_str();
        if (!::mkdtemp(root_.data())) {
            std::abort();
        }
        std::filesystem::permissions(root_.toStdString(), std::filesystem::perms(0755));
    }
    ~ScratchFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(root_.toStdString(), ignored);
    }
    Q_DISABLE_COPY(ScratchFolder)

    /// The bytes of a path in the folder, or of the folder itself.
    QByteArray bytes(const QByteArray &name = {}) const
    {
        return name.isEmpty() ? root_ : QByteArray(root_).append('/').append(name);
    }
    QString path(const QByteArray &name = {}) const { return PathText::fromBytes(bytes(name)); }

    /// Makes a file with the folders above it.
    QString write(const QByteArray &name, const QByteArray &contents = {}) const
    {
        const std::filesystem::path file = bytes(name).toStdString();
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file) << contents.toStdString();
        return path(name);
    }
    /// Makes a folder with the folders above it.
    QString makeFolder(const QByteArray &name) const
    {
        std::filesystem::create_directories(bytes(name).toStdString());
        return path(name);
    }
    QString link(const QByteArray &target, const QByteArray &name) const
    {
        std::filesystem::create_symlink(target.toStdString(), bytes(name).toStdString());
        return path(name);
    }

    /// Sets the permissions of something in the folder, or of the folder itself.
    void setMode(unsigned mode, const QByteArray &name = {}) const
    {
        std::filesystem::permissions(bytes(name).toStdString(), std::filesystem::perms(mode));
    }

    /// The contents of a file; empty when there is none.
    QByteArray read(const QByteArray &name) const
    {
        std::ostringstream contents;
        contents << std::ifstream(bytes(name).toStdString()).rdbuf();
        return QByteArray::fromStdString(contents.str());
    }
    /// What is in the folder, or in one below it, hidden files too, sorted.
    QStringList names(const QByteArray &name = {}) const
    {
        QStringList names;
        for (const auto &entry : std::filesystem::directory_iterator(bytes(name).toStdString())) {
            names << PathText::fromBytes(entry.path().filename().native());
        }
        names.sort();
        return names;
    }
    bool has(const QByteArray &name) const
    {
        return std::filesystem::exists(std::filesystem::symlink_status(bytes(name).toStdString()));
    }

private:
    QByteArray root_;
};
