#include "resources/Resources.h"

#include <QCoreApplication>
#include <QTranslator>

#include <gtest/gtest.h>

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
