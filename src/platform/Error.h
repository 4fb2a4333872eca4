#pragma once

#include <QString>

/// An error as it is shown and logged.
struct Error {
    QString domain;
    int code = 0;
    QString localizedDescription;
    QString failureReason;
};
