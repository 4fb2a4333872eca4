#include "platform/Bundle.h"

#include <QJsonArray>

#include <gtest/gtest.h>

namespace {
TEST(BundleTest, readsNumbersFromNumbersAndTexts)
{
    const struct TestCase {
        const char* name;
        QJsonValue value;
        double number;
    } kTestCases[] = {
        {"number", 4300, 4300},
        {"fraction", 0.5, 0.5},
        {"text", QStringLiteral("-12.5"), -12.5},
        {"words", QStringLiteral("high"), 0},
        {"empty", QString(), 0},
        {"undefined number", QStringLiteral("nan"), 0},
        {"endless number", QStringLiteral("inf"), 0},
        {"truth value", true, 0},
        {"null", QJsonValue(), 0},
        {"list", QJsonArray {1}, 0},
    };
    for (const auto& test : kTestCases) {
        SCOPED_TRACE(test.name);
        const Bundle bundle(QJsonObject {{QStringLiteral("Key"), test.value}});
        EXPECT_EQ(bundle.numberValue(QStringLiteral("Key")), test.number);
        EXPECT_EQ(bundle.numberValue(QStringLiteral("Other")), 0);
    }
}

TEST(BundleTest, tellsAMissingTextFromAnEmptyOne)
{
    const Bundle bundle(
        QJsonObject {{QStringLiteral("InfoUrl"), QString()}, {QStringLiteral("Null"), QJsonValue()}});
    EXPECT_EQ(bundle.stringValue(QStringLiteral("InfoUrl")), QString());
    EXPECT_EQ(bundle.stringValue(QStringLiteral("Null")), std::nullopt);
    EXPECT_EQ(bundle.stringValue(QStringLiteral("Missing")), std::nullopt);
}

TEST(BundleTest, theEnvironmentNamesTheCalendarUnlessALanguageWasChosen)
{
    struct Chosen final : Bundle {
        Chosen()
            : Bundle(QJsonObject())
        {
        }
        [[nodiscard]] QLocale locale() const override { return QLocale(QStringLiteral("nl_BE")); }
    };
    const struct {
        const char* all;
        const char* time;
        const char* lang;
        const char* name;
    } kTestCases[] = {{"th_TH", "fa_IR", "de_AT", "th_TH"}, {"", "fa_IR", "de_AT", "fa_IR"},
        {"", "", "de_AT", "de_AT"}, {"", "", "", "C"}};
    const QByteArray kept = qgetenv("LC_ALL");
    for (const auto& testCase : kTestCases) {
        qputenv("LC_ALL", testCase.all);
        qputenv("LC_TIME", testCase.time);
        qputenv("LANG", testCase.lang);
        EXPECT_EQ(Bundle(QJsonObject()).calendarLocaleName(), QLatin1String(testCase.name));
        EXPECT_EQ(Chosen().calendarLocaleName(), QStringLiteral("nl_BE"));
    }
    qputenv("LC_ALL", kept);
    EXPECT_EQ(Chosen().localizedString(QStringLiteral("NoSuchKey")), QStringLiteral("NoSuchKey"));
}
}
