#pragma once

#include <QString>

/// The programs that the session starts at login.
class LoginItems {
public:
    virtual ~LoginItems() = default;
    LoginItems(const LoginItems&) = delete;
    LoginItems& operator=(const LoginItems&) = delete;

    /// Adds the executable unless it is listed already or the user has switched it off. False when that
    /// failed.
    virtual bool insertItem(const QString& executablePath) = 0;

protected:
    LoginItems() = default;
};
