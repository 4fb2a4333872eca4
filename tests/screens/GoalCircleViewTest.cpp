#include "screens/GoalCircleView.h"

#include "fakes/ControlTest.h"
#include "ui/Picture.h"

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QTest>

namespace {
struct Recorder final : GoalCircleViewDelegate {
    std::vector<GoalCircleView*> clicked;
    std::function<void()> onClick;

    void goalCircleIndicatorViewClicked(GoalCircleView& circle) override
    {
        clicked.push_back(&circle);
        if (onClick)
            onClick();
    }
};

class GoalCircleViewTest : public ControlTest {
protected:
    GoalCircleViewTest()
    {
        m_window.resize(200, 120);
        m_circle.setGeometry(20, 20, 60, 60);
        m_circle.setDelegate(&m_recorder);
        m_field.setGeometry(100, 20, 80, 24);
        show(m_window);
    }

    /// What the circle shows without labels.
    QImage shown()
    {
        m_circle.setValue(QString());
        m_circle.setTitle(QString());
        return grab(m_circle);
    }

    static QImage picture(const char* name)
    {
        QImage image(60, 60, QImage::Format_RGB32);
        image.fill(kGround);
        QPainter painter(&image);
        Picture(QString::fromLatin1(name)).draw(painter, QRectF(0, 0, 60, 60));
        return image;
    }

    Recorder m_recorder;
    QWidget m_window;
    GoalCircleView m_circle {&m_window};
    QLineEdit m_field {&m_window};
};
}

TEST_F(GoalCircleViewTest, theStateChoosesThePictureAndActiveWinsOverHover)
{
    EXPECT_EQ(shown(), picture("GoalCircle"));
    enter(m_circle);
    EXPECT_TRUE(m_circle.hover());
    EXPECT_EQ(shown(), picture("GoalCircleHover"));
    m_circle.setActive(true);
    EXPECT_EQ(shown(), picture("GoalCircleActive"));
    leave(m_circle);
    EXPECT_EQ(shown(), picture("GoalCircleActive"));
    m_circle.setActive(false);
    EXPECT_EQ(shown(), picture("GoalCircle"));
}

TEST_F(GoalCircleViewTest, aClickFirstEndsTextEditingAndSelectsNothingItself)
{
    QStringList order;
    QObject::connect(&m_field, &QLineEdit::editingFinished, [&] { order.append(QStringLiteral("edited")); });
    m_recorder.onClick = [&] { order.append(QStringLiteral("clicked")); };
    m_field.setFocus();
    QTest::keyClicks(&m_field, QStringLiteral("80"));
    QTest::mousePress(&m_circle, Qt::LeftButton);
    EXPECT_EQ(order, QStringList({QStringLiteral("edited"), QStringLiteral("clicked")}));
    EXPECT_EQ(m_window.focusWidget(), nullptr);
    EXPECT_EQ(m_recorder.clicked, std::vector<GoalCircleView*> {&m_circle});
    EXPECT_FALSE(m_circle.active());
}

TEST_F(GoalCircleViewTest, screenReadersMeetARadioButton)
{
    m_circle.setValue(QStringLiteral("200"));
    m_circle.setTitle(QStringLiteral("Calories"));
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&m_circle);
    EXPECT_EQ(interface->role(), QAccessible::RadioButton);
    EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("200 Calories"));
    EXPECT_TRUE(interface->state().checkable);
    EXPECT_FALSE(interface->state().checked);
    m_circle.setActive(true);
    EXPECT_TRUE(interface->state().checked);
    EXPECT_TRUE(interface->state().focusable);
    interface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(m_recorder.clicked.size(), 1U);
}
