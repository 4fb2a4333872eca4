#include "platform/linux/HidrawNode.h"

#include <cerrno>
#include <fcntl.h>
#include <linux/hidraw.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <unistd.h>
#include <utility>

HidrawNode::HidrawNode(std::string path)
    : m_path(std::move(path))
{
}

HidrawNode::~HidrawNode()
{
    if (m_file >= 0)
        ::close(m_file);
}

HidStatus HidrawNode::open()
{
    if (m_file < 0)
        m_file = ::open(m_path.c_str(), O_RDWR | O_CLOEXEC);
    if (m_file < 0)
        return errno;
    // The kernel lets everybody open a node. The lock is the mark by which programs tell that it is taken. A
    // refused node stays open: closing it would look as if its holder had let go. Who has the lock gets it
    // again.
    if (flock(m_file, LOCK_EX | LOCK_NB) != 0)
        return errno == EWOULDBLOCK ? EBUSY : errno;
    return 0;
}

HidStatus HidrawNode::setFeature(std::span<const uint8_t> report)
{
    // The kernel only reads from the buffer, its interface just has no way to say so.
    auto* bytes = const_cast<uint8_t*>(report.data());
    const int sent = ioctl(m_file, HIDIOCSFEATURE(report.size()), bytes);
    if (sent < 0)
        return errno;
    return size_t(sent) == report.size() ? 0 : EIO;
}

HidStatus HidrawNode::getFeature(std::span<uint8_t> report)
{
    return ioctl(m_file, HIDIOCGFEATURE(report.size()), report.data()) < 0 ? errno : 0;
}
