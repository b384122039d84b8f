#include "app/command/ExportOptions.h"

#include "Shared/FrameSource.h"
#include "Shared/PreferenceKeys.h"
#include "Shared/TimeFormat.h"
#include "render/ImageFormats.h"

#include <QCommandLineParser>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// Where the help names an option.
enum class Group { Usage, Where, What, Rest };

struct Option {
    Group group;
    const char *names;          ///< separated by a comma, the short one first
    const char *value;          ///< null for a switch
    const char *help;           ///< "%1" stands for the words that it takes
    QLatin1StringView key = {}; ///< the setting over which a whole number lies, or that a switch turns on
    qlonglong least = 0;        ///< of these numbers
};

// clang-format off
constexpr std::array options{
    Option{Group::Usage, "export",     nullptr,     nullptr},
    Option{Group::Where, "o,output",   "DIR",       "into DIR, which is made if missing"},
    Option{Group::Where, "beside",     nullptr,     "beside each movie"},
    Option{Group::Where, "format",     "FORMAT",    "%1"},
    Option{Group::What,  "rows",       "N",         "rows of frames", PreferenceKeys::rowNumber, 1},
    Option{Group::What,  "columns",    "N",         "columns of frames", PreferenceKeys::columeNumber, 1},
    Option{Group::What,  "tile-width", "PX",        "width of a frame in pixels; the height follows the movie",
           PreferenceKeys::tileWidth, 1},
    Option{Group::What,  "frames",     "SOURCE",    "%1: by ffmpeg, the same faster, nearest key frames"},
    Option{Group::What,  "display-aspect", nullptr, "frames in the shape in which the movie is shown",
           PreferenceKeys::displayAspect},
    Option{Group::What,  "deinterlace", nullptr,   "without the combs of interlaced movies",
           PreferenceKeys::deinterlace},
    Option{Group::What,  "tone-map",   nullptr,     "colours of HDR movies (PQ, HLG) as a screen can show them",
           PreferenceKeys::toneMap},
    Option{Group::What,  "skip-blank", nullptr,     "the next frame, instead of one that is of one colour",
           PreferenceKeys::skipBlank},
    Option{Group::What,  "start",      "T",         "time of the first frame, in seconds or as hh:mm:ss"},
    Option{Group::What,  "end",        "T",         "time of the last frame"},
    Option{Group::What,  "set",        "KEY=VALUE", "any other setting, for this run only; may be repeated"},
    Option{Group::Rest,  "q,quiet",    nullptr,     "no progress"},
    Option{Group::Rest,  "h,help",     nullptr,     "this text"},
    Option{Group::Rest,  "v,version",  nullptr,     "the version"},
};
// clang-format on

QStringList namesOf(const Option &option)
{
    return QString::fromLatin1(option.names).split(u',');
}

/// The arguments of the window without the options of every program of the toolkit, which takes them itself.
QStringList withoutToolkitOptions(const QStringList &arguments)
{
    static const QRegularExpression alone(u"^--?(reverse|widgetcount|nograb|dograb|style=.*|stylesheet=.*)$"_s);
    static const QRegularExpression withValue(
        u"^--?(platform|platformpluginpath|platformtheme|plugin|(qwindow)?(geometry|title|icon)|session|style|"
        u"stylesheet|display|name|visual)$"_s);
    QStringList rest;
    bool isValue = false;
    for (const QString &argument : arguments) {
        const bool isOption = !rest.contains(u"--"_s) && !isValue;
        const bool isTaken = isValue || (isOption && alone.match(argument).hasMatch());
        isValue = isOption && withValue.match(argument).hasMatch();
        if (!isTaken && !isValue) {
            rest += argument;
        }
    }
    return rest;
}

/// An option that takes one of several words, in the order of the numbers that they stand for in the settings.
struct WordOption {
    const char *name;
    QLatin1StringView key;
    std::vector<QStringView> words;
};

const std::vector<WordOption> &wordOptions()
{
    static const std::vector<WordOption> all = [] {
        std::vector<QStringView> formats;
        std::ranges::transform(imageFormats, std::back_inserter(formats), &ImageFormat::extension);
        return std::vector<WordOption>{
            {"format", PreferenceKeys::outputFormat, formats},
            {"frames", PreferenceKeys::frameSource, {frameSourceNames.begin(), frameSourceNames.end()}},
        };
    }();
    return all;
}

/// "jpg, png, bmp or tiff"
QString wordsOf(const WordOption &option)
{
    QStringList words;
    for (const QStringView word : option.words) {
        words += word.toString();
    }
    const QString last = words.takeLast();
    return words.join(u", ") + u" or " + last;
}

/// The lines of the help about a group of options.
QString helpOn(Group group)
{
    QString lines;
    for (const Option &option : options) {
        if (option.group == group) {
            const QStringList names = namesOf(option);
            const QString shortName = names.size() > 1 ? u"-%1, "_s.arg(names.first()) : u"    "_s;
            const QString usage = u"%1--%2 %3"_s.arg(shortName, names.last(), QString::fromLatin1(option.value));
            QString help = QString::fromLatin1(option.help);
            for (const WordOption &words : wordOptions()) {
                if (QLatin1StringView(words.name) == names.last()) {
                    help = help.arg(wordsOf(words));
                }
            }
            lines += u"  %1%2\n"_s.arg(usage, -22).arg(help);
        }
    }
    return lines;
}

Result<QVariant> wholeNumber(const Option &option, const QString &text)
{
    bool isNumber = false;
    const qlonglong number = text.toLongLong(&isNumber);
    if (!isNumber || number < option.least || number > std::numeric_limits<std::int32_t>::max()) {
        return failure(u"--%1 takes a whole number from %2 up, not \"%3\""_s.arg(namesOf(option).last())
                           .arg(option.least)
                           .arg(text));
    }
    return number;
}

Result<QVariant> wordNumber(const WordOption &option, const QString &text)
{
    const auto found = std::ranges::find(option.words, QStringView(text));
    if (found == option.words.end()) {
        return failure(u"--%1 takes %2, not \"%3\""_s.arg(QLatin1StringView(option.name), wordsOf(option), text));
    }
    return static_cast<qlonglong>(found - option.words.begin());
}

/// The seconds that an option says; none when it is not there.
Result<std::optional<double>> seconds(const QCommandLineParser &parser, const QString &option)
{
    static const QRegularExpression plain(u"^[0-9]+(\\.[0-9]*)?$"_s);
    static const QRegularExpression clock(u"^[0-9]+:[0-9]{1,2}:[0-9]{1,2}(\\.[0-9]*)?$"_s);
    const QString text = parser.value(option);
    if (!parser.isSet(option)) {
        return std::nullopt;
    }
    if (plain.match(text).hasMatch()) {
        return text.toDouble();
    }
    if (clock.match(text).hasMatch()) {
        return GlobalFun::getSecondsByTimeString(text);
    }
    return failure(u"--%1 takes seconds or hh:mm:ss, not \"%2\""_s.arg(option, text));
}

/// --set refuses the same values as the options of their own.
Result<SettingOption> checkNumber(const SettingOption &setting)
{
    const auto *const option = std::ranges::find(options, setting.key, &Option::key);
    if (option != options.end() && setting.value.toDouble() < static_cast<double>(option->least)) {
        return failure(u"--set %1 takes a number from %2 up"_s.arg(setting.key).arg(option->least));
    }
    return setting;
}

/// In the order in which they lie over the stored ones; the first that is wrong is the failure.
Result<std::vector<SettingOption>> readSettings(const QCommandLineParser &parser)
{
    std::vector<Result<SettingOption>> read;
    const QStringList texts = parser.values(u"set"_s);
    for (const QString &text : texts) {
        read.push_back(SettingOption::parse(text).and_then(checkNumber));
    }
    const auto keep = [&read](QLatin1StringView key, const Result<QVariant> &value) {
        read.push_back(value.map([key](const QVariant &number) { return SettingOption{key, number}; }));
    };
    for (const Option &option : options) {
        if (const QString name = namesOf(option).last(); !option.key.isEmpty() && parser.isSet(name)) {
            keep(option.key, option.value ? wholeNumber(option, parser.value(name)) : Result<QVariant>(true));
        }
    }
    for (const WordOption &option : wordOptions()) {
        if (const QString name = QString::fromLatin1(option.name); parser.isSet(name)) {
            keep(option.key, wordNumber(option, parser.value(name)));
        }
    }
    std::vector<SettingOption> settings;
    for (const Result<SettingOption> &setting : read) {
        if (!setting) {
            return failure(setting.error());
        }
        settings.push_back(*setting);
    }
    return settings;
}

Result<ExportOptions> checkTogether(const ExportOptions &asked)
{
    if (asked.paths.isEmpty() || asked.paths.contains(QString())) {
        return failure(u"name the movies or folders to make collages of"_s);
    }
    if (asked.outputFolder && asked.beside) {
        return failure(u"--output and --beside cannot go together"_s);
    }
    if (asked.outputFolder && asked.outputFolder->isEmpty()) {
        return failure(u"--output takes a folder"_s);
    }
    if (asked.start && asked.end && *asked.start > *asked.end) {
        return failure(u"--start lies after --end"_s);
    }
    return asked;
}

/// Everything that only an export asks for.
Result<ExportOptions> readExport(const QCommandLineParser &parser)
{
    ExportOptions result;
    result.action = ExportOptions::Action::Export;
    result.paths = parser.positionalArguments();
    result.beside = parser.isSet(u"beside"_s);
    result.quiet = parser.isSet(u"quiet"_s);
    if (parser.isSet(u"output"_s)) {
        result.outputFolder = parser.value(u"output"_s);
    }
    const auto start = seconds(parser, u"start"_s);
    const auto end = seconds(parser, u"end"_s);
    const auto settings = readSettings(parser);
    if (!start || !end) {
        return failure(start ? end.error() : start.error());
    }
    if (!settings) {
        return failure(settings.error());
    }
    result.start = *start;
    result.end = *end;
    result.settings = *settings;
    return checkTogether(result);
}

} // namespace

Result<ExportOptions> ExportOptions::parse(const QStringList &arguments)
{
    QCommandLineParser parser;
    for (const Option &option : options) {
        parser.addOption(QCommandLineOption(namesOf(option), QString(), QString::fromLatin1(option.value)));
    }
    const bool isExport = arguments.contains(u"--export"_s);
    if (!parser.parse(isExport ? arguments : withoutToolkitOptions(arguments))) {
        return failure(parser.errorText());
    }
    ExportOptions result;
    if (parser.isSet(u"help"_s)) {
        result.action = Action::ShowHelp;
    } else if (parser.isSet(u"version"_s)) {
        result.action = Action::ShowVersion;
    } else if (parser.isSet(u"export"_s)) {
        return readExport(parser);
    } else if (!parser.optionNames().isEmpty()) {
        return failure(u"--%1 goes with --export"_s.arg(parser.optionNames().first()));
    } else {
        result.paths = parser.positionalArguments();
    }
    return result;
}

QString ExportOptions::help()
{
    return uR"(Tessarine makes one picture of a whole movie: a grid of frames at even steps in time.

  tessarine [PATH…]                    opens the window, and loads the movies into it
  tessarine --export [OPTION…] PATH…   makes collages without a window

Each PATH is a movie, or a folder to be searched for movies. The path of each finished
image goes to standard output, progress and errors go to standard error.

Where the images go
%1
What they show
%2
%3
Examples
  tessarine --export holiday.mkv
  tessarine --export --rows 4 --columns 4 -o collages/ Movies/
  tessarine --export --beside --start 60 --end 00:42:00 --format png film.mp4
  tessarine --export --set DefultBkgColor=#202830 --set DefaultDrawShadow=true film.mp4

What no option says is taken from your settings. An image never replaces a file: where
a name is taken, the next free one is used, film(1).jpg after film.jpg.

Exit status
    0  every image was written and shows all that it should
    1  some movie could not be read or written, or some of its frames not be found
    2  the command line was wrong, or its range lies outside a movie
  130  interrupted
)"_s.arg(helpOn(Group::Where), helpOn(Group::What), helpOn(Group::Rest));
}
