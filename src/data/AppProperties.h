#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariantMap>

#include <cstdint>
#include <functional>
#include <memory>

class Bundle;
class ZelvoController;

/// The one place where the program keeps its settings, over UserDefaults::standard() and Bundle::main().
/// Missing settings get their defaults when the instance is made; every write is flushed to disk at once.
/// A number that its setting cannot hold (no number at all, a negative time, seven stand-ups) is never handed
/// out: the default counts instead, and the log names it once. Sums of raw heights belong in 64 bits, and
/// "data/Saturation.h" turns any number into an integer.
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
    /// Back to the defaults, except for "Version". Values cached in this process stay until they are set
    /// again.
    void clearProperties();
    [[nodiscard]] bool isUserSetupCompleted();
    /// Completes a half-done set-up with the defaults. Always answers true.
    bool setDefaultUserValues();
    [[nodiscard]] bool hasDevicePosition1() const;
    [[nodiscard]] bool hasDevicePosition2() const;
    [[nodiscard]] bool hasDevicePosition3() const;

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
    [[nodiscard]] QString bundleName() const;
    [[nodiscard]] QString bundleVersion() const;
    [[nodiscard]] QString zelvoFontName() const;
    /// The brand colour as a hexadecimal text, empty when the bundle names none.
    [[nodiscard]] QString zelvoColor1() const;
    /// Addresses; an empty QUrl stands for "none".
    [[nodiscard]] QUrl errorUrl() const;
    [[nodiscard]] QUrl infoUrl() const;
    [[nodiscard]] QUrl videoUrl() const;
    /// Null QString when no version has been stored.
    [[nodiscard]] QString version();
    /// Writes unless it is handed the very string object that is cached; an equal text is written again.
    void setVersion(const QString& version);
    [[nodiscard]] double timeIdle() const; ///< seconds
    [[nodiscard]] double timeSnooze() const; ///< seconds
    [[nodiscard]] double timeNotificationDismiss() const; ///< seconds
    [[nodiscard]] double timeNotificationDismissOnAction() const; ///< seconds
    [[nodiscard]] double averageWorkDayHours() const;
    [[nodiscard]] int32_t activityModeDefault() const;
    [[nodiscard]] double activitGoalDefault() const;
    [[nodiscard]] double weightDefault() const; ///< kg
    [[nodiscard]] double tablePositionOffsetDefault() const { return m_tablePositionOffsetDefault; }
    [[nodiscard]] double numberOfStandUpsDefault() const;
    [[nodiscard]] double weight(); ///< kg
    void setWeight(double weight);
    /// 0 = not chosen, 1 = calorie goal, 2 = standing-time goal.
    [[nodiscard]] int32_t activityMode();
    void setActivityMode(int32_t activityMode);
    /// Mode 1: kcal a day; mode 2: minutes an hour.
    [[nodiscard]] double activityGoal();
    void setActivityGoal(double activityGoal);
    /// Memory positions: raw heights in 0.1 mm.
    [[nodiscard]] int32_t devicePosition1();
    void setDevicePosition1(int32_t position);
    [[nodiscard]] int32_t devicePosition2();
    void setDevicePosition2(int32_t position);
    [[nodiscard]] int32_t devicePosition3();
    void setDevicePosition3(int32_t position);
    /// Added to a raw height to give the true one: 0.1 mm.
    [[nodiscard]] int32_t tablePositionOffset();
    void setTablePositionOffset(int32_t offset);
    /// Stand-ups an hour as stored; may be 0 before set-up. Divide by standUpsForDivision() instead.
    [[nodiscard]] int32_t numberOfStandUps();
    void setNumberOfStandUps(int32_t numberOfStandUps);
    /// numberOfStandUps(), or the default count where that is below 1, or 1 where even that is: never 0.
    [[nodiscard]] int32_t standUpsForDivision();
    [[nodiscard]] Bundle& mainBundle();
    void setMainBundle(Bundle* bundle) { m_mainBundle = bundle; }

    [[nodiscard]] double tablePositionDefault() const;
    [[nodiscard]] int32_t devicePositionOffset() const;

    /// Store primitives. Without a store the getters answer nothing (NaN for doubles) and the setters do
    /// nothing.
    static QString getStringForKey(const QString& key);
    static int64_t getIntegerForkey(const QString& key);
    static double getDoubleForKey(const QString& key);
    static QVariantMap getDictForKey(const QString& key);
    static QVariantList getArrayForKey(const QString& key);
    static bool getBoolForKey(const QString& key);
    static void setString(const QString& string, const QString& key);
    static void setInteger(int64_t integer, const QString& key);
    static void setDouble(double value, const QString& key);
    static void setDict(const QVariantMap& dict, const QString& key);
    static void setArray(const QVariantList& array, const QString& key);
    static void setBool(bool value, const QString& key);
    static void removeValueForKey(const QString& key);
    static bool hasValueForKey(const QString& key);
    static void setDefaultDouble(double value, const QString& key);
    static void setDefaultInteger(int64_t integer, const QString& key);

private:
    friend class ProcessServices;
    AppProperties();
    [[nodiscard]] const Bundle& bundle() const;

    std::shared_ptr<ZelvoController> m_zelvoController;
    ZelvoControllerFactory m_zelvoControllerFactory;
    Bundle* m_mainBundle = nullptr;
    bool m_isMetric = false;
    QString m_version;
    double m_tablePositionOffsetDefault = 0;
    double m_weight = 0;
    int32_t m_activityMode = 0;
    double m_activityGoal = 0;
    int32_t m_devicePosition1 = 0;
    int32_t m_devicePosition2 = 0;
    int32_t m_devicePosition3 = 0;
    int32_t m_tablePositionOffset = 0;
    int32_t m_numberOfStandUps = 0;
};
