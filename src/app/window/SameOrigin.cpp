#include "app/window/SameOrigin.h"

#include "Shared/PathParts.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype mostRefusals = 5;

} // namespace

QString SameOriginRefusals::message() const
{
    return u"You have choosen the \"Same as origin\" option, But the origin folder of movie: \n%1 is not "
           "accessable by the app,Please authorize it"_s.arg(text.mid(text.lastIndexOf(u'/') + 1));
}

SameOriginRefusals findSameOriginRefusals(const QStringList &moviePaths,
                                          const std::function<bool(const QString &folder)> &isWritable)
{
    SameOriginRefusals refusals;
    for (const QString &path : moviePaths) {
        if (refusals.folders.size() >= mostRefusals) {
            break;
        }
        const QString folder = GlobalFun::deletingLastPathComponent(path);
        if (!isWritable(folder)) {
            refusals.text += u'"' + path + u"\"\n";
            refusals.folders += folder;
        }
    }
    return refusals;
}
