#include "data/AppProperties.h"

#include "fakes/TestPlatform.h"

#include <cmath>
#include <gtest/gtest.h>
#include <utility>

class ZelvoController { };

namespace {
using P = AppProperties;

const QString kDefaulted = "AverageWorkDayHours TimeIdle TimeSnooze TimeNotificationDismiss "
                           "TimeNotificationDismissOnAction ActivityGoal WeightDefault DevicePosition1 "
                           "DevicePosition2 DevicePosition3 TablePositionOffset NumberOfStandupsdefault";

class AppPropertiesTest : public testing::Test {
protected:
    static P& properties() { return P::instance(); }
    /// The settings as a new process sees them, of a program with another value under an information key.
    P& restarted(const QString& key, const QJsonValue& value)
    {
        QJsonObject information = TestPlatform::defaultInformation();
        information.insert(key, value);
        auto next = std::make_unique<SimulatedBundle>(information);
        platform.restart(next.get());
        bundle = std::move(next);
        return properties();
    }
    QVariant& stored(const QString& key) { return platform.defaults.values[key]; }
    /// The keys written since the last call.
    QString written() { return std::exchange(platform.defaults.writes, {}).join(' '); }

    std::unique_ptr<SimulatedBundle> bundle;
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
    QStringList texts;
    for (const QString& key : kDefaulted.split(' '))
        texts.append(stored(key).toString());
    EXPECT_EQ(texts.join(' '), "8 42 600 20 5 50 80 700 0 4700 6200 1");
    for (const auto& [value, position] : {std::pair<QJsonValue, int>("4711.9", 4711), {QJsonValue(), 0}}) {
        platform.defaults.values.clear();
        EXPECT_EQ(restarted("DevicePosition3", value).devicePosition3(), position);
        EXPECT_TRUE(properties().hasDevicePosition3());
    }
}

TEST_F(AppPropertiesTest, readsWritesAndClearsEachSettingUnderItsKey)
{
    const QString kStored = "AverageWorkDayHours=7.5 TimeIdle=301 TimeSnooze=602 TimeNotificationDismiss=23 "
                            "TimeNotificationDismissOnAction=4 ActivityGoalDefault=75 WeightDefault=77 "
                            "NumberOfStandupsdefault=2 TablePositionOffsetDefault=12.5 "
                            "DevicePositionOffset=-12.9 Weight=71.5 ActivityMode=1 ActivityGoal=150 "
                            "DevicePosition1=711 DevicePosition2=4312 DevicePosition3=4713 "
                            "TablePositionOffset=-620 NumberOfStandUps=3 Version=0.9";
    for (const QString& pair : kStored.split(' '))
        stored(pair.section('=', 0, 0)) = pair.section('=', 1);
    P& p = properties();
    EXPECT_EQ(
        (QList<double> {p.averageWorkDayHours(), p.timeIdle(), p.timeSnooze(), p.timeNotificationDismiss(),
            p.timeNotificationDismissOnAction(), p.activitGoalDefault(), p.weightDefault(),
            p.numberOfStandUpsDefault(), p.tablePositionDefault(), double(p.devicePositionOffset())}),
        (QList<double> {7.5, 301, 602, 23, 4, 75, 77, 2, 12.5, -12}));
    const auto changeable = [&p] {
        return QList<double> {p.weight(), double(p.activityMode()), p.activityGoal(),
            double(p.devicePosition1()), double(p.devicePosition2()), double(p.devicePosition3()),
            double(p.tablePositionOffset()), double(p.numberOfStandUps())};
    };
    EXPECT_EQ(changeable(), (QList<double> {71.5, 1, 150, 711, 4312, 4713, -620, 3}));
    EXPECT_EQ(written(), "");
    // What differs from the known value is written; the last two are read again at each call.
    for (int i = 0; i < 2; ++i) {
        p.setWeight(72.5);
        p.setActivityMode(2);
        p.setActivityGoal(120);
        p.setDevicePosition1(712);
        p.setDevicePosition2(4313);
        p.setDevicePosition3(4714);
        p.setTablePositionOffset(-630);
        p.setNumberOfStandUps(4);
    }
    const QString kKeys = "Weight ActivityMode ActivityGoal DevicePosition1 DevicePosition2 DevicePosition3 "
                          "TablePositionOffset NumberOfStandUps";
    EXPECT_EQ(written(), kKeys);
    QStringList values;
    for (const QString& key : kKeys.split(' '))
        values.append(std::exchange(stored(key), 6).toString());
    EXPECT_EQ(values.join(' '), "72.5 2 120 712 4313 4714 -630 4");
    EXPECT_EQ(changeable(), (QList<double> {72.5, 2, 120, 712, 4313, 4714, 6, 6}));
    p.clearProperties();
    EXPECT_EQ(written(),
        "AverageWorkDayHours TimeIdle TimeSnooze TimeNotificationDismiss TimeNotificationDismissOnAction "
        "WeightDefault TablePositionOffset TablePositionOffsetDefault NumberOfStandUps "
        "NumberOfStandupsdefault DevicePosition1 DevicePosition2 DevicePosition3 Weight ActivityMode "
        "ActivityGoal "
            + kDefaulted);
    EXPECT_EQ(stored("Version"), "0.9");
    EXPECT_EQ(changeable(), (QList<double> {72.5, 2, 120, 712, 4313, 4714, 6200, 0})) << "the known stays";
    for (const auto& [key, has] : {std::pair("DevicePosition1", &P::hasDevicePosition1),
             {"DevicePosition2", &P::hasDevicePosition2}, {"DevicePosition3", &P::hasDevicePosition3}}) {
        EXPECT_TRUE((p.*has)());
        P::removeValueForKey(key);
        EXPECT_FALSE((p.*has)());
    }
    for (const double weight : {61.5, 62.5}) {
        p.setWeight(0); // Stands for what is not known.
        stored("Weight") = weight;
        EXPECT_EQ(p.weight(), weight);
    }
}

TEST_F(AppPropertiesTest, comparesTheVersionByTheIdentityOfItsText)
{
    EXPECT_TRUE(properties().version().isNull());
    const QString version = QString::fromLatin1("1.0.1");
    const std::pair<QString, const char*> kVersions[] = {
        {version, "Version"}, {version, ""}, {QString::fromLatin1("1.0.1"), "Version"}, {{}, "Version"}};
    for (const auto& [text, keys] : kVersions) {
        written();
        properties().setVersion(text);
        EXPECT_EQ(written(), keys);
        EXPECT_EQ(stored("Version").isValid(), !text.isNull());
    }
}

TEST_F(AppPropertiesTest, crossesTheNumbersOfTheActivityModesAndCompletesAHalfDoneSetUp)
{
    const std::pair<QJsonValue, int32_t> kCases[] = {{"1", 2}, {"2", 1}, {"3", 0}, {" 1", 0}, {{}, 0}};
    for (const auto& [information, mode] : kCases) {
        SCOPED_TRACE(mode);
        platform.defaults.values = {{"WeightDefault", 77}};
        P& settings = restarted("ActivityModeDefault", information);
        EXPECT_EQ(settings.activityMode(), mode);
        EXPECT_FALSE(stored("ActivityMode").isValid()) << "the fallback stays in memory";
        EXPECT_FALSE(settings.isUserSetupCompleted());
        EXPECT_TRUE(settings.setDefaultUserValues());
        EXPECT_EQ(stored("Weight"), 77.0);
        EXPECT_EQ(settings.isUserSetupCompleted(), mode != 0);
        settings.setActivityGoal(0);
        stored("ActivityGoal") = 0;
        settings.setDefaultUserValues();
        EXPECT_FALSE(properties().isUserSetupCompleted()) << "no default goal has ever been written";
        stored("ActivityGoalDefault") = 75;
        properties().setDefaultUserValues();
        EXPECT_EQ(properties().activityGoal(), 75);
    }
}

/// A stored value as somebody left it in the file, and what the program goes by.
TEST_F(AppPropertiesTest, neverGoesByANumberThatASettingCannotHold)
{
    // Key, least, most, and what counts otherwise.
    const QString kSettings = "AverageWorkDayHours 0.01 24 8,TimeIdle 1 86400 300,TimeSnooze 1 86400 600,"
                              "TimeNotificationDismiss 1 86400 20,TimeNotificationDismissOnAction 1 86400 5,"
                              "ActivityGoal 0 10000 50,WeightDefault 0 999 80,Weight 0 999 80,"
                              "DevicePosition1 0 65535 700,DevicePosition2 0 65535 4300,"
                              "DevicePosition3 0 65535 4700,TablePositionOffset -635000 635000 6200,"
                              "NumberOfStandUps 0 6 0,NumberOfStandupsdefault 1 6 1,"
                              "ActivityMode - - 0,ActivityGoalDefault - - 0,"
                              "TablePositionOffsetDefault - - 0,DevicePositionOffset - - 0,Other - - 0";
    const std::pair<QVariant, QString> kNoNumbers[] = {{"1e400", "1e400"}, {INFINITY, "inf"},
        {-INFINITY, "-inf"}, {"nan", "nan"}, {" 80\nkg", "80 kg"}, {QStringList {"80", "5"}, "80,5"},
        {QString(61, 'x'), QString(60, 'x')}, {QVariantMap {{"a", 1}}, ""}};
    // The default locale has no say: a decimal comma would turn 0.5 into something else.
    QLocale::setDefault(QLocale("de_DE"));
    for (const QString& setting : kSettings.split(',')) {
        SCOPED_TRACE(qPrintable(setting));
        const QString key = setting.section(' ', 0, 0);
        const double otherwise = setting.section(' ', 3).toDouble();
        for (const int limit : {1, 2}) {
            if (setting.contains(" - "))
                continue; // Any number goes.
            const double held = setting.section(' ', limit, limit).toDouble();
            stored(key) = setting.section(' ', limit, limit);
            EXPECT_EQ(P::getDoubleForKey(key), held);
            stored(key) = held + (limit == 1 ? -1 : 1);
            EXPECT_EQ(P::getDoubleForKey(key), otherwise);
        }
        for (const auto& [value, shown] : kNoNumbers) {
            testing::internal::CaptureStderr();
            stored(key) = value;
            for (int i = 0; i < 2; ++i)
                EXPECT_EQ(P::getDoubleForKey(key), otherwise);
            EXPECT_EQ(QString::fromStdString(testing::internal::GetCapturedStderr()).section("] ", 1),
                QString("The setting \"%1\" cannot hold \"%2\"; %3 counts instead.\n")
                    .arg(key, shown)
                    .arg(otherwise))
                << "said once";
        }
        platform.restart();
        properties();
        EXPECT_TRUE(stored(key) == otherwise || key == "Other") << "the next start mends the file";
        stored(key) = QVariant();
        EXPECT_EQ(P::getDoubleForKey(key), 0) << "what is missing";
    }
    QLocale::setDefault(QLocale::system());
}

TEST_F(AppPropertiesTest, givesACountThatMayDivideReadsAddressesAndMakesOneHub)
{
    const struct {
        QVariant count, defaultCount;
        int32_t divisor;
    } kCases[] = {{4, 3, 4}, {QVariant(), 3, 3}, {0, 3.9, 3}, {0, QVariant(), 1}, {1, 3, 1}};
    properties().startZelvoController();
    for (const auto& [count, defaultCount, divisor] : kCases) {
        stored("NumberOfStandUps") = count;
        stored("NumberOfStandupsdefault") = defaultCount;
        EXPECT_EQ(properties().standUpsForDivision(), divisor) << qPrintable(count.toString());
    }
    for (const QString url : {"https://zelvo.example/a?b=c", "", "http://[::1", "a b"})
        EXPECT_EQ(restarted("InfoUrl", url).infoUrl().toString(), url.startsWith("https") ? url : QString());
    EXPECT_EQ(properties().errorUrl().path() + properties().videoUrl().path(), "/errors/video");
    int made = 0;
    properties().setZelvoControllerFactory([&made] { return ++made, std::make_shared<ZelvoController>(); });
    for (int i = 0; i < 2; ++i)
        properties().startZelvoController();
    EXPECT_EQ(made, 1);
    EXPECT_TRUE(properties().zelvoController());
}

TEST_F(AppPropertiesTest, everyKindOfValueHasAPrimitiveAndWithoutAStoreNoneDoesAnything)
{
    for (const bool hasStore : {true, false}) {
        const ProcessServices process(
            {&platform.runLoop, &platform.bundle, hasStore ? &platform.defaults : nullptr});
        P::setString("a;b", "String");
        P::setInteger(-7, "Integer");
        P::setDouble(2.5, "Double");
        P::setBool(true, "Bool");
        P::setArray({1, "x"}, "Array");
        P::setDict({{"a", 1}}, "Dict");
        EXPECT_EQ(P::getStringForKey("String"), hasStore ? "a;b" : "");
        EXPECT_EQ(P::getIntegerForkey("Integer"), hasStore ? -7 : 0);
        EXPECT_TRUE(P::getDoubleForKey("Double") == 2.5 || !hasStore);
        EXPECT_EQ(std::isnan(P::getDoubleForKey("Double")), !hasStore);
        EXPECT_EQ(P::getBoolForKey("Bool"), hasStore);
        EXPECT_EQ(P::getArrayForKey("Array"), hasStore ? QVariantList({1, "x"}) : QVariantList());
        EXPECT_EQ(P::getDictForKey("Dict"), hasStore ? QVariantMap({{"a", 1}}) : QVariantMap());
        stored("Integer") = -1e300;
        EXPECT_EQ(P::getIntegerForkey("Integer"), hasStore ? INT64_MIN : 0);
        P::removeValueForKey("Bool");
        EXPECT_EQ(written(), hasStore ? "String Integer Double Bool Array Dict Bool" : "");
        EXPECT_EQ(platform.defaults.flushes, 7);
    }
}
