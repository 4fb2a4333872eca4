#include "shell/ErrorLine.h"

#include "desk/ZelvoHIDDevice.h"
#include "fakes/TestPlatform.h"
#include "ui/HyperLinkTextField.h"
#include "ui/ScrollingBody.h"

#include <QScrollBar>
#include <QTest>
#include <QTextDocumentFragment>

#include <gtest/gtest.h>

TEST(ErrorLine, linksErrorsWhereThereIsAPageAndGoesFifteenSecondsAfterTheirEnd)
{
    using enum ErrorLine::WithoutUrl;
    const QString page = QStringLiteral("https://zelvo.example/errors");
    for (const auto& [url, withoutUrl, links] :
        {std::tuple(page, PlainText, 2), {QString(), PlainText, 0}, {QString(), EmptyLink, 2}}) {
        QJsonObject information = TestPlatform::defaultInformation();
        information[QStringLiteral("ErrorUrl")] = url;
        TestPlatform platform(information);
        ScrollingBody area;
        HyperLinkTextField label(&area);
        const ErrorLine line(label, area, withoutUrl);
        EXPECT_EQ(area.verticalScrollBar()->singleStep(), label.fontMetrics().height());
        QStringList opened;
        label.setOpener([&](const QUrl& link) { opened << link.toString(); });
        NotificationCenter::defaultCenter().post(ZelvoHIDDevice::kErrorCode, {}, {{"E02", {}}});
        NotificationCenter::defaultCenter().post(
            ZelvoHIDDevice::kErrorCode, {}, {{"E02", "Overload <up>"}, {"E12", {}}});
        EXPECT_EQ(QTextDocumentFragment::fromHtml(label.text()).toPlainText(),
            QStringLiteral("Error \nE02: Overload <up> \nE12: \n"));
        EXPECT_EQ(label.text().count(QStringLiteral("<a href=\"%1\"").arg(url)), links);
        EXPECT_FALSE(label.text().contains(QStringLiteral(" </a>"))); // No blank is underlined.
        EXPECT_EQ(label.focusPolicy(), links ? Qt::StrongFocus : Qt::NoFocus);
        QApplication::setActiveWindow(&area);
        label.clearFocus();
        label.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&label, Qt::Key_Return);
        EXPECT_EQ(opened.join(u' '), url);
        NotificationCenter::defaultCenter().post(ZelvoHIDDevice::kErrorCodeRemoved);
        platform.runLoop.advance(14.9);
        EXPECT_TRUE(area.isVisible());
        platform.runLoop.advance(0.2);
        EXPECT_FALSE(area.isVisible());
        EXPECT_EQ(label.text(), QString());
    }
}
