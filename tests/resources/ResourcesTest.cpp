#include "resources/Resources.h"

#include "platform/Bundle.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QTranslator>

#include <gtest/gtest.h>

TEST(Resources, theInformationSuitsASeatAndAPersonStanding)
{
    initResources();
    const Bundle bundle(Bundle::compiledInformation());
    const std::tuple<const char*, double, double> kHeights[] = {// In centimetres.
        {"DevicePosition1", 68, 76}, {"DevicePosition2", 99, 115}, {"DevicePosition3", 110, 120}};
    for (const auto& [key, least, most] : kHeights) {
        const double height = (bundle.numberValue(QString::fromLatin1(key))
                                  + bundle.numberValue(QStringLiteral("TablePositionOffset")))
            / 100;
        EXPECT_TRUE(least < height && height < most) << key;
    }
    // The bundle numbers the modes the other way round: its "2" is the program's calorie mode.
    EXPECT_EQ(bundle.stringValue(QStringLiteral("ActivityModeDefault")), QStringLiteral("2"));
    EXPECT_TRUE(QFontDatabase::families().contains(*bundle.stringValue(QStringLiteral("ZelvoFontName"))));
}

TEST(Resources, theLanguageAskedForIsShown)
{
    initResources();
    const std::tuple<const char*, bool, const char*> kTestCases[] = {
        {"de", true, "Abbrechen"}, {"fr-CA", true, "Annuler"}, {"es", true, "Cancelar"},
        {"nl_BE.UTF-8@euro", true, "Annuleren"}, {"DE", true, "Abbrechen"}, {"en_GB", true, "Cancel"},
        {"xx", false, "Cancel"}, {"den", false, "Cancel"}, {"_de", false, "Cancel"},
        {"../de", false, "Cancel"},
        {"", true, "Cancel"}, // The tests run in the C locale, which has no language of its own.
    };
    for (const auto& [code, isKnown, cancel] : kTestCases) {
        EXPECT_EQ(installTexts(*QCoreApplication::instance(), QString::fromUtf8(code)), isKnown) << code;
        EXPECT_EQ(qtTrId("Cancel"), QString::fromUtf8(cancel)) << code;
        EXPECT_EQ(qtTrId("NoSuchKey"), QStringLiteral("NoSuchKey"));
        EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), QString::fromUtf8(cancel))
            << "Qt's own dialogs";
    }
    EXPECT_EQ(QCoreApplication::instance()->findChildren<QTranslator*>().size(), 1);
}

TEST(Resources, theUsersLanguagesAreTriedInTheirOrder)
{
    const std::pair<const char*, const char*> kTestCases[] = {
        {"nl nl-Latn-NL nl-NL de", "nl"}, {"pt pt-PT es de", "es"}, {"en-GB de", "en"}, {"C", ""}, {"", ""}};
    for (const auto& [codes, language] : kTestCases)
        EXPECT_EQ(firstAvailableLanguage(QString::fromLatin1(codes).split(u' ')), QLatin1String(language))
            << codes;
}
