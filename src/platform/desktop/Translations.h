#pragma once

#include <QLocale>

#include <memory>
#include <vector>

class QTranslator;

/// The texts of the program in the user's language, for as long as this lives. Made on the main thread after the
/// application object, and gone before it.
class Translations {
public:
    /// Texts that have no translation are English. The toolkit's own texts are translated too, if its translations are
    /// installed.
    explicit Translations(const QLocale &locale);
    ~Translations();
    Translations(const Translations &) = delete;
    Translations &operator=(const Translations &) = delete;

private:
    void install(const QLocale &locale, const QString &name, const QString &folder);

    std::vector<std::unique_ptr<QTranslator>> translators_;
};
