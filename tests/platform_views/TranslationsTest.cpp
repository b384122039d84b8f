#include "platform/Translations.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTranslator>

#include <gtest/gtest.h>

namespace {

/// The keys of texts that the sources use.
QSet<QString> usedKeys()
{
    QSet<QString> keys;
    const QRegularExpression use(QStringLiteral("(?:qtTrId\\(\\s*|<string id=)\"([^\"]+)\""));
    QDirIterator files(QStringLiteral(TESSARINE_SOURCES), {QStringLiteral("*.cpp"), QStringLiteral("*.ui")},
                       QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QString source = QString::fromUtf8(file.readAll());
        for (auto found = use.globalMatch(source); found.hasNext();)
            keys << found.next().captured(1);
    }
    return keys;
}

TEST(TranslationsTest, EveryTextOfTheProgramIsThereInEveryLanguage)
{
    const QSet<QString> keys = usedKeys();
    EXPECT_GT(keys.size(), 10); // else the search is wrong
    for (const QString &language : {QStringLiteral("en"), QStringLiteral("zh_CN")}) {
        QTranslator translator;
        ASSERT_TRUE(translator.load(u":/i18n/tessarine_" + language));
        for (const QString &key : keys)
            EXPECT_FALSE(translator.translate(nullptr, key.toUtf8().constData()).isEmpty()) << key.toStdString();
    }
}

TEST(TranslationsTest, ChineseIsCompleteAndOtherLanguagesFallBackToEnglish)
{
    QFile chinese(QStringLiteral(TESSARINE_TRANSLATIONS "/tessarine_zh_CN.ts"));
    ASSERT_TRUE(chinese.open(QIODevice::ReadOnly));
    EXPECT_FALSE(chinese.readAll().contains("unfinished"));
    const std::pair<const char *, const char16_t *> languages[] = {{"en_GB", u"General"},   {"zh_CN", u"通用"},
                                                                   {"zh_TW", u"General"},   {"de_DE", u"General"},
                                                                   {"zh_Hans_SG", u"通用"}, {"C", u"General"}};
    for (const auto &[name, text] : languages) {
        const Translations translations{QLocale(QLatin1StringView(name))};
        EXPECT_EQ(qtTrId("General"), QStringView(text)) << name;
    }
}

} // namespace
