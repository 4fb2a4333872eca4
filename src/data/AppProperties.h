#pragma once

#include "data/Saturation.h"

#include <QString>
#include <QUrl>
#include <QVariantMap>

#include <cstdint>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

class Bundle;
class ZelvoController;

/// The one place where the program keeps its settings, over UserDefaults::standard() and Bundle::main().
/// Missing settings get their defaults when the instance is made; every write is flushed to disk at once.
/// A number that its setting cannot hold (no number at all, a negative time, a hundred stand-ups) is never
/// handed out: the default counts instead, and the log names it once. Sums of raw heights belong in 64 bits,
/// and "data/Saturation.h" turns any number into an integer.
class AppProperties {
public:
    /// The one of the ProcessServices.
    static AppProperties& instance();

    AppProperties(const AppProperties&) = delete;
    AppProperties& operator=(const AppProperties&) = delete;
    ~AppProperties();

    /// How the hub is made; handed in by the composition root, because the hub lives above this folder.
    using ZelvoControllerFactory = std::function<std::shared_ptr<ZelvoController>()>;
    void setZelvoControllerFactory(ZelvoControllerFactory factory);

    /// Makes the one desk hub; does nothing when it exists.
    void startZelvoController();
    void setDefaultAppSettings();
    /// Back to the defaults, except for "Version" and "Appearance". Values cached in this process stay until
    /// the next set.
    void clearProperties();
    [[nodiscard]] bool isUserSetupCompleted();
    /// Completes a half-done set-up with the defaults. Always answers true.
    bool setDefaultUserValues();
    [[nodiscard]] bool hasDevicePosition1() const { return m_devicePosition1.isStored(); }
    [[nodiscard]] bool hasDevicePosition2() const { return m_devicePosition2.isStored(); }
    [[nodiscard]] bool hasDevicePosition3() const { return m_devicePosition3.isStored(); }

    /// The desk hub; null before startZelvoController().
    [[nodiscard]] const std::shared_ptr<ZelvoController>& zelvoController() const
    {
        return m_zelvoController;
    }
    void setZelvoController(std::shared_ptr<ZelvoController> controller);
    /// Whether the locale measures in kilograms and centimetres; what setIsMetric() stored is never
    /// consulted, because units always follow the locale.
    [[nodiscard]] bool isMetric() const;
    void setIsMetric(bool isMetric) { m_isMetric = isMetric; }
    [[nodiscard]] QString bundleName() const { return informationText(QStringLiteral("CFBundleName")); }
    [[nodiscard]] QString bundleVersion() const
    {
        return informationText(QStringLiteral("CFBundleShortVersionString"));
    }
    [[nodiscard]] QString zelvoFontName() const { return informationText(QStringLiteral("ZelvoFontName")); }
    /// The brand colour as a hexadecimal text, empty when the bundle names none.
    [[nodiscard]] QString zelvoColor1() const { return informationText(QStringLiteral("ZelvoColor1")); }
    /// Addresses; an empty QUrl stands for "none".
    [[nodiscard]] QUrl errorUrl() const { return informationUrl(QStringLiteral("ErrorUrl")); }
    [[nodiscard]] QUrl infoUrl() const { return informationUrl(QStringLiteral("InfoUrl")); }
    [[nodiscard]] QUrl videoUrl() const { return informationUrl(QStringLiteral("VideoUrl")); }
    /// Null QString when no version has been stored.
    [[nodiscard]] QString version();
    /// Writes unless it is handed the very string object that is cached; an equal text is written again.
    void setVersion(const QString& version);
    /// Times in seconds.
    [[nodiscard]] double timeIdle() const { return getDoubleForKey(QStringLiteral("TimeIdle")); }
    [[nodiscard]] double timeSnooze() const { return getDoubleForKey(QStringLiteral("TimeSnooze")); }
    [[nodiscard]] double timeNotificationDismiss() const
    {
        return getDoubleForKey(QStringLiteral("TimeNotificationDismiss"));
    }
    [[nodiscard]] double timeNotificationDismissOnAction() const
    {
        return getDoubleForKey(QStringLiteral("TimeNotificationDismissOnAction"));
    }
    [[nodiscard]] double averageWorkDayHours() const
    {
        return getDoubleForKey(QStringLiteral("AverageWorkDayHours"));
    }
    [[nodiscard]] int32_t activityModeDefault() const;
    [[nodiscard]] double activitGoalDefault() const
    {
        return getDoubleForKey(QStringLiteral("ActivityGoalDefault"));
    }
    /// Weights in kg.
    [[nodiscard]] double weightDefault() const { return getDoubleForKey(QStringLiteral("WeightDefault")); }
    [[nodiscard]] double tablePositionOffsetDefault() const { return 0; }
    [[nodiscard]] double numberOfStandUpsDefault() const
    {
        return getDoubleForKey(QStringLiteral("NumberOfStandupsdefault"));
    }
    [[nodiscard]] double weight() { return m_weight.value(); }
    void setWeight(double weight) { m_weight.setValue(weight); }
    /// 0 = not chosen, 1 = calorie goal, 2 = standing-time goal.
    [[nodiscard]] int32_t activityMode();
    void setActivityMode(int32_t activityMode) { m_activityMode.setValue(activityMode); }
    /// Mode 1: kcal a day; mode 2: minutes an hour.
    [[nodiscard]] double activityGoal() { return m_activityGoal.value(); }
    void setActivityGoal(double activityGoal) { m_activityGoal.setValue(activityGoal); }
    /// Memory positions: raw heights in 0.1 mm.
    [[nodiscard]] int32_t devicePosition1() { return m_devicePosition1.value(); }
    void setDevicePosition1(int32_t position) { m_devicePosition1.setValue(position); }
    [[nodiscard]] int32_t devicePosition2() { return m_devicePosition2.value(); }
    void setDevicePosition2(int32_t position) { m_devicePosition2.setValue(position); }
    [[nodiscard]] int32_t devicePosition3() { return m_devicePosition3.value(); }
    void setDevicePosition3(int32_t position) { m_devicePosition3.setValue(position); }
    /// Added to a raw height to give the true one: 0.1 mm.
    [[nodiscard]] int32_t tablePositionOffset() { return m_tablePositionOffset.readAgain(); }
    void setTablePositionOffset(int32_t offset) { m_tablePositionOffset.setValue(offset); }
    /// Stand-ups an hour as stored; may be 0 before set-up. Divide by standUpsForDivision() instead.
    [[nodiscard]] int32_t numberOfStandUps() { return m_numberOfStandUps.readAgain(); }
    void setNumberOfStandUps(int32_t numberOfStandUps) { m_numberOfStandUps.setValue(numberOfStandUps); }
    /// numberOfStandUps(), or the default count where that is below 1, or 1 where even that is: never 0.
    [[nodiscard]] int32_t standUpsForDivision();
    /// The look of the windows: 0 = light, 1 = dark, 2 = as the desktop.
    [[nodiscard]] int32_t appearance() { return m_appearance.readAgain(); }
    void setAppearance(int32_t appearance) { m_appearance.setValue(appearance); }
    [[nodiscard]] Bundle& mainBundle() const;
    void setMainBundle(Bundle* bundle) { m_mainBundle = bundle; }

    [[nodiscard]] double tablePositionDefault() const
    {
        return getDoubleForKey(QStringLiteral("TablePositionOffsetDefault"));
    }
    [[nodiscard]] int32_t devicePositionOffset() const
    {
        return saturated<int32_t>(getDoubleForKey(QStringLiteral("DevicePositionOffset")));
    }

    /// Store primitives. Without a store the getters answer nothing (doubles NaN), and setters do nothing.
    static QString getStringForKey(const QString& key) { return stored(key).toString(); }
    static int64_t getIntegerForkey(const QString& key) { return saturated<int64_t>(getDoubleForKey(key)); }
    static double getDoubleForKey(const QString& key);
    static QVariantMap getDictForKey(const QString& key) { return stored(key).toMap(); }
    static QVariantList getArrayForKey(const QString& key) { return stored(key).toList(); }
    static bool getBoolForKey(const QString& key) { return stored(key).toBool(); }
    static void setString(const QString& string, const QString& key);
    static void setInteger(int64_t integer, const QString& key) { write(qlonglong(integer), key); }
    static void setDouble(double value, const QString& key) { write(value, key); }
    static void setDict(const QVariantMap& dict, const QString& key) { write(dict, key); }
    static void setArray(const QVariantList& array, const QString& key) { write(array, key); }
    static void setBool(bool value, const QString& key) { write(value, key); }
    static void removeValueForKey(const QString& key) { write({}, key); }
    static bool hasValueForKey(const QString& key) { return stored(key).isValid(); }
    static void setDefaultDouble(double value, const QString& key);
    static void setDefaultInteger(int64_t integer, const QString& key);

private:
    friend class ProcessServices;

    /// A number that is read while it is 0, and written when another than the known one is set: each write
    /// costs a flush to disk.
    template <typename Number>
    class CachedNumber {
    public:
        explicit CachedNumber(QString key)
            : m_key(std::move(key))
        {
        }
        [[nodiscard]] bool isStored() const { return hasValueForKey(m_key); }
        [[nodiscard]] Number value() { return m_value == 0 ? readAgain() : m_value; }
        Number readAgain()
        {
            if constexpr (std::is_integral_v<Number>)
                m_value = saturated<Number>(getDoubleForKey(m_key));
            else
                m_value = getDoubleForKey(m_key);
            return m_value;
        }
        void setValue(Number value)
        {
            if (value != m_value)
                write(value, m_key);
            m_value = value;
        }
        /// Goes by the number without writing it.
        void assume(Number value) { m_value = value; }

    private:
        QString m_key;
        Number m_value = 0;
    };

    AppProperties();
    void mendNumbers();
    [[nodiscard]] QString informationText(const QString& key) const;
    [[nodiscard]] QUrl informationUrl(const QString& key) const;
    [[nodiscard]] static QVariant stored(const QString& key);
    /// An invalid value removes what is stored.
    static void write(const QVariant& value, const QString& key);

    std::shared_ptr<ZelvoController> m_zelvoController;
    ZelvoControllerFactory m_zelvoControllerFactory;
    Bundle* m_mainBundle = nullptr;
    bool m_isMetric = false;
    QString m_version;
    CachedNumber<double> m_weight {QStringLiteral("Weight")};
    CachedNumber<int32_t> m_activityMode {QStringLiteral("ActivityMode")};
    CachedNumber<double> m_activityGoal {QStringLiteral("ActivityGoal")};
    CachedNumber<int32_t> m_devicePosition1 {QStringLiteral("DevicePosition1")};
    CachedNumber<int32_t> m_devicePosition2 {QStringLiteral("DevicePosition2")};
    CachedNumber<int32_t> m_devicePosition3 {QStringLiteral("DevicePosition3")};
    CachedNumber<int32_t> m_tablePositionOffset {QStringLiteral("TablePositionOffset")};
    CachedNumber<int32_t> m_numberOfStandUps {QStringLiteral("NumberOfStandUps")};
    CachedNumber<int32_t> m_appearance {QStringLiteral("Appearance")};
};
