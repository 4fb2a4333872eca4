#include "data/AppProperties.h"

#include "data/Saturation.h"
#include "platform/Bundle.h"
#include "platform/Log.h"
#include "platform/ProcessServices.h"
#include "platform/UserDefaults.h"

#include <QSet>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {
/// The keys of the settings file. "NumberOfStandupsdefault" differs in its letters' case from
/// "NumberOfStandUps": the files that users already have say so.
namespace Key {
const QString averageWorkDayHours = QStringLiteral("AverageWorkDayHours");
const QString timeIdle = QStringLiteral("TimeIdle");
const QString timeSnooze = QStringLiteral("TimeSnooze");
const QString timeNotificationDismiss = QStringLiteral("TimeNotificationDismiss");
const QString timeNotificationDismissOnAction = QStringLiteral("TimeNotificationDismissOnAction");
const QString activityGoal = QStringLiteral("ActivityGoal");
const QString activityGoalDefault = QStringLiteral("ActivityGoalDefault");
const QString weightDefault = QStringLiteral("WeightDefault");
const QString weight = QStringLiteral("Weight");
const QString devicePosition1 = QStringLiteral("DevicePosition1");
const QString devicePosition2 = QStringLiteral("DevicePosition2");
const QString devicePosition3 = QStringLiteral("DevicePosition3");
const QString devicePositionOffset = QStringLiteral("DevicePositionOffset");
const QString tablePositionOffset = QStringLiteral("TablePositionOffset");
const QString tablePositionOffsetDefault = QStringLiteral("TablePositionOffsetDefault");
const QString numberOfStandUps = QStringLiteral("NumberOfStandUps");
const QString numberOfStandUpsDefault = QStringLiteral("NumberOfStandupsdefault");
const QString activityMode = QStringLiteral("ActivityMode");
const QString version = QStringLiteral("Version");
}

constexpr double kSecondsPerDay = 86400;
constexpr double kHighestRawHeight = 65535;
/// The height field takes 2500, and inches are the larger unit: 0.1 mm.
constexpr double kLargestOffset = 2500 * 254.0;

/// What a number setting may hold, and what counts where it holds anything else.
const struct Setting {
    QString key;
    double least;
    double most;
    std::optional<double> otherwise; ///< the information key of the same name, where none is given
} kSettings[] = {
    {Key::averageWorkDayHours, 0.01, 24, 8},
    {Key::timeIdle, 1, kSecondsPerDay, 300},
    {Key::timeSnooze, 1, kSecondsPerDay, 600},
    {Key::timeNotificationDismiss, 1, kSecondsPerDay, 20},
    {Key::timeNotificationDismissOnAction, 1, kSecondsPerDay, 5},
    {Key::activityGoal, 0, 10000, 50},
    {Key::weightDefault, 0, 999, 80},
    {Key::weight, 0, 999, 80},
    {Key::devicePosition1, 0, kHighestRawHeight, {}},
    {Key::devicePosition2, 0, kHighestRawHeight, {}},
    {Key::devicePosition3, 0, kHighestRawHeight, {}},
    {Key::tablePositionOffset, -kLargestOffset, kLargestOffset, {}},
    {Key::numberOfStandUps, 0, 6, 0}, // 0 stands for the default count.
    {Key::numberOfStandUpsDefault, 1, 6, 1},
};

/// A setting may be read every second; what is wrong with it is said once.
struct ReportedKeys {
    QSet<QString> keys;
};

void reportOnce(const QString& key, const QString& message)
{
    QSet<QString>& reported = ProcessServices::installed().shared<ReportedKeys>().keys;
    if (reported.contains(key))
        return;
    reported.insert(key);
    Log::line(message);
}

QString shownValue(const QVariant& value)
{
    constexpr qsizetype kMostCharacters = 60;
    const QString text = value.canConvert<QStringList>() && value.userType() != QMetaType::QString
        ? value.toStringList().join(QLatin1Char(','))
        : value.toString();
    return text.simplified().left(kMostCharacters);
}

/// The stored value as a number, or NaN when it is none. A text is read as in the C locale whatever the
/// user's: the settings file does not change with the language.
double numberIn(const QVariant& value)
{
    bool isNumber = false;
    const double number = value.userType() == QMetaType::QString ? value.toString().toDouble(&isNumber)
                                                                 : value.toDouble(&isNumber);
    return isNumber ? number : std::numeric_limits<double>::quiet_NaN();
}

/// What the program goes by: the stored number, or another one where a damaged file or a slip of the hand
/// left one that the setting cannot hold. A missing value is 0.
double storedNumber(const QString& key, const QVariant& value)
{
    if (!value.isValid())
        return 0;
    const double number = numberIn(value);
    const auto setting = std::find_if(std::begin(kSettings), std::end(kSettings),
        [&](const Setting& candidate) { return candidate.key == key; });
    const bool isLimited = setting != std::end(kSettings);
    if (isLimited ? number >= setting->least && number <= setting->most : std::isfinite(number))
        return number;
    const double otherwise = isLimited ? setting->otherwise.value_or(Bundle::main().numberValue(key)) : 0;
    reportOnce(key,
        QStringLiteral("The setting \"%1\" cannot hold \"%2\"; %3 counts instead.")
            .arg(key, shownValue(value))
            .arg(otherwise));
    return otherwise;
}

int32_t storedInt32(const QString& key)
{
    using Limits = std::numeric_limits<int32_t>;
    return int32_t(std::clamp<int64_t>(AppProperties::getIntegerForkey(key), Limits::min(), Limits::max()));
}

void writeNumber(double value, const QString& key)
{
    AppProperties::setDouble(value, key);
}

void writeNumber(int32_t value, const QString& key)
{
    AppProperties::setInteger(value, key);
}

/// A value equal to the cached one is not written again: each write costs a flush to disk.
template <typename Number>
void writeWhenDifferent(Number& cached, Number value, const QString& key)
{
    if (value == cached)
        return;
    writeNumber(value, key);
    cached = value;
}

void write(const QString& key, const QVariant& value)
{
    UserDefaults* defaults = UserDefaults::standard();
    if (!defaults)
        return;
    defaults->setObject(key, value);
    defaults->synchronize();
}

QVariant storedObject(const QString& key)
{
    const UserDefaults* defaults = UserDefaults::standard();
    return defaults ? defaults->object(key) : QVariant();
}

/// A number that its setting cannot hold gives way to what counts in its place, so that the file says what
/// the program does.
void mendStoredNumbers()
{
    for (const Setting& setting : kSettings) {
        const QVariant stored = storedObject(setting.key);
        const double counts = storedNumber(setting.key, stored);
        if (stored.isValid() && numberIn(stored) != counts)
            writeNumber(counts, setting.key);
    }
}

std::optional<QString> informationText(const Bundle& bundle, const QString& key)
{
    std::optional<QString> text = bundle.stringValue(key);
    if (!text)
        reportOnce(key, QStringLiteral("The program's information key \"%1\" is missing.").arg(key));
    return text;
}

int32_t informationInteger(const Bundle& bundle, const QString& key)
{
    return informationText(bundle, key) ? saturated<int32_t>(bundle.numberValue(key)) : 0;
}

QUrl informationUrl(const Bundle& bundle, const QString& key)
{
    const QUrl url(informationText(bundle, key).value_or(QString()), QUrl::StrictMode);
    return url.isValid() ? url : QUrl();
}
}

AppProperties& AppProperties::instance()
{
    return ProcessServices::installed().shared<AppProperties>();
}

AppProperties::AppProperties()
{
    mendStoredNumbers();
    setDefaultAppSettings();
}

AppProperties::~AppProperties() = default;

void AppProperties::setZelvoControllerFactory(ZelvoControllerFactory factory)
{
    m_zelvoControllerFactory = std::move(factory);
}

void AppProperties::startZelvoController()
{
    if (!m_zelvoController && m_zelvoControllerFactory)
        m_zelvoController = m_zelvoControllerFactory();
}

void AppProperties::setZelvoController(std::shared_ptr<ZelvoController> controller)
{
    m_zelvoController = std::move(controller);
}

void AppProperties::setDefaultAppSettings()
{
    setDefaultDouble(8.0, Key::averageWorkDayHours);
    setDefaultDouble(300.0, Key::timeIdle);
    setDefaultDouble(600.0, Key::timeSnooze);
    setDefaultDouble(20.0, Key::timeNotificationDismiss);
    setDefaultDouble(5.0, Key::timeNotificationDismissOnAction);
    setDefaultDouble(50.0, Key::activityGoal);
    setDefaultDouble(80.0, Key::weightDefault);
    for (const QString& key :
        {Key::devicePosition1, Key::devicePosition2, Key::devicePosition3, Key::tablePositionOffset})
        setDefaultInteger(informationInteger(mainBundle(), key), key);
    setDefaultInteger(1, Key::numberOfStandUpsDefault);
}

void AppProperties::clearProperties()
{
    for (const QString& key : {Key::averageWorkDayHours, Key::timeIdle, Key::timeSnooze,
             Key::timeNotificationDismiss, Key::timeNotificationDismissOnAction, Key::weightDefault,
             Key::tablePositionOffset, Key::tablePositionOffsetDefault, Key::numberOfStandUps,
             Key::numberOfStandUpsDefault, Key::devicePosition1, Key::devicePosition2, Key::devicePosition3,
             Key::weight, Key::activityMode, Key::activityGoal})
        removeValueForKey(key);
    setDefaultAppSettings();
}

bool AppProperties::isUserSetupCompleted()
{
    return weight() > 0 && activityMode() != 0 && activityGoal() > 0;
}

bool AppProperties::setDefaultUserValues()
{
    if (weight() <= 0)
        setWeight(weightDefault());
    if (activityMode() == 0)
        setActivityMode(activityModeDefault());
    if (activityGoal() == 0)
        setActivityGoal(activitGoalDefault());
    return true;
}

bool AppProperties::hasDevicePosition1() const
{
    return hasValueForKey(Key::devicePosition1);
}

bool AppProperties::hasDevicePosition2() const
{
    return hasValueForKey(Key::devicePosition2);
}

bool AppProperties::hasDevicePosition3() const
{
    return hasValueForKey(Key::devicePosition3);
}

bool AppProperties::isMetric() const
{
    // British desks are sold in centimetres: only the American system counts as "not metric".
    return bundle().locale().measurementSystem() != QLocale::ImperialUSSystem;
}

QString AppProperties::bundleName() const
{
    return informationText(bundle(), QStringLiteral("CFBundleName")).value_or(QString());
}

QString AppProperties::bundleVersion() const
{
    return informationText(bundle(), QStringLiteral("CFBundleShortVersionString")).value_or(QString());
}

QString AppProperties::zelvoFontName() const
{
    return informationText(bundle(), QStringLiteral("ZelvoFontName")).value_or(QString());
}

QString AppProperties::zelvoColor1() const
{
    return informationText(bundle(), QStringLiteral("ZelvoColor1")).value_or(QString());
}

QUrl AppProperties::errorUrl() const
{
    return informationUrl(bundle(), QStringLiteral("ErrorUrl"));
}

QUrl AppProperties::infoUrl() const
{
    return informationUrl(bundle(), QStringLiteral("InfoUrl"));
}

QUrl AppProperties::videoUrl() const
{
    return informationUrl(bundle(), QStringLiteral("VideoUrl"));
}

QString AppProperties::version()
{
    if (m_version.isNull())
        m_version = getStringForKey(Key::version);
    return m_version;
}

void AppProperties::setVersion(const QString& version)
{
    // Compared by identity, as no other setting is: the same text in another string is written again, so that
    // an upgrade always leaves its mark on disk.
    if (version.constData() == m_version.constData() && version.isNull() == m_version.isNull())
        return;
    setString(version, Key::version);
    m_version = version;
}

double AppProperties::timeIdle() const
{
    return getDoubleForKey(Key::timeIdle);
}

double AppProperties::timeSnooze() const
{
    return getDoubleForKey(Key::timeSnooze);
}

double AppProperties::timeNotificationDismiss() const
{
    return getDoubleForKey(Key::timeNotificationDismiss);
}

double AppProperties::timeNotificationDismissOnAction() const
{
    return getDoubleForKey(Key::timeNotificationDismissOnAction);
}

double AppProperties::averageWorkDayHours() const
{
    return getDoubleForKey(Key::averageWorkDayHours);
}

int32_t AppProperties::activityModeDefault() const
{
    // Crossed on purpose: the information key numbers the modes the other way round than the program does.
    const QString mode = informationText(bundle(), QStringLiteral("ActivityModeDefault")).value_or(QString());
    if (mode == QStringLiteral("1"))
        return 2;
    return mode == QStringLiteral("2") ? 1 : 0;
}

double AppProperties::activitGoalDefault() const
{
    return getDoubleForKey(Key::activityGoalDefault);
}

double AppProperties::weightDefault() const
{
    return getDoubleForKey(Key::weightDefault);
}

double AppProperties::numberOfStandUpsDefault() const
{
    return getDoubleForKey(Key::numberOfStandUpsDefault);
}

double AppProperties::weight()
{
    if (m_weight == 0)
        m_weight = getDoubleForKey(Key::weight);
    return m_weight;
}

void AppProperties::setWeight(double weight)
{
    writeWhenDifferent(m_weight, weight, Key::weight);
}

int32_t AppProperties::activityMode()
{
    if (m_activityMode == 0)
        m_activityMode = storedInt32(Key::activityMode);
    if (m_activityMode == 0)
        m_activityMode = activityModeDefault();
    return m_activityMode;
}

void AppProperties::setActivityMode(int32_t activityMode)
{
    writeWhenDifferent(m_activityMode, activityMode, Key::activityMode);
}

double AppProperties::activityGoal()
{
    if (m_activityGoal == 0)
        m_activityGoal = getDoubleForKey(Key::activityGoal);
    return m_activityGoal;
}

void AppProperties::setActivityGoal(double activityGoal)
{
    writeWhenDifferent(m_activityGoal, activityGoal, Key::activityGoal);
}

int32_t AppProperties::devicePosition1()
{
    if (m_devicePosition1 == 0)
        m_devicePosition1 = storedInt32(Key::devicePosition1);
    return m_devicePosition1;
}

void AppProperties::setDevicePosition1(int32_t position)
{
    writeWhenDifferent(m_devicePosition1, position, Key::devicePosition1);
}

int32_t AppProperties::devicePosition2()
{
    if (m_devicePosition2 == 0)
        m_devicePosition2 = storedInt32(Key::devicePosition2);
    return m_devicePosition2;
}

void AppProperties::setDevicePosition2(int32_t position)
{
    writeWhenDifferent(m_devicePosition2, position, Key::devicePosition2);
}

int32_t AppProperties::devicePosition3()
{
    if (m_devicePosition3 == 0)
        m_devicePosition3 = storedInt32(Key::devicePosition3);
    return m_devicePosition3;
}

void AppProperties::setDevicePosition3(int32_t position)
{
    writeWhenDifferent(m_devicePosition3, position, Key::devicePosition3);
}

int32_t AppProperties::tablePositionOffset()
{
    m_tablePositionOffset = storedInt32(Key::tablePositionOffset);
    return m_tablePositionOffset;
}

void AppProperties::setTablePositionOffset(int32_t offset)
{
    writeWhenDifferent(m_tablePositionOffset, offset, Key::tablePositionOffset);
}

int32_t AppProperties::numberOfStandUps()
{
    m_numberOfStandUps = storedInt32(Key::numberOfStandUps);
    return m_numberOfStandUps;
}

void AppProperties::setNumberOfStandUps(int32_t numberOfStandUps)
{
    writeWhenDifferent(m_numberOfStandUps, numberOfStandUps, Key::numberOfStandUps);
}

int32_t AppProperties::standUpsForDivision()
{
    const int32_t stored = numberOfStandUps();
    return stored >= 1 ? stored : std::max(1, saturated<int32_t>(numberOfStandUpsDefault()));
}

Bundle& AppProperties::mainBundle()
{
    if (!m_mainBundle)
        m_mainBundle = &Bundle::main();
    return *m_mainBundle;
}

const Bundle& AppProperties::bundle() const
{
    return m_mainBundle ? *m_mainBundle : Bundle::main();
}

double AppProperties::tablePositionDefault() const
{
    return getDoubleForKey(Key::tablePositionOffsetDefault);
}

int32_t AppProperties::devicePositionOffset() const
{
    return saturated<int32_t>(getDoubleForKey(Key::devicePositionOffset));
}

QString AppProperties::getStringForKey(const QString& key)
{
    return storedObject(key).toString();
}

int64_t AppProperties::getIntegerForkey(const QString& key)
{
    return saturated<int64_t>(storedNumber(key, storedObject(key)));
}

double AppProperties::getDoubleForKey(const QString& key)
{
    if (!UserDefaults::standard())
        return std::numeric_limits<double>::quiet_NaN();
    return storedNumber(key, storedObject(key));
}

QVariantMap AppProperties::getDictForKey(const QString& key)
{
    return storedObject(key).toMap();
}

QVariantList AppProperties::getArrayForKey(const QString& key)
{
    return storedObject(key).toList();
}

bool AppProperties::getBoolForKey(const QString& key)
{
    // The settings file holds texts: "true" and "false" are what it makes of a truth value.
    const QVariant value = storedObject(key);
    const QString text = value.toString();
    if (text == QStringLiteral("true") || text == QStringLiteral("false"))
        return text == QStringLiteral("true");
    return storedNumber(key, value) != 0;
}

void AppProperties::setString(const QString& string, const QString& key)
{
    // Storing no string is the same as removing the value.
    if (string.isNull())
        removeValueForKey(key);
    else
        write(key, string);
}

void AppProperties::setInteger(int64_t integer, const QString& key)
{
    write(key, QVariant::fromValue<qlonglong>(integer));
}

void AppProperties::setDouble(double value, const QString& key)
{
    write(key, value);
}

void AppProperties::setDict(const QVariantMap& dict, const QString& key)
{
    write(key, dict);
}

void AppProperties::setArray(const QVariantList& array, const QString& key)
{
    write(key, array);
}

void AppProperties::setBool(bool value, const QString& key)
{
    write(key, value);
}

void AppProperties::removeValueForKey(const QString& key)
{
    UserDefaults* defaults = UserDefaults::standard();
    if (!defaults)
        return;
    defaults->removeObject(key);
    defaults->synchronize();
}

bool AppProperties::hasValueForKey(const QString& key)
{
    return storedObject(key).isValid();
}

void AppProperties::setDefaultDouble(double value, const QString& key)
{
    if (!hasValueForKey(key))
        setDouble(value, key);
}

void AppProperties::setDefaultInteger(int64_t integer, const QString& key)
{
    if (!hasValueForKey(key))
        setInteger(integer, key);
}
