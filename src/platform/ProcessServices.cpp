#include "platform/ProcessServices.h"

#include <QtGlobal>

namespace {
ProcessServices* s_installed = nullptr;
}

ProcessServices::ProcessServices(const Backends& backends)
    : m_backends(backends)
    , m_before(std::exchange(s_installed, this))
{
}

ProcessServices::~ProcessServices()
{
    while (!m_shared.empty())
        m_shared.pop_back();
    s_installed = m_before;
}

ProcessServices& ProcessServices::installed()
{
    Q_ASSERT_X(s_installed, "ProcessServices::installed", "no services have been made");
    return *s_installed;
}
