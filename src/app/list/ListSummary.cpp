#include "app/list/ListSummary.h"

#include "Shared/TimeFormat.h"
#include "collage/KTMovieObject.h"

QString listSummary(const MovieList::Movies &movies, std::size_t shown)
{
    if (movies.empty()) {
        return {};
    }
    double seconds = 0.0;
    for (const auto &movie : movies) {
        seconds += movie->duration;
    }
    const int count = static_cast<int>(movies.size());
    const QString duration = GlobalFun::getTimeStringBySecond(seconds);
    if (shown == movies.size()) {
        //% "%n movie(s), %1 in all"
        return qtTrId("list_summary", count).arg(duration);
    }
    //% "%1 of %n movie(s) shown, all are exported; %2 in all"
    return qtTrId("list_summary_filtered", count).arg(shown).arg(duration);
}
