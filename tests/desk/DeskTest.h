#pragma once

#include "data/AppProperties.h"
#include "fakes/FakeHid.h"
#include "fakes/TestPlatform.h"

#include <gtest/gtest.h>

class ZelvoHIDDevice;

/// A test with a world of its own and fresh settings: memory positions 700 and 4300, so standing starts at
/// 2500.
class DeskTest : public testing::Test {
protected:
    using Device = std::shared_ptr<ZelvoHIDDevice>;

    void store(const char* key, const QVariant& value)
    {
        platform.defaults.values.insert(QString::fromLatin1(key), value);
    }

    [[nodiscard]] double secondsSinceStart() const { return platform.runLoop.now() - TestPlatform::kStart; }

    static std::shared_ptr<FakeHidDevice> makeAdapter(uint16_t height = 1000)
    {
        auto adapter = std::make_shared<FakeHidDevice>();
        adapter->setCommunicating(true);
        adapter->setHeight(height);
        return adapter;
    }

    TestPlatform platform;
    FakeHidManager hid;
};
