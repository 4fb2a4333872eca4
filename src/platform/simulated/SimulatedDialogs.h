#pragma once

#include "platform/Dialogs.h"

#include <functional>
#include <vector>

/// Dialogs that note what they were to say and answer at once, as they were told to.
class SimulatedDialogs final : public Dialogs {
public:
    bool errorsAreDealtWith = false;
    int alertAnswer = kFirstButton;
    std::function<void()> whileAlertRuns;
    std::optional<QString> savePanelAnswer;

    std::vector<Error> presented;
    int timesForgotten = 0;
    QStringList alerts; ///< message, explanation and buttons, with lines between them
    QStringList proposedFileNames;

    bool presentError(const Error& error) override
    {
        presented.push_back(error);
        return errorsAreDealtWith;
    }
    void forgetErrors() override { ++timesForgotten; }
    int runAlert(
        const QString& messageText, const QString& informativeText, const QStringList& buttons) override
    {
        alerts.append((QStringList {messageText, informativeText} + buttons).join(u'|'));
        if (whileAlertRuns)
            whileAlertRuns();
        return alertAnswer;
    }
    std::optional<QString> runSavePanel(const QString& proposedFileName) override
    {
        proposedFileNames.append(proposedFileName);
        return savePanelAnswer;
    }
};
