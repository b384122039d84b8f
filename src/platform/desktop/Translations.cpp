#include "platform/desktop/Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace {

/// Our Chinese texts are Simplified; they are used in every country that writes so.
QLocale ownLocale(const QLocale &locale)
{
    const bool isSimplified = locale.language() == QLocale::Chinese && locale.script() == QLocale::SimplifiedHanScript;
    return isSimplified ? QLocale(QLocale::Chinese, QLocale::China) : locale;
}

} // namespace

Translations::Translations(const QLocale &locale)
{
    const QString ours = u":/i18n"_s;
    install(locale, u"qtbase"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    // The last one installed is asked first.
    install(QLocale(QLocale::English), u"tessarine"_s, ours);
    install(ownLocale(locale), u"tessarine"_s, ours);
}

Translations::~Translations() = default; // a translator that goes takes itself out

void Translations::install(const QLocale &locale, const QString &name, const QString &folder)
{
    auto translator = std::make_unique<QTranslator>();
    if (translator->load(locale, name, u"_"_s, folder) && QCoreApplication::installTranslator(translator.get())) {
        translators_.push_back(std::move(translator));
    }
}
