// Another process that uses a store: "STORE PREFIX" copies the list "all" and writes 100 keys, one by one.
#include "platform/store/UserDefaults.h"

int main(int /*argc*/, char **argv)
{
    UserDefaults defaults(QString::fromLocal8Bit(argv[1]));
    const QString prefix = QString::fromLocal8Bit(argv[2]);
    defaults.setArray(prefix + u"all", defaults.arrayValue(u"all").value_or(QVariantList()));
    bool written = true;
    for (int i = 0; i < 100; ++i) {
        defaults.setInteger(prefix + QString::number(i), i);
        written &= defaults.synchronize();
    }
    return written ? 0 : 1;
}
