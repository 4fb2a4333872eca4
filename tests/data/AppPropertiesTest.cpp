#include "data/AppProperties.h"

#include "fakes/TestPlatform.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <utility>

class ZelvoController { };

namespace {
constexpr double kInfinity = std::numeric_limits<double>::infinity();
const QString kDefaulted = "AverageWorkDayHours TimeIdle TimeSnooze TimeNotificationDismiss "
                           "TimeNotificationDismissOnAction ActivityGoal WeightDefault DevicePosition1 "
                           "DevicePosition2 DevicePosition3 TablePositionOffset NumberOfStandupsdefault";

class AppPropertiesTest : public testing::Test {
protected:
    /// The settings as a new process would see them, after the first call.
    static AppProperties& properties() { return AppProperties::instance(); }
    QVariant& stored(const QString& key) { return platform.defaults.values[key]; }
    /// The keys written since the last call.
    QString written() { return std::exchange(platform.defaults.writes, {}).join(' '); }
    /// A new process of a program with another value under that information key; undefined: with none.
    void inform(const QString& key, const QJsonValue& value)
    {
        QJsonObject information = TestPlatform::defaultInformation();
        information.insert(key, value);
        auto next = std::make_unique<TestBundle>(information);
        platform.restart(next.get());
        otherBundle = std::move(next);
    }

    /// What nothing has been read into is 0. A value is written when it differs from the cached one; a stored
    /// one that changes meanwhile is read again at each call, or when the cache is 0 once more.
    template <typename Number>
    void expectWrites(
        const char* key, void (AppProperties::*set)(Number), Number (AppProperties::*get)(), bool isReadAgain)
    {
        SCOPED_TRACE(key);
        AppProperties& settings = properties();
        written();
        for (const int value : {0, 2, 2})
            (settings.*set)(Number(value));
        EXPECT_EQ(written(), key);
        EXPECT_EQ(stored(key), 2);
        stored(key) = 3;
        EXPECT_EQ((settings.*get)(), isReadAgain ? 3 : 2);
        (settings.*set)(isReadAgain ? 3 : 2);
        EXPECT_EQ(written(), "") << "what was read counts as known";
        (settings.*set)(0);
        stored(key) = 4;
        EXPECT_EQ((settings.*get)(), 4);
    }

    std::unique_ptr<TestBundle> otherBundle;
    TestPlatform platform;
};
}

TEST_F(AppPropertiesTest, writesTheMissingDefaultsInOrderAndFlushesEach)
{
    stored("TimeIdle") = 42.0;
    stored("DevicePosition2") = 0; // A stored 0 is a value.
    properties();
    EXPECT_EQ(platform.defaults.flushes, 10);
    EXPECT_EQ(written(), QString(kDefaulted).remove(" TimeIdle").remove(" DevicePosition2"));
    const auto& values = platform.defaults.values;
    QStringList texts;
    for (const QString& key : kDefaulted.split(' '))
        texts.append(values.value(key).toString());
    EXPECT_EQ(texts.join(' '), "8 42 600 20 5 50 80 700 0 4700 6200 1");
    EXPECT_FALSE(properties().isUserSetupCompleted());
    platform.defaults.values.clear();
    inform("DevicePosition3", QJsonValue::Undefined);
    EXPECT_EQ(properties().devicePosition3(), 0);
    EXPECT_TRUE(properties().hasDevicePosition3());
}

TEST_F(AppPropertiesTest, clearsInOrderKeepsTheVersionAndTheCaches)
{
    AppProperties& settings = properties();
    settings.setVersion("1.0");
    settings.setWeight(91);
    settings.setNumberOfStandUps(3);
    written();
    settings.clearProperties();
    EXPECT_EQ(written(),
        "AverageWorkDayHours TimeIdle TimeSnooze TimeNotificationDismiss TimeNotificationDismissOnAction "
        "WeightDefault TablePositionOffset TablePositionOffsetDefault NumberOfStandUps "
        "NumberOfStandupsdefault DevicePosition1 DevicePosition2 DevicePosition3 Weight ActivityMode "
        "ActivityGoal "
            + kDefaulted);
    EXPECT_EQ(stored("Version"), "1.0");
    EXPECT_EQ(settings.weight(), 91);
    EXPECT_EQ(settings.numberOfStandUps(), 0); // Read again at each call.
}

TEST_F(AppPropertiesTest, writesWhatDiffersFromTheCacheAndReadsSomeValuesAgain)
{
    using P = AppProperties;
    properties();
    expectWrites("Weight", &P::setWeight, &P::weight, false);
    expectWrites("ActivityMode", &P::setActivityMode, &P::activityMode, false);
    expectWrites("ActivityGoal", &P::setActivityGoal, &P::activityGoal, false);
    expectWrites("DevicePosition1", &P::setDevicePosition1, &P::devicePosition1, false);
    expectWrites("DevicePosition2", &P::setDevicePosition2, &P::devicePosition2, false);
    expectWrites("DevicePosition3", &P::setDevicePosition3, &P::devicePosition3, false);
    expectWrites("TablePositionOffset", &P::setTablePositionOffset, &P::tablePositionOffset, true);
    expectWrites("NumberOfStandUps", &P::setNumberOfStandUps, &P::numberOfStandUps, true);
}

TEST_F(AppPropertiesTest, comparesTheVersionByTheIdentityOfItsText)
{
    AppProperties& settings = properties();
    EXPECT_TRUE(settings.version().isNull());
    written();
    const QString version = QString::fromLatin1("1.0.1");
    settings.setVersion(version);
    settings.setVersion(version);
    EXPECT_EQ(written(), "Version");
    settings.setVersion(QString::fromLatin1("1.0.1"));
    EXPECT_EQ(written(), "Version");
    settings.setVersion(QString());
    EXPECT_FALSE(stored("Version").isValid());
    EXPECT_TRUE(settings.version().isNull());
}

TEST_F(AppPropertiesTest, crossesTheNumbersOfTheActivityModesAndCompletesAHalfDoneSetUp)
{
    const struct {
        QJsonValue information;
        int32_t mode;
    } kCases[] = {{"1", 2}, {"2", 1}, {"3", 0}, {" 1", 0}, {"", 0}, {QJsonValue::Undefined, 0}};
    for (const auto& [information, mode] : kCases) {
        SCOPED_TRACE(qPrintable(information.toString()));
        platform.defaults.values.clear();
        inform("ActivityModeDefault", information);
        EXPECT_EQ(properties().activityMode(), mode);
        EXPECT_FALSE(stored("ActivityMode").isValid()); // The fallback stays in the cache.
        EXPECT_FALSE(properties().isUserSetupCompleted());
        stored("WeightDefault") = 77;
        EXPECT_TRUE(properties().setDefaultUserValues());
        EXPECT_EQ(stored("Weight"), 77.0);
        EXPECT_EQ(properties().isUserSetupCompleted(), mode != 0);
        stored("ActivityGoal") = 0.0;
        platform.restart();
        properties().setDefaultUserValues();
        EXPECT_FALSE(properties().isUserSetupCompleted()) << "no default goal has ever been written";
        stored("ActivityGoalDefault") = 75;
        properties().setDefaultUserValues();
        EXPECT_EQ(properties().activityGoal(), 75);
    }
}

/// A stored value as somebody left it in the file, and what the program goes by.
TEST_F(AppPropertiesTest, neverGoesByANumberThatASettingCannotHold)
{
    const struct {
        QString key;
        double least, most, otherwise;
    } kSettings[] = {{"AverageWorkDayHours", 0.01, 24, 8}, {"TimeIdle", 1, 86400, 300},
        {"TimeSnooze", 1, 86400, 600}, {"TimeNotificationDismiss", 1, 86400, 20},
        {"TimeNotificationDismissOnAction", 1, 86400, 5}, {"ActivityGoal", 0, 10000, 50},
        {"WeightDefault", 0, 999, 80}, {"Weight", 0, 999, 80}, {"DevicePosition1", 0, 65535, 700},
        {"DevicePosition2", 0, 65535, 4300}, {"DevicePosition3", 0, 65535, 4700},
        {"TablePositionOffset", -635000, 635000, 6200}, {"NumberOfStandUps", 0, 6, 0},
        {"NumberOfStandupsdefault", 1, 6, 1}};
    // The default locale has no say: a decimal comma would turn 0.5 into something else.
    QLocale::setDefault(QLocale("de_DE"));
    for (const auto& [key, least, most, otherwise] : kSettings) {
        SCOPED_TRACE(qPrintable(key));
        testing::internal::CaptureStderr();
        for (const double held : {least, most}) {
            stored(key) = QString::number(held, 'g', 12);
            EXPECT_EQ(AppProperties::getDoubleForKey(key), held);
        }
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        testing::internal::CaptureStderr();
        for (const QVariant& value : std::initializer_list<QVariant> {least - 1, most + 1, "1e400", kInfinity,
                 -kInfinity, std::nan(""), "nan", "80 kg", QStringList {"80", "5"}, QString(4000, 'x'),
                 QVariantMap {{"a", 1}}}) {
            stored(key) = value;
            EXPECT_EQ(AppProperties::getDoubleForKey(key), otherwise)
                << qPrintable(value.toString().left(20));
        }
        const QString log = QString::fromStdString(testing::internal::GetCapturedStderr());
        EXPECT_EQ(log.count(u'\n'), 1) << "said once" << qPrintable(log);
        EXPECT_TRUE(log.contains(key));
        platform.restart();
        AppProperties::instance();
        EXPECT_EQ(stored(key), otherwise) << "the next start mends the file";
        stored(key) = QVariant();
        EXPECT_EQ(AppProperties::getDoubleForKey(key), 0) << "what is missing";
    }
    QLocale::setDefault(QLocale::system());
}

TEST_F(AppPropertiesTest, givesACountThatMayDivide)
{
    const struct {
        QVariant count, defaultCount;
        int32_t divisor;
    } kCases[] = {{4, 3, 4}, {QVariant(), 3, 3}, {0, 3.9, 3}, {0, QVariant(), 1}, {1, 3, 1}};
    for (const auto& [count, defaultCount, divisor] : kCases) {
        properties();
        stored("NumberOfStandUps") = count;
        stored("NumberOfStandupsdefault") = defaultCount;
        EXPECT_EQ(properties().standUpsForDivision(), divisor) << qPrintable(count.toString());
    }
}

TEST_F(AppPropertiesTest, readsAddressesAndTheOddKeysAndMakesOneHub)
{
    stored("TablePositionOffsetDefault") = 12.5;
    stored("DevicePositionOffset") = "-12.9";
    EXPECT_EQ(properties().tablePositionDefault(), 12.5);
    EXPECT_EQ(properties().devicePositionOffset(), -12);
    for (const QString url : {"https://zelvo.example/a?b=c", "", "http://[::1", "a b"}) {
        inform("InfoUrl", url);
        EXPECT_EQ(properties().infoUrl().toString(), url.startsWith("https") ? url : QString());
    }
    properties().startZelvoController();
    int made = 0;
    properties().setZelvoControllerFactory([&made] { return ++made, std::make_shared<ZelvoController>(); });
    for (int i = 0; i < 2; ++i)
        properties().startZelvoController();
    EXPECT_EQ(made, 1);
    EXPECT_TRUE(properties().zelvoController());
}

TEST_F(AppPropertiesTest, everyKindOfValueHasAPrimitiveAndWithoutAStoreNoneDoesAnything)
{
    using P = AppProperties;
    const QString k = "Key";
    const struct {
        std::function<void()> set;
        std::function<QVariant()> get;
        QVariant value, nothing;
    } kKinds[] = {
        {[&] { P::setString("a;b", k); }, [&] { return P::getStringForKey(k); }, "a;b", QString()},
        {[&] { P::setInteger(-7, k); }, [&] { return qlonglong(P::getIntegerForkey(k)); }, -7LL, 0LL},
        {[&] { P::setDouble(2.5, k); }, [&] { return P::getDoubleForKey(k); }, 2.5, {}},
        {[&] { P::setBool(true, k); }, [&] { return P::getBoolForKey(k); }, true, false},
        {[&] {
             P::setArray({1, "x"}, k);
         },
            [&] { return P::getArrayForKey(k); }, QVariantList {1, "x"}, QVariantList()},
        {[&] {
             P::setDict({{"a", 1}}, k);
         },
            [&] { return P::getDictForKey(k); }, QVariantMap {{"a", 1}}, QVariantMap()},
        {[&] { P::removeValueForKey(k); }, [&] { return P::hasValueForKey(k); }, false, false},
    };
    for (const auto& [set, get, value, nothing] : kKinds) {
        SCOPED_TRACE(value.typeName());
        const int flushes = platform.defaults.flushes;
        set();
        EXPECT_EQ(get(), value);
        EXPECT_EQ(platform.defaults.flushes, flushes + 1);
        const ProcessServices withoutStore({&platform.runLoop, &platform.bundle});
        set();
        EXPECT_TRUE(nothing.isValid() ? get() == nothing : std::isnan(get().toDouble()));
        EXPECT_EQ(platform.defaults.flushes, flushes + 1);
    }
    for (const auto& [text, answer] :
        {std::pair("true", true), {"false", false}, {"0", false}, {"2", true}}) {
        stored(k) = text;
        EXPECT_EQ(P::getBoolForKey(k), answer) << text;
    }
}
