#include "data/AppProperties.h"

#include "fakes/TestPlatform.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <thread>

class ZelvoController { };

namespace {
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr int32_t kLargestInt32 = std::numeric_limits<int32_t>::max();

class AppPropertiesTest : public testing::Test {
protected:
    AppPropertiesTest() { AppProperties::resetInstance(); }
    ~AppPropertiesTest() override { AppProperties::resetInstance(); }

    /// The settings as a new process would see them.
    static AppProperties& properties() { return AppProperties::instance(); }
    void store(const char* key, const QVariant& value)
    {
        platform.defaults.values.insert(QString::fromLatin1(key), value);
    }
    static double read(const char* key) { return AppProperties::getDoubleForKey(QString::fromLatin1(key)); }
    [[nodiscard]] QVariant stored(const char* key) const
    {
        return platform.defaults.values.value(QString::fromLatin1(key));
    }
    void removeInformation(const char* key)
    {
        QJsonObject information = TestPlatform::defaultInformation();
        information.remove(QString::fromLatin1(key));
        useInformation(information);
    }
    void setInformation(const char* key, const QJsonValue& value)
    {
        QJsonObject information = TestPlatform::defaultInformation();
        information.insert(QString::fromLatin1(key), value);
        useInformation(information);
    }

    TestPlatform platform;
    std::unique_ptr<TestBundle> otherBundle;

private:
    void useInformation(const QJsonObject& information)
    {
        otherBundle = std::make_unique<TestBundle>(information);
        Bundle::setMain(otherBundle.get());
        AppProperties::resetInstance();
    }
};

QStringList keys(std::initializer_list<const char*> names)
{
    QStringList list;
    for (const char* name : names)
        list.append(QString::fromLatin1(name));
    return list;
}

const QStringList kDefaultedKeys =
    keys({"AverageWorkDayHours", "TimeIdle", "TimeSnooze", "TimeNotificationDismiss",
        "TimeNotificationDismissOnAction", "ActivityGoal", "WeightDefault", "DevicePosition1",
        "DevicePosition2", "DevicePosition3", "TablePositionOffset", "NumberOfStandupsdefault"});
}

TEST_F(AppPropertiesTest, writesTheMissingDefaultsInOrderAndFlushesEach)
{
    AppProperties& settings = properties();
    EXPECT_EQ(platform.defaults.writes, kDefaultedKeys);
    EXPECT_EQ(platform.defaults.flushes, kDefaultedKeys.size());

    EXPECT_EQ(settings.averageWorkDayHours(), 8);
    EXPECT_EQ(settings.timeIdle(), 300);
    EXPECT_EQ(settings.timeSnooze(), 600);
    EXPECT_EQ(settings.timeNotificationDismiss(), 20);
    EXPECT_EQ(settings.timeNotificationDismissOnAction(), 5);
    EXPECT_EQ(settings.activityGoal(), 50);
    EXPECT_EQ(settings.weightDefault(), 80);
    EXPECT_EQ(settings.devicePosition1(), 700);
    EXPECT_EQ(settings.devicePosition2(), 4300);
    EXPECT_EQ(settings.devicePosition3(), 4700);
    EXPECT_EQ(settings.tablePositionOffset(), 6200);
    EXPECT_EQ(settings.numberOfStandUpsDefault(), 1);
    EXPECT_EQ(settings.activitGoalDefault(), 0);
    EXPECT_EQ(settings.weight(), 0);
    EXPECT_FALSE(settings.isUserSetupCompleted());
}

TEST_F(AppPropertiesTest, leavesStoredValuesAlone)
{
    store("TimeIdle", 42.0);
    store("DevicePosition2", 0); // A stored 0 is a value.
    const AppProperties& settings = properties();
    EXPECT_EQ(settings.timeIdle(), 42);
    EXPECT_EQ(stored("DevicePosition2"), QVariant(0));
    EXPECT_EQ(platform.defaults.writes.size(), kDefaultedKeys.size() - 2);
}

TEST_F(AppPropertiesTest, clearsInOrderKeepsTheVersionAndTheCaches)
{
    AppProperties& settings = properties();
    settings.setVersion(QStringLiteral("1.0"));
    settings.setWeight(91);
    settings.setActivityGoal(150);
    settings.setNumberOfStandUps(3);
    platform.defaults.writes.clear();

    settings.clearProperties();
    EXPECT_EQ(platform.defaults.writes,
        keys({"AverageWorkDayHours", "TimeIdle", "TimeSnooze", "TimeNotificationDismiss",
            "TimeNotificationDismissOnAction", "WeightDefault", "TablePositionOffset",
            "TablePositionOffsetDefault", "NumberOfStandUps", "NumberOfStandupsdefault", "DevicePosition1",
            "DevicePosition2", "DevicePosition3", "Weight", "ActivityMode", "ActivityGoal"})
            + kDefaultedKeys);
    EXPECT_EQ(stored("Version"), QStringLiteral("1.0"));
    EXPECT_FALSE(stored("Weight").isValid());
    EXPECT_EQ(settings.weight(), 91);
    EXPECT_EQ(settings.activityGoal(), 150);
    EXPECT_EQ(settings.numberOfStandUps(), 0); // Read again at each call.
}

TEST_F(AppPropertiesTest, writesOnlyWhatDiffersFromTheCache)
{
    AppProperties& settings = properties();
    const struct {
        const char* key;
        std::function<void(int)> set;
    } kSetters[] = {
        {"Weight", [&](int value) { settings.setWeight(value); }},
        {"ActivityMode", [&](int value) { settings.setActivityMode(value); }},
        {"ActivityGoal", [&](int value) { settings.setActivityGoal(value); }},
        {"DevicePosition1", [&](int value) { settings.setDevicePosition1(value); }},
        {"DevicePosition2", [&](int value) { settings.setDevicePosition2(value); }},
        {"DevicePosition3", [&](int value) { settings.setDevicePosition3(value); }},
        {"TablePositionOffset", [&](int value) { settings.setTablePositionOffset(value); }},
        {"NumberOfStandUps", [&](int value) { settings.setNumberOfStandUps(value); }},
    };
    for (const auto& [key, set] : kSetters) {
        SCOPED_TRACE(key);
        platform.defaults.writes.clear();
        const int flushes = platform.defaults.flushes;
        set(0); // What nothing has been read into is 0.
        EXPECT_TRUE(platform.defaults.writes.isEmpty());
        set(2);
        set(2);
        EXPECT_EQ(platform.defaults.writes, keys({key}));
        EXPECT_EQ(platform.defaults.flushes, flushes + 1);
        EXPECT_EQ(stored(key).toInt(), 2);
    }
}

TEST_F(AppPropertiesTest, cachesSomeValuesAndReadsOthersAgain)
{
    AppProperties& settings = properties();
    settings.setWeight(80);
    settings.setDevicePosition1(100);
    settings.setTablePositionOffset(100);
    settings.setNumberOfStandUps(1);
    for (const char* key : {"Weight", "DevicePosition1", "TablePositionOffset", "NumberOfStandUps"})
        store(key, 5);
    EXPECT_EQ(settings.weight(), 80);
    EXPECT_EQ(settings.devicePosition1(), 100);
    EXPECT_EQ(settings.tablePositionOffset(), 5);
    EXPECT_EQ(settings.numberOfStandUps(), 5);

    settings.setWeight(0); // 0 stands for "not loaded yet".
    EXPECT_EQ(settings.weight(), 0);
    store("Weight", 66);
    EXPECT_EQ(settings.weight(), 66);

    // Reading refreshed the cache, so the value read counts as known.
    platform.defaults.writes.clear();
    settings.setNumberOfStandUps(5);
    EXPECT_TRUE(platform.defaults.writes.isEmpty());
}

TEST_F(AppPropertiesTest, comparesTheVersionByTheIdentityOfItsText)
{
    AppProperties& settings = properties();
    EXPECT_TRUE(settings.version().isNull());
    platform.defaults.writes.clear();
    const QString version = QStringLiteral("1.0.1");
    settings.setVersion(version);
    settings.setVersion(version);
    EXPECT_EQ(platform.defaults.writes, keys({"Version"}));
    const QString sameText = QString::fromLatin1("1.0.1");
    settings.setVersion(sameText);
    EXPECT_EQ(platform.defaults.writes, keys({"Version", "Version"}));
    settings.setVersion(QString());
    EXPECT_FALSE(stored("Version").isValid());
    EXPECT_TRUE(settings.version().isNull());
}

TEST_F(AppPropertiesTest, crossesTheNumbersOfTheActivityModes)
{
    const struct {
        QJsonValue information;
        int32_t mode;
    } kTestCases[] = {
        {QStringLiteral("1"), 2},
        {QStringLiteral("2"), 1},
        {QStringLiteral("3"), 0},
        {QStringLiteral(" 1"), 0},
        {QStringLiteral(""), 0},
        {QJsonValue::Null, 0},
    };
    for (const auto& [information, mode] : kTestCases) {
        setInformation("ActivityModeDefault", information);
        SCOPED_TRACE(qPrintable(information.toString()));
        EXPECT_EQ(properties().activityModeDefault(), mode);
        EXPECT_EQ(properties().activityMode(), mode);
        EXPECT_FALSE(stored("ActivityMode").isValid()); // The fallback stays in the cache.
    }
}

TEST_F(AppPropertiesTest, completesAHalfDoneSetUp)
{
    removeInformation("ActivityModeDefault");
    EXPECT_EQ(properties().activityMode(), 0);
    properties().setWeight(75);
    EXPECT_FALSE(properties().isUserSetupCompleted());

    setInformation("ActivityModeDefault", QStringLiteral("1"));
    store("Weight", 0.0);
    EXPECT_FALSE(properties().isUserSetupCompleted());
    EXPECT_TRUE(properties().setDefaultUserValues());
    EXPECT_EQ(stored("Weight"), QVariant(80.0));
    EXPECT_TRUE(properties().isUserSetupCompleted());

    store("ActivityGoal", 0.0);
    AppProperties::resetInstance();
    EXPECT_TRUE(properties().setDefaultUserValues());
    EXPECT_FALSE(properties().isUserSetupCompleted()); // No default goal has ever been written.
}

/// A stored value as somebody left it in the file, and what the program goes by.
TEST_F(AppPropertiesTest, neverGoesByANumberThatASettingCannotHold)
{
    const struct {
        const char* key;
        double least;
        double most;
        double otherwise;
    } kSettings[] = {{"AverageWorkDayHours", 0.01, 24, 8}, {"TimeIdle", 1, 86400, 300},
        {"TimeSnooze", 1, 86400, 600}, {"TimeNotificationDismiss", 1, 86400, 20},
        {"TimeNotificationDismissOnAction", 1, 86400, 5}, {"ActivityGoal", 0, 10000, 50},
        {"WeightDefault", 0, 999, 80}, {"Weight", 0, 999, 80}, {"DevicePosition1", 0, 65535, 700},
        {"DevicePosition2", 0, 65535, 4300}, {"DevicePosition3", 0, 65535, 4700},
        {"TablePositionOffset", -635000, 635000, 6200}, {"NumberOfStandUps", 0, 6, 0},
        {"NumberOfStandupsdefault", 1, 6, 1}};
    properties();
    // The default locale has no say: a decimal comma would turn 0.5 into something else.
    QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    for (const auto& setting : kSettings) {
        SCOPED_TRACE(setting.key);
        testing::internal::CaptureStderr();
        for (const double held : {setting.least, setting.most}) {
            store(setting.key, QString::number(held, 'g', 12));
            EXPECT_EQ(read(setting.key), held);
        }
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        testing::internal::CaptureStderr();
        for (const QVariant& value :
            std::initializer_list<QVariant> {setting.least - 1, setting.most + 1, QStringLiteral("1e400"),
                kInfinity, -kInfinity, std::nan(""), QStringLiteral("nan"), QStringLiteral("80 kg"),
                keys({"80", "5"}), QString(4000, QLatin1Char('x')), QVariantMap {{QStringLiteral("a"), 1}}}) {
            store(setting.key, value);
            EXPECT_EQ(read(setting.key), setting.otherwise) << qPrintable(value.toString().left(20));
        }
        const QString log = QString::fromStdString(testing::internal::GetCapturedStderr());
        EXPECT_EQ(log.count(u'\n'), 1) << "said once" << qPrintable(log);
        EXPECT_TRUE(log.contains(QLatin1String(setting.key)));
        platform.defaults.values.remove(QString::fromLatin1(setting.key));
        EXPECT_EQ(read(setting.key), 0) << "what is missing";
    }
    QLocale::setDefault(QLocale::system());
}

TEST_F(AppPropertiesTest, givesACountThatMayDivide)
{
    const struct {
        QVariant count;
        QVariant defaultCount;
        int32_t divisor;
    } kTestCases[] = {{4, 3, 4}, {QVariant(), 3, 3}, {0, 3.9, 3}, {0, QVariant(), 1}};
    for (const auto& [count, defaultCount, divisor] : kTestCases) {
        properties();
        store("NumberOfStandUps", count);
        store("NumberOfStandupsdefault", defaultCount);
        EXPECT_EQ(properties().standUpsForDivision(), divisor) << qPrintable(count.toString());
    }
}

TEST_F(AppPropertiesTest, readsTheBundleAndTheOddKeys)
{
    store("ActivityGoalDefault", QStringLiteral("75"));
    store("TablePositionOffsetDefault", 12.5);
    store("DevicePositionOffset", QStringLiteral("-12.9"));
    EXPECT_EQ(properties().activitGoalDefault(), 75);
    EXPECT_EQ(properties().tablePositionDefault(), 12.5);
    EXPECT_EQ(properties().devicePositionOffset(), -12);
    for (const char* const url : {"https://zelvo.example/a?b=c", "", "http://[::1", "a b"}) {
        setInformation("InfoUrl", QString::fromLatin1(url));
        EXPECT_EQ(properties().infoUrl().isEmpty(), url[0] != 'h' || url[4] != 's') << url;
    }
    platform.defaults.values.clear();
    removeInformation("DevicePosition3");
    EXPECT_EQ(properties().devicePosition3(), 0);
    EXPECT_TRUE(properties().hasDevicePosition3());
}
