#include "platform/Bundle.h"
#include "resources/Contrast.h"
#include "resources/Resources.h"

#include <QFontDatabase>
#include <QUrl>

#include <gtest/gtest.h>

namespace {

struct Info : testing::Test {
    [[nodiscard]] QString value(const char* key) const
    {
        return m_bundle.stringValue(QString::fromUtf8(key)).value_or(QString());
    }
    [[nodiscard]] double number(const char* key) const
    {
        return m_bundle.numberValue(QString::fromUtf8(key));
    }

private:
    static QJsonObject information()
    {
        initResources();
        return Bundle::compiledInformation();
    }
    Bundle m_bundle {information()};
};

}

TEST_F(Info, theProgramKnowsItself)
{
    EXPECT_EQ(value("CFBundleName"), QStringLiteral("StandUp"));
    EXPECT_EQ(value("CFBundleShortVersionString"), QStringLiteral("1.0.1"));
    EXPECT_TRUE(QFontDatabase::families().contains(value("ZelvoFontName")));
}

TEST_F(Info, itsAddressesAreValidAndReserved)
{
    for (const char* key : {"InfoUrl", "ErrorUrl", "VideoUrl"}) {
        const QUrl url(value(key), QUrl::StrictMode);
        EXPECT_TRUE(url.isValid()) << key;
        EXPECT_EQ(url.scheme(), QStringLiteral("https")) << key;
        EXPECT_TRUE(url.host().endsWith(QStringLiteral(".example"))) << key;
    }
}

TEST_F(Info, theDefaultGoalOf50IsMeantInCalories)
{
    // The bundle numbers the modes the other way round: its "2" is the program's calorie mode.
    EXPECT_EQ(value("ActivityModeDefault"), QStringLiteral("2"));
}

TEST_F(Info, theDefaultPositionsSuitASeatAndAPersonStanding)
{
    constexpr double kHighestRaw = 6500;
    const struct {
        const char* key;
        double lowestCm;
        double highestCm;
    } kTestCases[] = {
        {"DevicePosition1", 68, 76},
        {"DevicePosition2", 100, 115},
        {"DevicePosition3", 110, 120},
    };
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testCase.key);
        const double raw = number(testCase.key);
        // Zero and below would not count as a position when the standing point is taken.
        EXPECT_GT(raw, 0);
        EXPECT_LE(raw, kHighestRaw);
        const double heightCm = (raw + number("TablePositionOffset")) / 100;
        EXPECT_GE(heightCm, testCase.lowestCm);
        EXPECT_LE(heightCm, testCase.highestCm);
    }
}

TEST_F(Info, theBrandColourIsReadableWhereTextUsesIt)
{
    const QColor brand(value("ZelvoColor1"));
    ASSERT_TRUE(brand.isValid());
    for (const char* background : {"#FFFFFF", "#ECECEC", "#D9D9D9"})
        EXPECT_GE(contrast(brand, QColor(QLatin1String(background))), 4.5) << background;
}
