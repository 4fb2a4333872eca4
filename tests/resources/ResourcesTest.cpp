#include "resources/Resources.h"

#include "platform/Bundle.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QTranslator>

#include <gtest/gtest.h>

namespace {
class ResourcesTest : public testing::Test {
protected:
    ResourcesTest() { initResources(); }
    ~ResourcesTest() override { installTexts(*QCoreApplication::instance(), QStringLiteral("en")); }
};
}

TEST_F(ResourcesTest, theInformationSuitsASeatAndAPersonStanding)
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
        EXPECT_EQ(
            installTexts(*QCoreApplication::instance(), QString::fromUtf8(testCase.code)), testCase.known);
        EXPECT_EQ(qtTrId("Cancel"), QString::fromUtf8(testCase.cancel));
        EXPECT_EQ(qtTrId("NoSuchKey"), QStringLiteral("NoSuchKey"));
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
