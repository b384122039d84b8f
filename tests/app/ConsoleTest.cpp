#include "app/Console.h"

#include "render/ExportObserver.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <memory>
#include <pty.h>

namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE *)>;

File temporary()
{
    return {std::tmpfile(), std::fclose};
}

QByteArray contents(const File &file)
{
    std::rewind(file.get());
    QByteArray bytes(4096, '\0');
    bytes.resize(static_cast<qsizetype>(std::fread(bytes.data(), 1, 4096, file.get())));
    return bytes;
}

ExportProgress at(int movie, std::int64_t tile)
{
    return {QStringLiteral("/films/a\nb.mkv"), movie, 2, tile, 6, {}};
}

TEST(Console, APipeGetsOneLinePerMovieAndTheResultsAlone)
{
    const File results = temporary();
    const File messages = temporary();
    {
        Console console(results.get(), messages.get(), false);
        console.showProgress(at(0, 1));
        console.showProgress(at(0, 2));
        console.printResult(QStringLiteral("/out/a\nb.jpg"));
        console.showProgress(at(1, 1));
        console.printMessage(QStringLiteral("/films/x\ny.mkv"), QStringLiteral("is a folder"));
    }
    EXPECT_EQ(contents(results), "/out/a\nb.jpg\n");
    EXPECT_EQ(contents(messages), "movie 1 of 2: a\xEF\xBF\xBD"
                                  "b.mkv\nmovie 2 of 2: a\xEF\xBF\xBD"
                                  "b.mkv\n"
                                  "tessarine: /films/x\xEF\xBF\xBDy.mkv: is a folder\n");
}

TEST(Console, QuietKeepsErrors)
{
    const File results = temporary();
    const File messages = temporary();
    Console console(results.get(), messages.get(), true);
    console.showProgress(at(0, 1));
    console.printMessage(QStringLiteral("trouble"));
    EXPECT_EQ(contents(messages), "tessarine: trouble\n");
}

TEST(Console, ATerminalGetsABarThatFitsAndGoesAway)
{
    int master = -1;
    int slave = -1;
    const struct winsize size = {24, 40, 0, 0};
    ASSERT_EQ(openpty(&master, &slave, nullptr, nullptr, &size), 0);
    const File results = temporary();
    const File messages(fdopen(slave, "w"), std::fclose);
    {
        Console console(results.get(), messages.get(), false);
        console.showProgress(at(0, 3));
        console.printResult(QStringLiteral("/out/a.jpg"));
        console.showProgress(at(1, 6));
    }
    QByteArray bytes(4096, '\0');
    bytes.resize(read(master, bytes.data(), 4096));
    close(master);

    const QList<QByteArray> shown = bytes.split('\r');
    ASSERT_EQ(shown.size(), 5) << bytes.constData(); // "", bar, cleared, bar, cleared
    EXPECT_TRUE(shown[1].startsWith("[######..................] movie 1 of 2")) << shown[1].constData();
    EXPECT_TRUE(shown[3].startsWith("[########################] movie 2 of 2")) << shown[3].constData();
    EXPECT_LE(shown[1].size(), 39 + 3);
    EXPECT_EQ(shown[2], "\x1b[K");
    EXPECT_EQ(shown[4], "\x1b[K");
}

} // namespace
