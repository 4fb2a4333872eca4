#include "ui/Button.h"

#include "fakes/ControlTest.h"
#include "ui/FontAndTextHandler.h"
#include "ui/HoverLink.h"
#include "ui/HoverUnderlineButton.h"
#include "ui/Palette.h"

#include <QHelpEvent>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

namespace {
class ButtonTest : public ControlTest {
protected:
    ButtonTest()
    {
        m_button.setFont(FontAndTextHandler::Roman15());
        m_button.setText(QStringLiteral("MMMM"));
        m_button.setTextColor(kTitle);
        m_button.resize(161, 61);
        m_button.setFlat(true);
    }

    static constexpr QColor kTitle {200, 0, 0};
    Button m_button;
};

TEST_F(ButtonTest, pictureAndTitleStandTogetherInTheMiddleAndAskForNoMoreRoomThanThat)
{
    const auto box = [this](auto holds) {
        const QRect found = boxOf(grab(m_button), holds);
        return QStringLiteral("%1,%2 %3x%4 ")
            .arg(found.x())
            .arg(found.y())
            .arg(found.width())
            .arg(found.height());
    };
    constexpr auto Leading = Qt::ToolButtonTextBesideIcon;
    constexpr auto Above = Qt::ToolButtonTextUnderIcon;
    constexpr auto Only = Qt::ToolButtonIconOnly;
    using enum Qt::LayoutDirection;
    const struct {
        const char* title;
        const char* picture;
        Qt::ToolButtonStyle position;
        Qt::LayoutDirection direction;
        QSize size;
        QColor background;
        const char* seen; ///< title and picture, then the smallest and the best size
    } kTestCases[] = {
        {"MMMMMM", "", Leading, LeftToRight, {161, 61}, {}, "41,26 79x10 0,0 0x0 63x33 92x33"},
        {" MMMMMM ", "", Only, LeftToRight, {161, 61}, Qt::transparent, "41,26 79x10 0,0 0x0 73x33 102x33"},
        {"MMMMMM", "ButtonUp", Leading, LeftToRight, {161, 61}, {}, "56,26 79x10 30,23 14x16 93x36 122x36"},
        {"  MMMMMM", "ButtonUp", Leading, LeftToRight, {161, 61}, {}, "57,26 78x10 29,23 14x16 93x36 123x36"},
        {"MMMMMM", "ButtonUp", Leading, RightToLeft, {161, 61}, {}, "26,26 78x10 117,23 14x16 93x36 122x36"},
        {"MMMMMM", "ButtonUp", Leading, LeftToRight, {70, 30}, {}, "39,11 22x10 10,7 14x16 93x36 122x36"},
        {"MMMMMM", "ButtonUp", Above, RightToLeft, {161, 61}, Qt::transparent,
            "41,40 79x10 74,11 14x16 73x60 102x60"},
        {"MMMMMM", "ButtonUp", Only, LeftToRight, {161, 61}, {}, "0,0 0x0 74,23 14x16 34x36 34x36"},
        {"MMMMMM", "ButtonUp", Only, LeftToRight, {16, 12}, {},
            "0,0 0x0 4,2 7x8 34x36 34x36"}, // The picture shrinks.
    };
    for (const auto& row : kTestCases) {
        m_button.setText(QString::fromLatin1(row.title));
        m_button.setImage(*row.picture ? Picture(QString::fromLatin1(row.picture)) : Picture());
        m_button.setToolButtonStyle(row.position);
        m_button.setLayoutDirection(row.direction);
        setBackground(m_button, row.background);
        m_button.resize(row.size);
        // The ground and the title have no green, the pictures have.
        QString seen = box([](const QColor& pixel) { return pixel.green() < 40 && pixel.blue() < 128; })
            + box([](const QColor& pixel) { return pixel.green() > 40; });
        for (const QSize size : {m_button.minimumSizeHint(), m_button.sizeHint()})
            seen += QStringLiteral("%1x%2 ").arg(size.width()).arg(size.height());
        EXPECT_EQ(seen.trimmed(), QString::fromLatin1(row.seen));
    }
}

TEST_F(ButtonTest, eachStateHasItsLook)
{
    const auto seen = [&] { return grab(m_button).pixelColor(20, 30).rgb(); };
    QList<QRgb> looks {seen()};
    m_button.setDown(true);
    looks << seen();
    setBackground(m_button, QColor(0xC8, 0xD9, 0xE1));
    looks << seen();
    m_button.setDown(false);
    looks << seen() << grab(m_button).pixelColor(0, 0).rgb(); // The corners are round.
    m_button.setEnabled(false);
    looks << seen();
    // A shadow of 20 in 255, 112 in 100 darker, 45 in 100 of the colour on the ground.
    EXPECT_EQ(looks,
        (QList<QRgb> {kGround.rgb(), 0xFFEB00EB, QColor(0xC8, 0xD9, 0xE1).darker(112).rgb(), 0xFFC8D9E1,
            kGround.rgb(), 0xFFE661F1}));
    m_button.setEnabled(true);
    const QImage plain = grab(m_button);
    m_button.setUnderLineText();
    EXPECT_NE(grab(m_button), plain);
    m_button.removeUnderLineText();
    EXPECT_EQ(grab(m_button), plain);
    // What would not be read takes another colour, the picture with the title.
    setBackground(m_button, kTitle);
    m_button.setImage(Picture(QStringLiteral("ButtonUp")));
    const auto light = [&] {
        return boxOf(grab(m_button), [](const QColor& pixel) { return pixel == Qt::white; }).width();
    };
    const int both = light();
    m_button.setToolButtonStyle(Qt::ToolButtonIconOnly);
    EXPECT_GT(light(), 10);
    EXPECT_GT(both, light() + 60);
    for (const auto& [title, color] :
        {std::pair(QString(), kTitle), std::pair(QStringLiteral("x"), QColor())}) {
        m_button.setText(title);
        m_button.setTextColor(color);
        EXPECT_EQ(m_button.textColor(), m_button.palette().color(QPalette::ButtonText));
    }
}

TEST_F(ButtonTest, aTitleThatIsCutIsToldInFull)
{
    for (const auto& [width, told] : {std::pair(161, ""), std::pair(20, "MMMM")}) {
        m_button.resize(width, 61);
        show(m_button);
        QHelpEvent event(QEvent::ToolTip, {5, 5}, m_button.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&m_button, &event);
        EXPECT_EQ(QToolTip::text(), QString::fromLatin1(told));
    }
}

TEST_F(ButtonTest, aKeyKeptDownClicksOnceThoughX11ReportsItAsGoingUpAndDown)
{
    QSignalSpy clicks(&m_button, &QPushButton::clicked);
    for (const int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        const auto send = [&](QEvent::Type type, quint64 time) {
            QKeyEvent event(type, key, Qt::NoModifier);
            event.setTimestamp(time);
            QApplication::sendEvent(&m_button, &event);
        };
        for (const quint64 time : {1000U, 1660U, 1700U}) { // The third is a press of its own.
            send(QEvent::KeyPress, time);
            send(QEvent::KeyRelease, time == 1000 ? 1660 : time + 20);
        }
        EXPECT_EQ(clicks.count(), 2) << key;
        clicks.clear();
    }
    QTest::keyClick(&m_button, Qt::Key_Return); // Without a time: not a keyboard's.
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&m_button, &repeated);
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(ButtonTest, linksTellTheMouseAndHaveNothingBehindThemThatDarkens)
{
    HoverLink link;
    HoverUnderlineButton week;
    for (Button* const button : {static_cast<Button*>(&link), static_cast<Button*>(&week)}) {
        button->setText(QStringLiteral("Week"));
        button->resize(90, 30);
        const QImage plain = grab(*button);
        enter(*button);
        EXPECT_NE(grab(*button), plain);
        EXPECT_EQ(button->textColor(), button == &link ? zelvoLinkHover() : week.textColor());
        leave(*button);
        EXPECT_EQ(grab(*button), plain);
        button->setDown(true);
        EXPECT_EQ(grab(*button).pixelColor(2, 15), kGround);
    }
    EXPECT_EQ(link.textColor(), zelvoHoverColor());
    EXPECT_EQ(link.cursor().shape(), Qt::PointingHandCursor);
}
}
