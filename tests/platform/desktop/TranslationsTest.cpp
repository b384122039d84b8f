#include "platform/desktop/Translations.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTranslator>

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

TEST(TranslationsTest, EveryTextOfTheProgramIsThereInEveryLanguage)
{
    const QFileInfoList languages = QDir(u":/i18n"_s).entryInfoList();
    ASSERT_GE(languages.size(), 2);
    std::vector<QTranslator> translators(static_cast<std::size_t>(languages.size()));
    for (std::size_t i = 0; i < translators.size(); ++i) {
        ASSERT_TRUE(translators[i].load(languages.at(static_cast<qsizetype>(i)).filePath()));
    }
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
            for (const QTranslator &language : translators) {
                EXPECT_FALSE(language.translate(nullptr, key.constData()).isEmpty()) << key.constData();
            }
        }
    }
    EXPECT_GT(count, 10);
}

TEST(TranslationsTest, OtherLanguagesFallBackToEnglish)
{
    const std::pair<const char *, const char16_t *> languages[] = {
        {"zh_CN", u"通用"}, {"zh_Hans_SG", u"通用"}, {"zh_TW", u"General"}, {"eo", u"General"}, {"C", u"General"}};
    for (const auto &[name, text] : languages) {
        const Translations translations{QLocale(QLatin1StringView(name))};
        EXPECT_EQ(qtTrId("General"), QStringView(text)) << name;
    }
}
