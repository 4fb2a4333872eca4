#pragma once

#include <QString>
#include <QVariant>

#include <optional>
#include <span>

class Bundle;

/// One number of the settings file, and what the program takes for one.
struct Setting {
    enum Type { Integer, Double };
    enum Start { Written, NotWritten }; ///< What a start does where the file holds no value.

    QString key;
    Type type;
    double least;
    double most;
    std::optional<double> otherwise; ///< Where none is given, the information key of the same name.
    Start start;
    int placeInReset; ///< A reset removes the first one first, and 0 not at all.

    /// In the order in which a start writes them.
    [[nodiscard]] static std::span<const Setting> all();
    /// A key that is none of them stands for any finite number.
    [[nodiscard]] static Setting forKey(const QString& key);

    /// What counts where the file holds no such number.
    [[nodiscard]] double fallback(const Bundle& bundle) const;
    [[nodiscard]] bool canBe(const QVariant& stored) const;
    /// What the program goes by: the stored number, or another one where a damaged file or a slip of the hand
    /// left one that the setting cannot be. The log says so once.
    [[nodiscard]] double number(const QVariant& stored, const Bundle& bundle) const;
};
