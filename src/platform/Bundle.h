#pragma once

#include <QJsonObject>
#include <QLocale>
#include <QString>

#include <optional>

/// What ships inside the program: the information keys of Info.json and the pictures by name. Texts are asked
/// for with qtTrId().
class Bundle {
public:
    /// A bundle with the given information keys; the program's own is made from the compiled-in Info.json.
    explicit Bundle(QJsonObject information);
    virtual ~Bundle() = default;
    Bundle(const Bundle&) = delete;
    Bundle& operator=(const Bundle&) = delete;

    /// Reads the compiled-in Info.json; a damaged or missing one gives a bundle without keys and one log
    /// line.
    static QJsonObject compiledInformation();

    /// The value under the key as a text, or nothing when the key is missing, which the log says once.
    [[nodiscard]] std::optional<QString> stringValue(const QString& key) const;
    /// The value as a number; 0 when the key is missing or is not a number. A text that holds a number
    /// counts.
    [[nodiscard]] double numberValue(const QString& key) const;

    /// Path of the picture of that name inside the program, for QImageReader and style sheets.
    [[nodiscard]] static QString imagePath(const QString& name);

    /// The user's locale: units and numbers.
    [[nodiscard]] virtual QLocale locale() const;
    /// The user's locale for dates as an ICU or POSIX name, which can say more than a QLocale: the first
    /// weekday and the calendar depend on it ("en_US", "th_TH@calendar=buddhist"). A default locale that the
    /// program was told to use goes before the environment's.
    [[nodiscard]] virtual QString calendarLocaleName() const;

    static Bundle& main();

private:
    [[nodiscard]] QJsonValue information(const QString& key) const;

    QJsonObject m_information;
};
