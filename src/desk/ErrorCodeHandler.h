#pragma once

#include <QMap>
#include <QString>

#include <cstdint>
#include <optional>
#include <span>

/// Reads the faults out of a status report.
class ErrorCodeHandler {
public:
    /// Error codes by key ("E" and two or three digits) with their texts, empty where a code has none;
    /// nothing when the report carries no error flag.
    static std::optional<QMap<QString, QString>> setErrorCode(std::span<const uint8_t, 64> report);
};
