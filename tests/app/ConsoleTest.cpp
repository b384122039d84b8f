#include "app/Console.h"

#include "render/ExportObserver.h"
#include "support/CapturedStream.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <pty.h>

static ExportProgress at(int movie, std::int64_t tile)
{
    return {QStringLiteral("/films/a\nb.mkv"), movie, 2, tile, 6, {}};
}

TEST(Console, ATerminalGetsABarThatFitsAndGoesAway)
{
    int master = -1;
    int slave = -1;
    const struct winsize size = {24, 40, 0, 0};
    if (openpty(&master, &slave, nullptr, nullptr, &size) != 0)
        GTEST_SKIP() << "there are no pseudo-terminals here (/dev/pts)";
    {
        const CapturedStream results;
        const CapturedStream messages(fdopen(slave, "w"));
        Console console(results.stream(), messages.stream(), false);
        console.showProgress(at(0, 3));
        console.printResult(QStringLiteral("/out/a.jpg"));
        console.showProgress(at(1, 6));
    }
    // A terminal hands its bytes over in pieces; the slave's closing ends them.
    QByteArray bytes;
    std::array<char, 256> piece{};
    for (ssize_t got = 0; (got = read(master, piece.data(), piece.size())) > 0;)
        bytes.append(piece.data(), got);
    close(master);
    EXPECT_EQ(bytes.split('\r'), (QByteArrayList{"", "[######..................] movie 1 of 2\x1b[K", "\x1b[K",
                                                 "[########################] movie 2 of 2\x1b[K", "\x1b[K"}));
}
