#pragma once

#include <QByteArray>

#include <cstdio>
#include <memory>

/// A stream whose text a test can read back.
class CapturedStream {
public:
    std::FILE *stream() const { return file_.get(); }
    QByteArray contents() const
    {
        std::rewind(file_.get());
        QByteArray bytes(1 << 16, '\0');
        bytes.resize(static_cast<qsizetype>(std::fread(bytes.data(), 1, 1 << 16, file_.get())));
        return bytes;
    }
    QByteArrayList lines() const
    {
        const QByteArray text = contents();
        return text.isEmpty() ? QByteArrayList() : text.chopped(1).split('\n');
    }

private:
    std::unique_ptr<std::FILE, int (*)(std::FILE *)> file_{std::tmpfile(), std::fclose};
};
