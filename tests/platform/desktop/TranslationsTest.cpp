#include "platform/desktop/Translations.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTranslator>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(TranslationsTest, EveryTextOfTheProgramIsThereInEveryLanguage)
{
    QTranslator english;
    QTranslator chinese;
    ASSERT_TRUE(english.load(u":/i18n/tessarine_en"_s) && chinese.load(u":/i18n/tessarine_zh_CN"_s));
    const QRegularExpression use(u"(?:qtTrId\\(\\s*|<string id=)\"([^\"]+)\""_s);
    QDirIterator files(QStringLiteral(TESSARINE_SOURCES), {u"*.cpp"_s, u"*.ui"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
    int count = 0;
    while (files.hasNext()) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QString source = QString::fromUtf8(file.readAll());
        for (auto found = use.globalMatch(source); found.hasNext(); ++count) {
            const QByteArray key = found.next().captured(1).toUtf8();
            EXPECT_FALSE(english.translate(nullptr, key.constData()).isEmpty()) << key.constData();
            EXPECT_FALSE(chinese.translate(nullptr, key.constData()).isEmpty()) << key.constData();
        }
    }
    EXPECT_GT(count, 10);
}

TEST(TranslationsTest, OtherLanguagesFallBackToEnglish)
{
    const std::pair<const char *, const char16_t *> languages[] = {
        {"zh_CN", u"通用"}, {"zh_Hans_SG", u"通用"}, {"zh_TW", u"General"}, {"de_DE", u"General"}, {"C", u"General"}};
    for (const auto &[name, text] : languages) {
        const Translations translations{QLocale(QLatin1StringView(name))};
        EXPECT_EQ(qtTrId("General"), QStringView(text)) << name;
    }
}
