#include "fakes/ControlTest.h"
#include "ui/FontAndTextHandler.h"
#include "ui/HoverButton.h"
#include "ui/Palette.h"

#include <QSignalSpy>
#include <QTest>

namespace {
class ButtonTest : public ControlTest {
protected:
    ButtonTest()
    {
        m_button.setFont(FontAndTextHandler::Roman15());
        m_button.setTextColor(kTitle);
        m_button.resize(161, 61);
        setBackground(m_button, {});
    }

    static constexpr QColor kTitle {200, 0, 0};
    HoverButton m_button;
};
}

TEST_F(ButtonTest, pictureAndTitleStandTogetherInTheMiddleAndAskForNoMoreRoomThanThat)
{
    const auto box = [this](auto holds) {
        const QRect found = boxOf(grab(m_button), holds);
        return QString::asprintf("%d,%d %dx%d ", found.x(), found.y(), found.width(), found.height());
    };
    constexpr auto kBeside = Qt::ToolButtonTextBesideIcon;
    constexpr auto kUnder = Qt::ToolButtonTextUnderIcon;
    constexpr auto kOnly = Qt::ToolButtonIconOnly;
    using enum Qt::LayoutDirection;
    const struct {
        const char* title;
        const char* picture;
        Qt::ToolButtonStyle style;
        Qt::LayoutDirection direction;
        QSize size;
        QColor background;
        const char* seen; ///< title and picture, then the smallest and the best size
    } kTestCases[] = {
        {"MMMMMM", "", kBeside, LeftToRight, {161, 61}, {}, "41,26 79x10 0,0 0x0 63x33 92x33"},
        {" MMMMMM ", "", kOnly, LeftToRight, {161, 61}, Qt::transparent, "41,26 79x10 0,0 0x0 73x33 102x33"},
        {"MMMMMM", "ButtonUp", kBeside, LeftToRight, {161, 61}, {}, "56,26 79x10 30,23 14x16 93x36 122x36"},
        {"  MMMMMM", "ButtonUp", kBeside, LeftToRight, {161, 61}, {}, "57,26 78x10 29,23 14x16 93x36 123x36"},
        {"MMMMMM", "ButtonUp", kBeside, RightToLeft, {161, 61}, {}, "26,26 78x10 117,23 14x16 93x36 122x36"},
        {"MMMMMM", "ButtonUp", kBeside, LeftToRight, {70, 30}, {}, "39,11 22x10 10,7 14x16 93x36 122x36"},
        {"MMMMMM", "ButtonUp", kUnder, RightToLeft, {161, 61}, Qt::transparent,
            "41,40 79x10 74,11 14x16 73x60 102x60"},
        {"MMMMMM", "ButtonUp", kOnly, LeftToRight, {161, 61}, {}, "0,0 0x0 74,23 14x16 34x36 34x36"},
        {"MMMMMM", "ButtonUp", kOnly, LeftToRight, {16, 12}, {}, "0,0 0x0 4,2 7x8 34x36 34x36"},
    };
    for (const auto& row : kTestCases) {
        m_button.setText(QString::fromLatin1(row.title));
        m_button.setImage(*row.picture ? Picture(QString::fromLatin1(row.picture)) : Picture());
        m_button.setToolButtonStyle(row.style);
        m_button.setLayoutDirection(row.direction);
        setBackground(m_button, row.background);
        m_button.resize(row.size);
        // The ground and the title have no green, the pictures have.
        QString seen = box([](const QColor& pixel) { return pixel.green() < 40 && pixel.blue() < 128; })
            + box([](const QColor& pixel) { return pixel.green() > 40; });
        for (const QSize size : {m_button.minimumSizeHint(), m_button.sizeHint()})
            seen += QString::asprintf("%dx%d ", size.width(), size.height());
        EXPECT_EQ(seen.trimmed(), QString::fromLatin1(row.seen));
    }
}

TEST_F(ButtonTest, eachStateHasItsLook)
{
    const QColor background(0xC8, 0xD9, 0xE1);
    const auto seen = [this](QPoint at) { return grab(m_button).pixelColor(at).rgb(); };
    QList<QRgb> looks {seen({20, 30})};
    m_button.setDown(true);
    looks << seen({20, 30});
    setBackground(m_button, background);
    looks << seen({20, 30});
    m_button.setDown(false);
    looks << seen({20, 30}) << seen({0, 0}) << seen({3, 0}); // The corners are round.
    m_button.setEnabled(false);
    looks << seen({20, 30});
    // A shadow of 20 in 255, 112 in 100 darker, 45 in 100 of the colour on the ground.
    EXPECT_EQ(looks,
        (QList<QRgb> {kGround.rgb(), 0xFFEB00EB, background.darker(112).rgb(), background.rgb(),
            kGround.rgb(), 0xFFCDC5E4, 0xFFE661F1}));
    m_button.setEnabled(true);
    m_button.setText(QStringLiteral("MMMM"));
    // What would not be read takes another colour, the picture with the title.
    setBackground(m_button, kTitle);
    m_button.setImage(Picture(QStringLiteral("ButtonUp")));
    const auto light = [this] {
        return boxOf(grab(m_button), [](QColor pixel) { return pixel == Qt::white; });
    };
    EXPECT_GT(light().width(), 70);
    m_button.setToolButtonStyle(Qt::ToolButtonIconOnly);
    EXPECT_NEAR(light().width(), 12, 3);
}

TEST_F(ButtonTest, theMouseBringsAnotherLookAndEachEndTakesItAway)
{
    const auto seen = [this] { // Title's colour and background, and whether the picture is the hovered one.
        const QImage image = grab(m_button);
        const QRect hovered = boxOf(image, [](QColor pixel) { return pixel == QColor(0x00, 0x69, 0x7A); });
        return m_button.textColor().name() + image.pixelColor(6, 20).name()
            + QString::number(!hovered.isEmpty());
    };
    m_button.setText(QStringLiteral("Stand"));
    m_button.setTextColor(zelvoTextColor());
    m_button.setImageNamed(QStringLiteral("NotificationButtonStandMemory"));
    setBackground(m_button, QColor(250, 240, 230));
    m_button.setAlternateBackgroundColor(QColor(200, 230, 240));
    for (const bool byLeaving : {true, false}) {
        enter(m_button);
        enter(m_button);
        EXPECT_EQ(seen(), QStringLiteral("#00707a#c8e6f01"));
        if (byLeaving)
            leave(m_button);
        m_button.setEnabled(byLeaving);
        EXPECT_TRUE(seen().startsWith(QStringLiteral("#616161")) && seen().endsWith(u'0'));
    }
    const QImage disabled = grab(m_button);
    enter(m_button);
    EXPECT_EQ(grab(m_button), disabled);
    m_button.setEnabled(true);
    enter(m_button);
    m_button.setImageNamed(QStringLiteral("NotificationButtonSitMemory"));
    EXPECT_EQ(seen(), QStringLiteral("#00707a#c8e6f01"));
    m_button.setTextColor(Qt::red);
    leave(m_button);
    m_button.setTextColor(Qt::blue);
    m_button.mouseExited(); // Without an entry it restores what the last entry found.
    EXPECT_EQ(seen(), QStringLiteral("#ff0000#faf0e60"));
}

TEST_F(ButtonTest, aKeyKeptDownClicksOnceThoughX11ReportsItAsGoingUpAndDown)
{
    QSignalSpy clicks(&m_button, &QPushButton::clicked);
    for (const int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        const auto send = [&](QEvent::Type type, quint64 time, bool isRepeat = false) {
            QKeyEvent event(type, key, Qt::NoModifier, QString(), isRepeat);
            event.setTimestamp(time);
            QApplication::sendEvent(&m_button, &event);
        };
        for (const quint64 time : {1000U, 1660U, 1700U}) { // The third is a press of its own.
            send(QEvent::KeyPress, time);
            send(QEvent::KeyRelease, time == 1000 ? 1660 : time + 20);
        }
        send(QEvent::KeyPress, 5000, true);
        EXPECT_EQ(clicks.count(), 2) << key;
        clicks.clear();
    }
    QTest::keyClick(&m_button, Qt::Key_Return); // Without a time: not a keyboard's.
    EXPECT_EQ(clicks.count(), 1);
}
