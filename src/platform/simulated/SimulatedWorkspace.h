#pragma once

#include "platform/Workspace.h"

#include <vector>

/// A session that sleeps and wakes when it is told to, and notes which addresses were opened.
class SimulatedWorkspace final : public Workspace {
public:
    std::vector<QUrl> opened;

    bool openUrl(const QUrl& url) override
    {
        opened.push_back(url);
        return true;
    }
    void screensSleep() const { tell(m_screensDidSleep); }
    void willSleep() const { tell(m_willSleep); }
    void wake() const { tell(m_didWake); }
};
