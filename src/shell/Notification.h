#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

/// The content of one reminder to change position.
class Notification {
public:
    /// @param newPosition the position that the user is asked to take: 1 stand up, 2 sit down
    explicit Notification(int32_t newPosition);

    /// One of the ten messages for that position, picked at random without memory.
    static QString randomMessageFromPosition(int32_t position);
    /// For a user who stands and is asked to sit.
    static const QStringList& messagesStanding();
    /// For a user who sits and is asked to stand.
    static const QStringList& messagesSitting();

    [[nodiscard]] const QString& title() const { return m_title; }
    void setTitle(const QString& title) { m_title = title; }
    /// The detail line, empty when there is none.
    [[nodiscard]] const QString& message() const { return m_message; }
    void setMessage(const QString& message) { m_message = message; }
    /// The number shown large (kcal or minutes) and its caption; unset for an unknown position.
    [[nodiscard]] const std::optional<QString>& indicatorValue() const { return m_indicatorValue; }
    void setIndicatorValue(const QString& value) { m_indicatorValue = value; }
    [[nodiscard]] const std::optional<QString>& indicatorTitle() const { return m_indicatorTitle; }
    void setIndicatorTitle(const QString& title) { m_indicatorTitle = title; }
    [[nodiscard]] int32_t position() const { return m_position; }
    void setPosition(int32_t position) { m_position = position; }

private:
    void describeStandingUp();
    void describeSittingDown();

    QString m_title;
    QString m_message;
    std::optional<QString> m_indicatorValue;
    std::optional<QString> m_indicatorTitle;
    int32_t m_position;
};
