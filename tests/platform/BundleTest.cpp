#include "platform/Bundle.h"

#include <QJsonArray>

#include <gtest/gtest.h>

namespace {
TEST(BundleTest, tellsValuesOfAnyKindAndMissingOnes)
{
    const struct {
        QJsonValue value;
        double number;
        std::optional<QString> text;
    } kTestCases[] = {
        {0.5, 0.5, QStringLiteral("0.5")},
        {QStringLiteral("-12.5"), -12.5, QStringLiteral("-12.5")},
        {QStringLiteral("high"), 0, QStringLiteral("high")},
        {QString(), 0, QString()},
        {QStringLiteral("nan"), 0, QStringLiteral("nan")},
        {QStringLiteral("inf"), 0, QStringLiteral("inf")},
        {true, 0, QStringLiteral("true")},
        {QJsonValue(), 0, std::nullopt},
        {QJsonArray {1}, 0, QString()},
    };
    for (const auto& [value, number, text] : kTestCases) {
        const Bundle bundle(QJsonObject {{QStringLiteral("Key"), value}});
        EXPECT_EQ(bundle.numberValue(QStringLiteral("Key")), number);
        EXPECT_EQ(bundle.stringValue(QStringLiteral("Key")), text);
    }
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
}
}
