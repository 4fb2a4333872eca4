#include "resources/Resources.h"

#include "platform/Bundle.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTranslator>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace {
class ResourcesTest : public testing::Test {
protected:
    ResourcesTest() { initResources(); }
    ~ResourcesTest() override { install("en"); }

    static bool install(const char* code)
    {
        return installTexts(*QCoreApplication::instance(), QString::fromUtf8(code));
    }
    static QString shown(const QString& key) { return Bundle(QJsonObject()).localizedString(key); }
    static QString shown(const char* key) { return shown(QString::fromLatin1(key)); }

    static int widthOf(const QString& text, int pixelSize, QFont::Weight weight)
    {
        QFont font(QStringLiteral("Open Sans"));
        font.setPixelSize(pixelSize);
        font.setWeight(weight);
        return QFontMetrics(font).horizontalAdvance(text);
    }

    static QImage render(const char* name, int size, const QColor& background = Qt::transparent)
    {
        QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(background);
        QPainter painter(&image);
        QSvgRenderer(Bundle::imagePath(QString::fromLatin1(name))).render(&painter);
        return image;
    }

    /// The sum over all pixels.
    template <typename Value>
    static int sum(const QImage& image, Value value)
    {
        int number = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                number += value(image.pixelColor(x, y));
        return number;
    }

    /// Web Content Accessibility Guidelines 2.1: text needs 4.5, the parts of a picture that carry meaning 3.
    static double contrast(const QColor& one, const QColor& other)
    {
        const auto linear = [](double part) {
            return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        const auto luminance = [&](const QColor& color) {
            return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
                + 0.0722 * linear(color.blueF());
        };
        const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
        return (lighter + 0.05) / (darker + 0.05);
    }
};
}

TEST_F(ResourcesTest, theInformationSuitsASeatAPersonStandingAndAReader)
{
    const Bundle bundle(Bundle::compiledInformation());
    const auto heightCm = [&](const char* key) {
        return (bundle.numberValue(QString::fromLatin1(key))
                   + bundle.numberValue(QStringLiteral("TablePositionOffset")))
            / 100;
    };
    EXPECT_NEAR(heightCm("DevicePosition1"), 72, 4);
    EXPECT_NEAR(heightCm("DevicePosition2"), 107, 8);
    EXPECT_NEAR(heightCm("DevicePosition3"), 115, 5);
    // The bundle numbers the modes the other way round: its "2" is the program's calorie mode.
    EXPECT_EQ(bundle.stringValue(QStringLiteral("ActivityModeDefault")), QStringLiteral("2"));
    EXPECT_TRUE(QFontDatabase::families().contains(*bundle.stringValue(QStringLiteral("ZelvoFontName"))));
    const QColor brand(*bundle.stringValue(QStringLiteral("ZelvoColor1")));
    for (const char* background : {"#FFFFFF", "#ECECEC", "#D9D9D9"})
        EXPECT_GE(contrast(brand, QColor(QLatin1String(background))), 4.5) << background;
}

TEST_F(ResourcesTest, theTrayIconTellsItsStateWithoutColourOnLightAndDarkPanels)
{
    const auto alpha = [](const QColor& pixel) { return pixel.alpha(); };
    for (const int size : {16, 22, 64}) {
        for (const char* name : {"StatusItemIcon", "StatusItemIconDisconnected"}) {
            for (const char* panel : {"#FFFFFF", "#2B2B2B", "#101418"}) {
                const QColor background(QLatin1String {panel});
                EXPECT_GT(sum(render(name, size, background),
                              [&](const QColor& pixel) { return contrast(pixel, background) >= 2.5; }),
                    size * size * 15 / 100)
                    << name << ' ' << panel << ' ' << size;
            }
        }
        EXPECT_GT(sum(render("StatusItemIcon", size), alpha),
            1.8 * sum(render("StatusItemIconDisconnected", size), alpha));
    }
}

TEST_F(ResourcesTest, textIsReadableOnThePicturesThatCarryIt)
{
    for (const char* name : {"GoalCircle", "GoalCircleHover", "GoalCircleActive", "NotificationRadial"})
        EXPECT_GE(contrast(render(name, 60).pixelColor(30, 30), QColor(0x61, 0x61, 0x61)), 4.5) << name;
    EXPECT_GE(contrast(render("SetupTextField", 60).pixelColor(30, 30), Qt::white), 4.5);
}

TEST_F(ResourcesTest, theWordsFitWhatCarriesThem)
{
    for (const char* language : {"en", "de", "fr", "es", "nl"}) {
        install(language);
        for (const char* key : {"SnoozeButton", "SkipButton", "UpButton", "DownButton", "Memory1", "Memory2",
                 "Memory3", "HistoryButton", "SettingsButton"})
            EXPECT_LE(widthOf(shown(key), 12, QFont::Light), 78) << language << ' ' << key;
        for (const char* list : {"StandingMessage%1", "SittingMessage%1"})
            for (int number = 1; number <= 10; ++number)
                EXPECT_LE(widthOf(shown(QString::fromLatin1(list).arg(number)), 18, QFont::Normal), 330)
                    << language << ' ' << list << ' ' << number;
    }
}

TEST_F(ResourcesTest, theLanguageAskedForIsShown)
{
    const struct {
        const char* code;
        bool known;
        const char* cancel;
    } kTestCases[] = {
        {"de", true, "Abbrechen"}, {"fr-CA", true, "Annuler"}, {"es", true, "Cancelar"},
        {"nl_BE.UTF-8@euro", true, "Annuleren"}, {"DE", true, "Abbrechen"}, {"en_GB", true, "Cancel"},
        {"xx", false, "Cancel"}, {"den", false, "Cancel"}, {"_de", false, "Cancel"},
        {"../de", false, "Cancel"},
        {"", true, "Cancel"}, // The tests run in the C locale, which has no language of its own.
    };
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testCase.code);
        EXPECT_EQ(install(testCase.code), testCase.known);
        EXPECT_EQ(shown("Cancel"), QString::fromUtf8(testCase.cancel));
    }
    EXPECT_EQ(QCoreApplication::instance()->findChildren<QTranslator*>().size(), 1);
}

TEST_F(ResourcesTest, theUsersLanguagesAreTriedInTheirOrder)
{
    const struct {
        const char* codes;
        const char* language;
    } kTestCases[] = {
        {"nl nl-Latn-NL nl-NL de", "nl"}, {"pt pt-PT es de", "es"}, {"en-GB de", "en"}, {"C", ""}, {"", ""}};
    for (const auto& testCase : kTestCases)
        EXPECT_EQ(firstAvailableLanguage(QString::fromLatin1(testCase.codes).split(u' ')),
            QLatin1String(testCase.language))
            << testCase.codes;
}
