#include "platform/Bundle.h"
#include "resources/Resources.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace {

struct Texts : testing::Test {
    Texts() { initResources(); }
    ~Texts() override { installTexts(*QCoreApplication::instance(), QStringLiteral("en")); }
    static bool install(const char* code)
    {
        return installTexts(*QCoreApplication::instance(), QString::fromUtf8(code));
    }
    [[nodiscard]] QString text(const char* key) const
    {
        return m_bundle.localizedString(QString::fromUtf8(key));
    }

private:
    Bundle m_bundle {QJsonObject()};
};

}

TEST_F(Texts, aKeyWithALineBreakIsFound)
{
    install("en");
    EXPECT_EQ(text("Error \n"), QStringLiteral("Desk error\n"));
}

TEST_F(Texts, theLanguageAskedForIsShown)
{
    const struct {
        const char* code;
        bool known;
        const char* cancel;
    } kTestCases[] = {
        {"en", true, "Cancel"},
        {"de", true, "Abbrechen"},
        {"fr", true, "Annuler"},
        {"es", true, "Cancelar"},
        {"nl", true, "Annuleren"},
        {"de_AT", true, "Abbrechen"},
        {"fr-CA", true, "Annuler"},
        {"nl_BE.UTF-8@euro", true, "Annuleren"},
        {"DE", true, "Abbrechen"},
        {"en_GB", true, "Cancel"},
        {"xx", false, "Cancel"},
        {"den", false, "Cancel"},
        {"_de", false, "Cancel"},
        {"../de", false, "Cancel"},
    };
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testCase.code);
        EXPECT_EQ(install(testCase.code), testCase.known);
        EXPECT_EQ(text("Cancel"), QString::fromUtf8(testCase.cancel));
    }
}
