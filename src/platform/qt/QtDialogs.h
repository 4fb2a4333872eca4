#pragma once

#include "platform/Dialogs.h"

#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QQueue>
#include <QSet>

/// Dialogs on Qt's own. They belong to the active window, if there is one. Questions hold up the whole
/// program until they are answered. Ended from outside (the program quits), a dialog counts as cancelled.
class QtDialogs final : public Dialogs {
public:
    QtDialogs() = default;

    /// Opens a panel, once for each text until the errors are forgotten, and returns at once; further errors
    /// wait until it is closed. There is no remedy to choose in it, so no error is ever dealt with.
    bool presentError(const Error& error) override;
    void forgetErrors() override;
    int runAlert(
        const QString& messageText, const QString& informativeText, const QStringList& buttons) override;
    /// Starts in the user's documents folder. The file keeps the proposed name's type: another ending that
    /// the user types becomes part of the name. An existing file is replaced only after the user has agreed.
    std::optional<QString> runSavePanel(const QString& proposedFileName) override;

private:
    void showNextError();

    QSet<QString> m_shownErrors;
    QQueue<Error> m_waitingErrors;
    QPointer<QMessageBox> m_errorPanel;
    QObject m_context;
};
