#include "app/list/ExportReport.h"

#include "platform/files/PathText.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

using Kind = ExportResult::Kind;

/// Those that could not be made, or not whole.
std::vector<ExportResult> troubled(const std::vector<ExportResult> &results)
{
    std::vector<ExportResult> found;
    std::ranges::copy_if(results, std::back_inserter(found),
                         [](const ExportResult &result) { return result.kind != Kind::Written; });
    return found;
}

} // namespace

int ExportReport::count(Kind kind) const
{
    return static_cast<int>(std::ranges::count(results, kind, &ExportResult::kind));
}

MovieList::Movies ExportReport::toRetry() const
{
    MovieList::Movies left;
    for (const ExportResult &result : troubled(results)) {
        left.push_back(movies.at(static_cast<std::size_t>(result.movie)));
    }
    return left;
}

QString ExportReport::firstImage() const
{
    const auto found = std::ranges::find_if(results, [](const auto &result) { return !result.imagePath.isEmpty(); });
    return found == results.end() ? QString() : found->imagePath;
}

QString ExportReport::summary() const
{
    const int made = count(Kind::Written);
    const int incomplete = count(Kind::Incomplete);
    const int failed = count(Kind::Failed);
    QStringList parts;
    if (isCancelled) {
        //% "Cancelled: %1 of %n made"
        parts << qtTrId("export_cancelled", static_cast<int>(movies.size())).arg(made);
    } else {
        //% "%n collage(s) made"
        parts << qtTrId("export_made", made);
    }
    if (incomplete > 0) {
        //% "%n with missing frames"
        parts << qtTrId("export_incomplete", incomplete);
    }
    if (failed > 0) {
        //% "%n failed"
        parts << qtTrId("export_failed", failed);
    }
    return parts.join(u", "_s);
}

QString ExportReport::outcome(const ExportResult &result)
{
    const QString image = PathText::forDisplay(result.imagePath);
    if (image.isEmpty() || result.reason.isEmpty()) {
        return image + result.reason;
    }
    return image + u" ("_s + result.reason + u')';
}

QString ExportReport::troubles() const
{
    QStringList lines;
    for (const ExportResult &result : troubled(results)) {
        lines << PathText::forDisplay(result.filePath) + u": "_s + result.reason;
    }
    return lines.join(u'\n');
}

QString ExportReport::asText() const
{
    QString text;
    for (const ExportResult &result : results) {
        text += PathText::forDisplay(result.filePath) + u'\t' + outcome(result) + u'\n';
    }
    return text;
}
