#pragma once

#include "platform/Error.h"

#include <QString>
#include <QStringList>

#include <optional>

/// Modal questions and messages to the user.
class Dialogs {
public:
    /// Answers of runAlert(): the first button, the second, and so on.
    static constexpr int kFirstButton = 1000;

    virtual ~Dialogs() = default;
    Dialogs(const Dialogs&) = delete;
    Dialogs& operator=(const Dialogs&) = delete;

    /// Shows the error in a modal panel. True when the panel dealt with the error, so that work can go on.
    virtual bool presentError(const Error& error) = 0;
    /// What was presented is over: should it come again, it is news.
    virtual void forgetErrors() { }
    /// Shows a modal alert; answers kFirstButton + index of the button pressed, the last one's when it is
    /// closed. There is one button at least.
    virtual int runAlert(
        const QString& messageText, const QString& informativeText, const QStringList& buttons) = 0;
    /// Asks where to save a file; nothing when the user cancelled.
    virtual std::optional<QString> runSavePanel(const QString& proposedFileName) = 0;

protected:
    Dialogs() = default;
};
