#include "platform/Bundle.h"

#include <QJsonArray>

#include <gtest/gtest.h>

namespace {
TEST(Bundle, readsNumbersFromNumbersAndTexts)
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

TEST(Bundle, tellsAMissingTextFromAnEmptyOne)
{
    const Bundle bundle(
        QJsonObject {{QStringLiteral("InfoUrl"), QString()}, {QStringLiteral("Null"), QJsonValue()}});
    EXPECT_EQ(bundle.stringValue(QStringLiteral("InfoUrl")), QString());
    EXPECT_EQ(bundle.stringValue(QStringLiteral("Null")), std::nullopt);
    EXPECT_EQ(bundle.stringValue(QStringLiteral("Missing")), std::nullopt);
}

TEST(Bundle, aKeyWithoutATextAnswersItself)
{
    const Bundle bundle(QJsonObject {});
    EXPECT_EQ(bundle.localizedString(QStringLiteral("NoSuchKey")), QStringLiteral("NoSuchKey"));
}
}
