#include "data/AppProperties.h"

#include "fakes/Files.h"
#include "fakes/TestPlatform.h"

#include <cmath>
#include <utility>

namespace {
using P = AppProperties;
using Numbers = QList<double>;

/// What a start writes where it is missing.
const QString kDefaulted = "AverageWorkDayHours TimeIdle TimeSnooze TimeNotificationDismiss "
                           "TimeNotificationDismissOnAction ActivityGoal WeightDefault DevicePosition1 "
                           "DevicePosition2 DevicePosition3 TablePositionOffset NumberOfStandupsdefault";

struct AppPropertiesTest : testing::Test {
    QVariant& stored(const QString& key) { return platform.defaults.values[key]; }
    /// The keys written since the last call.
    QString written() { return std::exchange(platform.defaults.writes, {}).join(' '); }

    TestPlatform platform;
};

QJsonObject with(const QString& informationKey, const QJsonValue& value)
{
    QJsonObject information = TestPlatform::defaultInformation();
    information.insert(informationKey, value);
    return information;
}
}

TEST_F(AppPropertiesTest, writesTheMissingDefaultsInOrderAndFlushesEach)
{
    stored("TimeIdle") = 42.0;
    stored("DevicePosition2") = 0; // A stored 0 is a value.
    P::instance();
    EXPECT_EQ(platform.defaults.flushes, 10);
    EXPECT_EQ(written(), QString(kDefaulted).remove(" TimeIdle").remove(" DevicePosition2"));
    const TestPlatform other(with("DevicePosition3", "4711.9"));
    EXPECT_EQ(P::instance().devicePosition3(), 4711);
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
    P& p = P::instance();
    EXPECT_EQ((Numbers {p.averageWorkDayHours(), p.timeIdle(), p.timeSnooze(), p.timeNotificationDismiss(),
                  p.timeNotificationDismissOnAction(), p.activitGoalDefault(), p.weightDefault(),
                  p.numberOfStandUpsDefault(), p.tablePositionDefault(), double(p.devicePositionOffset()),
                  p.tablePositionOffsetDefault()}),
        (Numbers {7.5, 301, 602, 23, 4, 75, 77, 2, 12.5, -12, 0}));
    const auto changeable = [&p] {
        return Numbers {p.weight(), double(p.activityMode()), p.activityGoal(), double(p.devicePosition1()),
            double(p.devicePosition2()), double(p.devicePosition3()), double(p.tablePositionOffset()),
            double(p.numberOfStandUps())};
    };
    EXPECT_EQ(changeable(), (Numbers {71.5, 1, 150, 711, 4312, 4713, -620, 3}));
    EXPECT_EQ(written(), "");
    for (int i = 0; i < 2; ++i)
        p.setWeight(72.5);
    p.setDevicePosition1(712);
    p.setDevicePosition2(4313);
    p.setTablePositionOffset(-630);
    EXPECT_EQ(written(), "Weight DevicePosition1 DevicePosition2 TablePositionOffset")
        << "what differs from the known value is written";
    EXPECT_EQ(std::exchange(stored("Weight"), 66), 72.5);
    EXPECT_EQ(std::exchange(stored("TablePositionOffset"), 7), -630);
    EXPECT_EQ(changeable(), (Numbers {72.5, 1, 150, 712, 4313, 4713, 7, 3})) << "the last two are read again";
    P::removeValueForKey("DevicePosition1");
    EXPECT_TRUE(!p.hasDevicePosition1() && p.hasDevicePosition2() && p.hasDevicePosition3());
    written();
    p.clearProperties();
    EXPECT_EQ(written(),
        "AverageWorkDayHours TimeIdle TimeSnooze TimeNotificationDismiss TimeNotificationDismissOnAction "
        "WeightDefault TablePositionOffset TablePositionOffsetDefault NumberOfStandUps "
        "NumberOfStandupsdefault DevicePosition1 DevicePosition2 DevicePosition3 Weight ActivityMode "
        "ActivityGoal "
            + kDefaulted);
    const QString version = p.version();
    written();
    p.setVersion(version);
    EXPECT_EQ(version + written(), "0.9");
    p.setVersion(QString::fromLatin1("0.9"));
    EXPECT_EQ(written(), "Version") << "the same text in another string is written";
    EXPECT_EQ(changeable(), (Numbers {72.5, 1, 150, 712, 4313, 4713, 6200, 0})) << "the known stays";
}

TEST(AppProperties, crossesTheNumbersOfTheActivityModesAndCompletesAHalfDoneSetUp)
{
    const std::pair<QJsonValue, int32_t> kCases[] = {{"1", 2}, {"2", 1}, {"3", 0}, {{}, 0}};
    for (const auto& [information, mode] : kCases) {
        TestPlatform platform(with("ActivityModeDefault", information));
        platform.defaults.values = {{"WeightDefault", 77}, {"ActivityGoal", 0}};
        P& p = P::instance();
        EXPECT_EQ(p.activityMode(), mode);
        EXPECT_TRUE(p.setDefaultUserValues());
        EXPECT_EQ(platform.defaults.values["Weight"], 77.0);
        EXPECT_FALSE(p.isUserSetupCompleted()) << "no default goal has ever been written";
        platform.defaults.values["ActivityGoalDefault"] = 75;
        p.setDefaultUserValues();
        EXPECT_EQ(p.isUserSetupCompleted(), mode != 0);
        p.setWeight(0);
        EXPECT_FALSE(p.isUserSetupCompleted());
        p.setActivityMode(3 - mode);
        p.setDefaultUserValues();
        EXPECT_EQ(p.activityMode(), 3 - mode) << "what was chosen stays";
    }
}

/// A stored value as somebody left it in the file, and what the program goes by.
TEST_F(AppPropertiesTest, neverGoesByANumberThatASettingCannotHold)
{
    // Key, least, most, and what counts otherwise.
    const QString kSettings =
        "AverageWorkDayHours 0.01 24 8,TimeIdle 0.1 2073600 300,TimeSnooze 0.1 2073600 600,"
        "TimeNotificationDismiss 0.1 2073600 20,"
        "TimeNotificationDismissOnAction 0.1 2073600 5,"
        "ActivityGoal 0 10000 50,WeightDefault 0 999 80,Weight 0 999 80,"
        "DevicePosition1 0 65535 700,DevicePosition2 0 65535 4300,"
        "DevicePosition3 0 65535 4700,TablePositionOffset -635000 635000 6200,"
        "NumberOfStandUps 0 60 0,NumberOfStandupsdefault 1 60 1,Appearance 0 2 0";
    P::instance(); // Writes the defaults.
    // The default locale has no say: a decimal comma would turn 0.5 into something else.
    QLocale::setDefault(QLocale("de_DE"));
    for (const QString& setting : kSettings.split(',')) {
        const QStringList words = setting.split(' ');
        EXPECT_TRUE(stored(words[0]) == words[3].toDouble() || !kDefaulted.split(' ').contains(words[0]));
        for (const int limit : {1, 2}) {
            SCOPED_TRACE(qPrintable(setting));
            QVariant& value = stored(words[0]);
            value = words[limit];
            EXPECT_EQ(P::getDoubleForKey(words[0]), words[limit].toDouble());
            value = words[limit].toDouble() + (limit == 1 ? -1 : 1);
            EXPECT_EQ(P::getDoubleForKey(words[0]), words[3].toDouble());
            platform.restart();
            P::instance();
            EXPECT_EQ(value, words[3].toDouble()) << "the next start mends the file";
            value = QVariant();
            EXPECT_EQ(P::getDoubleForKey(words[0]), 0) << "what is missing";
        }
    }
    const std::pair<QVariant, QString> kNoNumbers[] = {{"1e400", "1e400"}, {INFINITY, "inf"},
        {-INFINITY, "-inf"}, {"nan", "nan"}, {" 80\nkg", "80 kg"}, {QStringList {"80", "5"}, "80,5"},
        {QString(61, 'x'), QString(60, 'x')}, {QVariantMap {{"a", 1}}, ""}};
    for (const QString key : {"Weight", "ActivityMode", "ActivityGoalDefault", "TablePositionOffsetDefault",
             "DevicePositionOffset", "Other"}) {
        const QString otherwise = key == "Weight" ? "80" : "0";
        for (const auto& [value, shown] : kNoNumbers) {
            stored(key) = value;
            const auto read = [&] { EXPECT_EQ(QString::number(P::getDoubleForKey(key)), otherwise); };
            EXPECT_EQ(logOf(read) + logOf(read), // Said once.
                QString("The setting \"%1\" cannot hold \"%2\"; %3 counts instead.\n")
                    .arg(key, shown, otherwise));
        }
    }
    QLocale::setDefault(QLocale::system());
}

TEST_F(AppPropertiesTest, givesACountThatMayDivideAndReadsAddresses)
{
    const std::tuple<QVariant, QVariant, int32_t> kCases[] = {
        {4, 3, 4}, {QVariant(), 3, 3}, {0, 3.9, 3}, {0, QVariant(), 1}, {1, 3, 1}};
    for (const auto& [count, defaultCount, divisor] : kCases) {
        stored("NumberOfStandUps") = count;
        stored("NumberOfStandupsdefault") = defaultCount;
        EXPECT_EQ(P::instance().standUpsForDivision(), divisor) << qPrintable(count.toString());
    }
    stored("Other") = -1e300;
    EXPECT_EQ(P::getIntegerForkey("Other"), INT64_MIN);
    for (const QString url : {"https://zelvo.example/a?b=c", "", "http://[::1", "a b"}) {
        const TestPlatform other(with("InfoUrl", url));
        EXPECT_EQ(P::instance().infoUrl().toString(), url.startsWith("https") ? url : QString());
    }
    EXPECT_EQ(P::instance().errorUrl().path() + P::instance().videoUrl().path(), "/errors/video");
}

TEST_F(AppPropertiesTest, keepsValuesOfEveryKindAndDoesWithoutAStore)
{
    P::setDict({{"a", 1}}, "Dict");
    P::setArray({"b", 2}, "Array");
    P::setBool(true, "Bool");
    EXPECT_EQ(P::getDictForKey("Dict"), (QVariantMap {{"a", 1}}));
    EXPECT_EQ(P::getArrayForKey("Array"), (QVariantList {"b", 2}));
    EXPECT_TRUE(P::getBoolForKey("Bool") && !P::getBoolForKey("Other"));
    const ProcessServices withoutSettings({&platform.runLoop, &platform.bundle});
    P::instance().setWeight(71);
    EXPECT_TRUE(std::isnan(P::getDoubleForKey("Weight")) && P::getStringForKey("Version").isNull());
}
