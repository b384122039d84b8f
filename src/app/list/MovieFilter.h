#pragma once

#include <QString>
#include <QStringList>

/// Chooses movies by words in their paths, whatever their case (value).
class MovieFilter {
public:
    /// Words with spaces between them; without any all movies are chosen.
    explicit MovieFilter(const QString &text = {});

    bool isEmpty() const { return words_.isEmpty(); }
    /// Whether the path has all of the words.
    bool accepts(const QString &path) const;

private:
    QStringList words_;
};
