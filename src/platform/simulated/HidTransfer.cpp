#include "platform/simulated/HidTransfer.h"

#include <algorithm>
#include <cstring>

namespace {
constexpr size_t kFewestShownBytes = 8;
}

QString HidTransfer::text() const
{
    const auto lastUsed = std::find_if(bytes.rbegin(), bytes.rend(), [](uint8_t byte) { return byte != 0; });
    const bool whole = direction == Direction::Write;
    const size_t used = whole ? bytes.size() : std::max(size_t(bytes.rend() - lastUsed), kFewestShownBytes);
    QString line = direction == Direction::Write ? QStringLiteral("write") : QStringLiteral("read ");
    for (size_t i = 0; i < std::min(used, bytes.size()); ++i)
        line += QString::asprintf(" %02X", bytes[i]);
    return status == 0 ? line : line + QStringLiteral(": ") + QString::fromLocal8Bit(strerror(status));
}
