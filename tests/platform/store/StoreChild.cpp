// Another process that uses a store: "STORE PREFIX" writes 100 keys, one by one.
#include "platform/store/UserDefaults.h"

int main(int /*argc*/, char **argv)
{
    UserDefaults defaults(QString::fromLocal8Bit(argv[1]));
    bool written = true;
    for (int i = 0; i < 100; ++i) {
        defaults.setInteger(QString::fromLocal8Bit(argv[2]) + QString::number(i), i);
        written &= defaults.synchronize();
    }
    return written ? 0 : 1;
}
