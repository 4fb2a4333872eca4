#include "platform/Bundle.h"

#include <QJsonArray>

#include <gtest/gtest.h>

TEST(BundleTest, tellsValuesOfAnyKindAndMissingOnes)
{
    const std::tuple<QJsonValue, double, std::optional<QString>> kTestCases[] = {{0.5, 0.5, "0.5"},
        {"-12.5", -12.5, "-12.5"}, {"high", 0, "high"}, {QString(), 0, QString()}, {"nan", 0, "nan"},
        {"inf", 0, "inf"}, {true, 0, "true"}, {QJsonValue(), 0, std::nullopt}, {QJsonArray {1}, 0, QString()},
        {QJsonValue::Undefined, 0, std::nullopt}};
    for (const auto& [value, number, text] : kTestCases) {
        const Bundle bundle(value.isUndefined() ? QJsonObject() : QJsonObject {{"Key", value}});
        testing::internal::CaptureStderr();
        EXPECT_EQ(bundle.numberValue("Key"), number);
        EXPECT_EQ(bundle.stringValue("Key"), text);
        EXPECT_EQ(testing::internal::GetCapturedStderr().empty(), !value.isUndefined());
    }
}

TEST(BundleTest, theEnvironmentNamesTheCalendarUnlessALanguageWasChosen)
{
    const char* const kTestCases[][4] = {{"th_TH", "fa_IR", "de_AT", "th_TH"},
        {"", "fa_IR", "de_AT", "fa_IR"}, {"", "", "de_AT", "de_AT"}, {"", "", "", "C"}};
    const QByteArray kept = qgetenv("LC_ALL");
    const Bundle bundle {QJsonObject()};
    for (const auto& [all, time, lang, name] : kTestCases) {
        qputenv("LC_ALL", all);
        qputenv("LC_TIME", time);
        qputenv("LANG", lang);
        EXPECT_EQ(bundle.calendarLocaleName(), name);
    }
    QLocale::setDefault(QLocale("nl_BE"));
    EXPECT_EQ(bundle.calendarLocaleName(), "nl_BE");
    QLocale::setDefault(QLocale::system());
    qputenv("LC_ALL", kept);
}
