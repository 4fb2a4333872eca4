#include "data/AppProperties.h"

#include "data/Setting.h"
#include "platform/Bundle.h"
#include "platform/ProcessServices.h"
#include "platform/UserDefaults.h"

#include <QMap>

#include <algorithm>
#include <limits>

AppProperties& AppProperties::instance()
{
    return ProcessServices::installed().shared<AppProperties>();
}

AppProperties::AppProperties()
{
    mendNumbers();
    setDefaultAppSettings();
}

AppProperties::~AppProperties() = default;

/// A number that its setting cannot be gives way to what counts in its place, so that the file says what the
/// program does.
void AppProperties::mendNumbers()
{
    for (const Setting& setting : Setting::all()) {
        if (hasValueForKey(setting.key) && !setting.canBe(stored(setting.key)))
            setDouble(getDoubleForKey(setting.key), setting.key);
    }
}

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
    for (const Setting& setting : Setting::all()) {
        if (setting.start == Setting::NotWritten)
            continue;
        const double number = setting.fallback(mainBundle());
        if (setting.type == Setting::Integer)
            setDefaultInteger(saturated<int64_t>(number), setting.key);
        else
            setDefaultDouble(number, setting.key);
    }
}

void AppProperties::clearProperties()
{
    QMap<int, QString> keys;
    for (const Setting& setting : Setting::all())
        keys.insert(setting.placeInReset, setting.key);
    keys.remove(0);
    for (const QString& key : keys)
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

bool AppProperties::isMetric() const
{
    // British desks are sold in centimetres: only the American system counts as "not metric".
    return mainBundle().locale().measurementSystem() != QLocale::ImperialUSSystem;
}

QString AppProperties::version()
{
    if (m_version.isNull())
        m_version = getStringForKey(QStringLiteral("Version"));
    return m_version;
}

void AppProperties::setVersion(const QString& version)
{
    // Compared by identity, as no other setting is: the same text in another string is written again, so that
    // an upgrade always leaves its mark on disk.
    if (version.constData() == m_version.constData() && version.isNull() == m_version.isNull())
        return;
    setString(version, QStringLiteral("Version"));
    m_version = version;
}

int32_t AppProperties::activityModeDefault() const
{
    // Crossed on purpose: the information key numbers the modes the other way round than the program does.
    const QString mode = informationText(QStringLiteral("ActivityModeDefault"));
    if (mode == QStringLiteral("1"))
        return 2;
    return mode == QStringLiteral("2") ? 1 : 0;
}

int32_t AppProperties::activityMode()
{
    if (m_activityMode.value() == 0)
        m_activityMode.assume(activityModeDefault());
    return m_activityMode.value();
}

int32_t AppProperties::standUpsForDivision()
{
    const int32_t stored = numberOfStandUps();
    return stored >= 1 ? stored : std::max(1, saturated<int32_t>(numberOfStandUpsDefault()));
}

Bundle& AppProperties::mainBundle() const
{
    return m_mainBundle ? *m_mainBundle : Bundle::main();
}

double AppProperties::getDoubleForKey(const QString& key)
{
    if (!UserDefaults::standard())
        return std::numeric_limits<double>::quiet_NaN();
    const QVariant value = stored(key);
    return value.isValid() ? Setting::forKey(key).number(value, Bundle::main()) : 0;
}

void AppProperties::setString(const QString& string, const QString& key)
{
    write(string.isNull() ? QVariant() : string, key);
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

QString AppProperties::informationText(const QString& key) const
{
    return mainBundle().stringValue(key).value_or(QString());
}

QUrl AppProperties::informationUrl(const QString& key) const
{
    const QUrl url(informationText(key), QUrl::StrictMode);
    return url.isValid() ? url : QUrl();
}

QVariant AppProperties::stored(const QString& key)
{
    const UserDefaults* defaults = UserDefaults::standard();
    return defaults ? defaults->object(key) : QVariant();
}

void AppProperties::write(const QVariant& value, const QString& key)
{
    UserDefaults* defaults = UserDefaults::standard();
    if (!defaults)
        return;
    if (value.isValid())
        defaults->setObject(key, value);
    else
        defaults->removeObject(key);
    defaults->synchronize();
}
