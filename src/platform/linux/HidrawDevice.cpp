#include "platform/linux/HidrawDevice.h"

#include <QFile>

#include <cerrno>
#include <utility>

HidrawDevice::HidrawDevice(HidrawAdapter adapter, std::vector<uint8_t> restReport, NewsCallback onNews)
    : MailboxHidDevice(std::move(onNews))
    , m_adapter(std::move(adapter))
    , m_restReport(std::move(restReport))
    , m_openStatus(EAGAIN)
{
}

void HidrawDevice::beginOpening(OpeningEnded ended)
{
    if (m_isDetached)
        return;
    const auto weak = [this] {
        return std::weak_ptr(std::static_pointer_cast<HidrawDevice>(shared_from_this()));
    };
    if (!m_worker || !m_worker->isRunning()) {
        m_worker = std::make_unique<HidrawWorker>(QFile::encodeName(m_adapter.node).toStdString(),
            m_restReport, [device = weak()](const HidMailbox::News& news) {
                if (const auto self = device.lock())
                    self->newsArrived(news);
            });
    }
    m_worker->open([device = weak(), ended = std::move(ended)](HidStatus status) {
        if (const auto self = device.lock())
            self->openingEnded(status, ended);
    });
}

void HidrawDevice::openingEnded(HidStatus status, const OpeningEnded& ended)
{
    if (m_isDetached)
        return;
    m_openStatus = status;
    ended(status);
}

void HidrawDevice::awaitRest(double seconds)
{
    if (m_worker && !m_restReport.empty())
        m_worker->await(HidMailbox::Direction::Write, m_restReport[0], seconds);
}

void HidrawDevice::detach()
{
    fallSilent();
    m_isDetached = true;
    m_openStatus = ENODEV;
    m_worker.reset();
}

std::optional<QString> HidrawDevice::stringProperty(const QString& name) const
{
    const auto found = m_adapter.strings.constFind(name);
    return found == m_adapter.strings.cend() ? std::nullopt : std::optional(*found);
}

void HidrawDevice::post(const std::function<void(HidMailbox&)>& request)
{
    m_worker->post(request);
}

void HidrawDevice::await(HidMailbox::Direction direction, uint8_t reportId)
{
    m_worker->await(direction, reportId, kWaitSeconds);
}
